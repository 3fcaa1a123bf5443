#pragma once
// The HTTP client library's contract: six plain C exports, called with the
// caller removing the arguments (cdecl). Outputs are zeroed by the caller;
// the library hands out a body only with status 200, and that body is
// released with the matching Free function. A transfer that brought no
// complete answer reports status 0.
#include <cstdint>

#ifdef _WIN32
#define HVHTTP_CALL __cdecl
#ifdef HALVORN_HTTP_CLIENT_BUILD
#define HVHTTP_API extern "C" __declspec(dllexport)
#else
#define HVHTTP_API extern "C" __declspec(dllimport)
#endif
#else
#define HVHTTP_CALL
#define HVHTTP_API extern "C" __attribute__((visibility("default")))
#endif

// Narrow strings are UTF-8 (URLs are ASCII in practice); the narrow body is
// the bytes as received. Lengths count characters without the terminator.
// Each returns 0 when an answer arrived (whatever its status), else -1.
typedef int(HVHTTP_CALL* PerformGetAFn)(const char* url, std::int32_t* status, char** response, std::int32_t* length);
typedef int(HVHTTP_CALL* PerformGetWFn)(const wchar_t* url, std::int32_t* status, wchar_t** response,
                                        std::int32_t* length);
typedef int(HVHTTP_CALL* PerformPostJsonAFn)(const char* url, const char* contentType, const char* body,
                                             std::int32_t* status, char** response, std::int32_t* length);
typedef int(HVHTTP_CALL* PerformPostJsonWFn)(const wchar_t* url, const wchar_t* contentType, const wchar_t* body,
                                             std::int32_t* status, wchar_t** response, std::int32_t* length);
typedef void(HVHTTP_CALL* FreeStringAFn)(char** response);
typedef void(HVHTTP_CALL* FreeStringWFn)(wchar_t** response);
// A seventh, optional export (callers look it up by name and do without it):
// ends every transfer running now, from any thread; each of their calls
// returns at once with status 0. For a host that unloads while a transfer runs.
typedef void(HVHTTP_CALL* AbortTransfersFn)();

#ifdef HALVORN_HTTP_CLIENT_BUILD
HVHTTP_API int HVHTTP_CALL PerformGetA(const char* url, std::int32_t* status, char** response, std::int32_t* length);
HVHTTP_API int HVHTTP_CALL PerformGetW(const wchar_t* url, std::int32_t* status, wchar_t** response,
                                       std::int32_t* length);
HVHTTP_API int HVHTTP_CALL PerformPostJsonA(const char* url, const char* contentType, const char* body,
                                            std::int32_t* status, char** response, std::int32_t* length);
HVHTTP_API int HVHTTP_CALL PerformPostJsonW(const wchar_t* url, const wchar_t* contentType, const wchar_t* body,
                                            std::int32_t* status, wchar_t** response, std::int32_t* length);
HVHTTP_API void HVHTTP_CALL FreeStringA(char** response);
HVHTTP_API void HVHTTP_CALL FreeStringW(wchar_t** response);
HVHTTP_API void HVHTTP_CALL AbortTransfers();
#endif

// A client library that offers PerformGetW and FreeStringW only. Its GET
// answers 200 with a text that holds a NUL, and counts what it hands out.
#include <cstdint>
#include <cstring>

#ifdef _WIN32
#define TEST_EXPORT extern "C" __declspec(dllexport)
#define TEST_CALL __cdecl
#else
#define TEST_EXPORT extern "C" __attribute__((visibility("default")))
#define TEST_CALL
#endif

namespace {
const wchar_t kAnswer[] = L"before the NUL\0after the NUL";
int g_outstanding = 0;
}  // namespace

TEST_EXPORT int TEST_CALL PerformGetW(const wchar_t*, std::int32_t* status, wchar_t** response, std::int32_t* length) {
  const std::size_t count = sizeof kAnswer / sizeof kAnswer[0];
  *response = new wchar_t[count];
  std::memcpy(*response, kAnswer, sizeof kAnswer);
  *status = 200;
  *length = static_cast<std::int32_t>(count - 1);
  ++g_outstanding;
  return 0;
}

TEST_EXPORT void TEST_CALL FreeStringW(wchar_t** response) {
  delete[] * response;
  *response = nullptr;
  --g_outstanding;
}

// Texts handed out and not yet freed.
TEST_EXPORT int TEST_CALL OutstandingStrings() { return g_outstanding; }

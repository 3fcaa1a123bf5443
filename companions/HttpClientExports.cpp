// The library's exports: conversions at the C boundary, the 200-only
// hand-out of memory, and nothing thrown across it.
#include <cstring>
#include <new>
#include <string>

#include "companions/HalvornHttpClient.h"
#include "companions/HttpTransfer.h"
#include "platform/Unicode.h"

namespace {

using kvt1::http::HttpRequest;
using kvt1::http::HttpResponse;

HttpResponse transfer(const HttpRequest& request) {
  try {
    return kvt1::http::performTransfer(request, kvt1::http::limitsFromEnvironment());
  } catch (...) {
    return HttpResponse();
  }
}

template <typename Char>
Char* copyOut(const std::basic_string<Char>& text) {
  Char* copy = new (std::nothrow) Char[text.size() + 1];
  if (copy) {
    std::memcpy(copy, text.data(), text.size() * sizeof(Char));
    copy[text.size()] = 0;
  }
  return copy;
}

// Writes the outputs: a body only with status 200, and only when the copy
// could be made (otherwise the status says the transfer failed).
template <typename Char>
int deliver(const HttpResponse& response, const std::basic_string<Char>& body, std::int32_t* status, Char** out,
            std::int32_t* length) {
  std::int32_t code = response.status;
  Char* text = nullptr;
  if (code == 200) {
    text = copyOut(body);
    if (!text) code = 0;
  }
  if (status) *status = code;
  if (length) *length = text ? static_cast<std::int32_t>(body.size()) : 0;
  if (out) {
    *out = text;
  } else {
    delete[] text;
  }
  return response.status != 0 ? 0 : -1;
}

int deliverNarrow(const HttpResponse& response, std::int32_t* status, char** out, std::int32_t* length) {
  try {
    return deliver(response, response.body, status, out, length);
  } catch (...) {
    return -1;
  }
}

int deliverWide(const HttpResponse& response, std::int32_t* status, wchar_t** out, std::int32_t* length) {
  try {
    const std::wstring body = response.status == 200 ? kvt1::platform::fromUtf8(response.body) : std::wstring();
    return deliver(response, body, status, out, length);
  } catch (...) {
    return -1;
  }
}

std::string narrow(const wchar_t* text) { return text ? kvt1::platform::toUtf8(text) : std::string(); }

HttpRequest postRequest(std::string url, std::string contentType, std::string body) {
  HttpRequest request;
  request.url = std::move(url);
  request.post = true;
  request.contentType = std::move(contentType);
  request.body = std::move(body);
  return request;
}

}  // namespace

HVHTTP_API int HVHTTP_CALL PerformGetA(const char* url, std::int32_t* status, char** response, std::int32_t* length) {
  if (!url) return deliverNarrow(HttpResponse(), status, response, length);
  HttpRequest request;
  request.url = url;
  return deliverNarrow(transfer(request), status, response, length);
}

HVHTTP_API int HVHTTP_CALL PerformGetW(const wchar_t* url, std::int32_t* status, wchar_t** response,
                                       std::int32_t* length) {
  if (!url) return deliverWide(HttpResponse(), status, response, length);
  HttpRequest request;
  try {
    request.url = narrow(url);
  } catch (...) {
    return deliverWide(HttpResponse(), status, response, length);
  }
  return deliverWide(transfer(request), status, response, length);
}

HVHTTP_API int HVHTTP_CALL PerformPostJsonA(const char* url, const char* contentType, const char* body,
                                            std::int32_t* status, char** response, std::int32_t* length) {
  if (!url) return deliverNarrow(HttpResponse(), status, response, length);
  HttpResponse answer;
  try {
    answer = transfer(postRequest(url, contentType ? contentType : "", body ? body : ""));
  } catch (...) {
  }
  return deliverNarrow(answer, status, response, length);
}

HVHTTP_API int HVHTTP_CALL PerformPostJsonW(const wchar_t* url, const wchar_t* contentType, const wchar_t* body,
                                            std::int32_t* status, wchar_t** response, std::int32_t* length) {
  if (!url) return deliverWide(HttpResponse(), status, response, length);
  HttpResponse answer;
  try {
    answer = transfer(postRequest(narrow(url), narrow(contentType), narrow(body)));
  } catch (...) {
  }
  return deliverWide(answer, status, response, length);
}

HVHTTP_API void HVHTTP_CALL FreeStringA(char** response) {
  if (!response) return;
  delete[] * response;
  *response = nullptr;
}

HVHTTP_API void HVHTTP_CALL FreeStringW(wchar_t** response) {
  if (!response) return;
  delete[] * response;
  *response = nullptr;
}

HVHTTP_API void HVHTTP_CALL AbortTransfers() {
  try {
    kvt1::http::abortTransfers();
  } catch (...) {
  }
}

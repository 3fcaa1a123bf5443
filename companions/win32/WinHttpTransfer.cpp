// The exchange on WinHTTP, with WinHTTP's own proxy settings. WinHTTP has no
// time-out for a whole exchange, so every wait gets what is left of it.
// A synchronous WinHTTP call cannot be woken from another thread, so each
// exchange runs on a thread of its own that the caller waits for; an abort
// leaves that thread to end by its time-out and returns to the caller at once.
#include <windows.h>
#include <winhttp.h>

#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <system_error>
#include <thread>

#include "companions/HttpTransfer.h"
#include "companions/RunningTransfers.h"
#include "platform/Unicode.h"

namespace kvt1::http {
namespace {

class InternetHandle {
 public:
  explicit InternetHandle(HINTERNET handle) : handle_(handle) {}
  ~InternetHandle() {
    if (handle_) WinHttpCloseHandle(handle_);
  }
  InternetHandle(const InternetHandle&) = delete;
  InternetHandle& operator=(const InternetHandle&) = delete;
  HINTERNET get() const { return handle_; }
  explicit operator bool() const { return handle_ != nullptr; }

 private:
  HINTERNET handle_;
};

class Deadline {
 public:
  explicit Deadline(long milliseconds)
      : end_(std::chrono::steady_clock::now() + std::chrono::milliseconds(milliseconds)) {}
  // What is left, in milliseconds; 0 once it has passed.
  int remaining() const {
    const auto left =
        std::chrono::duration_cast<std::chrono::milliseconds>(end_ - std::chrono::steady_clock::now()).count();
    return left > 0 ? static_cast<int>(left) : 0;
  }

 private:
  std::chrono::steady_clock::time_point end_;
};

// The time-outs of every wait, including the one for the response's header
// (its own option, which WinHttpSetTimeouts leaves alone).
bool limitWait(HINTERNET request, const Deadline& deadline) {
  DWORD left = static_cast<DWORD>(deadline.remaining());
  return left > 0 && WinHttpSetTimeouts(request, left, left, left, left) &&
         WinHttpSetOption(request, WINHTTP_OPTION_RECEIVE_RESPONSE_TIMEOUT, &left, sizeof left);
}

// What the exchange's thread hands to its caller.
struct Handover {
  std::mutex mutex;
  std::condition_variable changed;
  bool done = false;
  bool aborted = false;
  HttpResponse response;
};

HttpResponse exchange(const HttpRequest& request, const TransferLimits& limits);

// An exchange left running after an abort ends inside this library, so the
// library stays loaded for the rest of the process.
void keepLibraryLoaded() {
  HMODULE self = nullptr;
  GetModuleHandleExW(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                     reinterpret_cast<LPCWSTR>(&keepLibraryLoaded), &self);
}

}  // namespace

bool abortTransfers() {
  if (!abortRunningTransfers()) return false;
  keepLibraryLoaded();
  return true;
}

HttpResponse performTransfer(const HttpRequest& request, const TransferLimits& limits) {
  const auto handover = std::make_shared<Handover>();
  std::thread worker;
  try {
    worker = std::thread([handover, request, limits] {
      HttpResponse response = exchange(request, limits);
      const std::lock_guard<std::mutex> lock(handover->mutex);
      handover->response = std::move(response);
      handover->done = true;
      handover->changed.notify_all();
    });
  } catch (const std::system_error&) {
    return exchange(request, limits);
  }
  const RunningTransfer running([&handover] {
    const std::lock_guard<std::mutex> lock(handover->mutex);
    handover->aborted = true;
    handover->changed.notify_all();
  });
  std::unique_lock<std::mutex> lock(handover->mutex);
  handover->changed.wait(lock, [&handover] { return handover->done || handover->aborted; });
  if (!handover->done) {
    worker.detach();
    return HttpResponse();
  }
  lock.unlock();
  worker.join();
  return std::move(handover->response);
}

namespace {

HttpResponse exchange(const HttpRequest& request, const TransferLimits& limits) {
  HttpResponse response;
  const Deadline deadline(limits.totalTimeoutMs);
  std::wstring url = platform::fromUtf8(request.url);

  URL_COMPONENTS parts = {};
  parts.dwStructSize = sizeof parts;
  parts.dwSchemeLength = static_cast<DWORD>(-1);
  parts.dwHostNameLength = static_cast<DWORD>(-1);
  parts.dwUrlPathLength = static_cast<DWORD>(-1);
  parts.dwExtraInfoLength = static_cast<DWORD>(-1);
  if (!WinHttpCrackUrl(url.c_str(), 0, 0, &parts)) return response;
  if (parts.nScheme != INTERNET_SCHEME_HTTP && parts.nScheme != INTERNET_SCHEME_HTTPS) return response;
  const std::wstring host(parts.lpszHostName, parts.dwHostNameLength);
  std::wstring target(parts.lpszUrlPath, parts.dwUrlPathLength);
  target.append(parts.lpszExtraInfo, parts.dwExtraInfoLength);
  if (target.empty()) target = L"/";

  InternetHandle session(WinHttpOpen(L"HalvornHttpClient/1.0", WINHTTP_ACCESS_TYPE_DEFAULT_PROXY, WINHTTP_NO_PROXY_NAME,
                                     WINHTTP_NO_PROXY_BYPASS, 0));
  if (!session) return response;
  const int connectMs = static_cast<int>(limits.connectTimeoutMs);
  const int totalMs = static_cast<int>(limits.totalTimeoutMs);
  WinHttpSetTimeouts(session.get(), connectMs, connectMs, totalMs, totalMs);

  InternetHandle connection(WinHttpConnect(session.get(), host.c_str(), parts.nPort, 0));
  if (!connection) return response;
  InternetHandle exchange(WinHttpOpenRequest(connection.get(), request.post ? L"POST" : L"GET", target.c_str(), nullptr,
                                             WINHTTP_NO_REFERER, WINHTTP_DEFAULT_ACCEPT_TYPES,
                                             parts.nScheme == INTERNET_SCHEME_HTTPS ? WINHTTP_FLAG_SECURE : 0));
  if (!exchange) return response;
  DWORD redirects = WINHTTP_OPTION_REDIRECT_POLICY_NEVER;
  WinHttpSetOption(exchange.get(), WINHTTP_OPTION_REDIRECT_POLICY, &redirects, sizeof redirects);

  if (!limitWait(exchange.get(), deadline)) return response;

  std::wstring headers;
  if (request.post) headers = L"Content-Type: " + platform::fromUtf8(request.contentType);
  void* body = request.post ? const_cast<char*>(request.body.data()) : WINHTTP_NO_REQUEST_DATA;
  const DWORD bodySize = request.post ? static_cast<DWORD>(request.body.size()) : 0;
  if (!WinHttpSendRequest(exchange.get(), headers.empty() ? WINHTTP_NO_ADDITIONAL_HEADERS : headers.c_str(),
                          headers.empty() ? 0 : static_cast<DWORD>(-1L), body, bodySize, bodySize, 0)) {
    return response;
  }
  if (!limitWait(exchange.get(), deadline) || !WinHttpReceiveResponse(exchange.get(), nullptr)) return response;

  DWORD status = 0;
  DWORD statusSize = sizeof status;
  if (!WinHttpQueryHeaders(exchange.get(), WINHTTP_QUERY_STATUS_CODE | WINHTTP_QUERY_FLAG_NUMBER,
                           WINHTTP_HEADER_NAME_BY_INDEX, &status, &statusSize, WINHTTP_NO_HEADER_INDEX)) {
    return response;
  }

  std::string received;
  for (;;) {
    DWORD available = 0;
    if (!limitWait(exchange.get(), deadline) || !WinHttpQueryDataAvailable(exchange.get(), &available)) {
      return response;
    }
    if (available == 0) break;
    if (received.size() + available > limits.maxBodyBytes) return response;
    const std::size_t start = received.size();
    received.resize(start + available);
    DWORD read = 0;
    if (!WinHttpReadData(exchange.get(), &received[start], available, &read)) return response;
    received.resize(start + read);
  }
  response.status = static_cast<int>(status);
  response.body = std::move(received);
  return response;
}

}  // namespace

}  // namespace kvt1::http

#pragma once
// One HTTP exchange as the client library performs it, bounded in time and size.
#include <cstddef>
#include <string>

namespace kvt1::http {

struct TransferLimits {
  long connectTimeoutMs = 3000;  // name lookup and connection
  long totalTimeoutMs = 5000;    // the whole exchange
  std::size_t maxBodyBytes = 4u << 20;
};

// The defaults, with KVT1_HTTP_CONNECT_TIMEOUT_MS and KVT1_HTTP_TIMEOUT_MS
// (positive decimal milliseconds) taking their place when set.
TransferLimits limitsFromEnvironment();

struct HttpRequest {
  std::string url;  // UTF-8
  bool post = false;
  std::string contentType;
  std::string body;
};

struct HttpResponse {
  int status = 0;    // 0: no complete answer (refused, timed out, too large, not HTTP)
  std::string body;  // as received
};

// Redirects are not followed; proxies come from the system's settings.
HttpResponse performTransfer(const HttpRequest& request, const TransferLimits& limits);

// Ends every exchange running now at once, from any thread: each answers
// status 0. False when none was running.
bool abortTransfers();

}  // namespace kvt1::http

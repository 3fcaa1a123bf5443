// The exchange on libcurl. Proxies follow libcurl's reading of http_proxy,
// https_proxy and no_proxy; redirects are left to the caller. Each exchange
// runs on a multi handle of its own, whose wait an abort wakes at once.
#include <curl/curl.h>
#include <dlfcn.h>

#include <atomic>
#include <memory>

#include "companions/HttpTransfer.h"
#include "companions/RunningTransfers.h"

namespace kvt1::http {
namespace {

// libcurl's global state lives as long as this library is loaded. libcurl
// and the TLS libraries below it keep thread-local state and exit handlers
// of their own, so they stay loaded when this library is unloaded: a host
// thread or the process's exit would otherwise run in unmapped code.
class CurlGlobal {
 public:
  CurlGlobal() : ok_(curl_global_init(CURL_GLOBAL_DEFAULT) == CURLE_OK) {
    dlopen("libcurl.so.4", RTLD_LAZY | RTLD_NOLOAD | RTLD_NODELETE);
  }
  ~CurlGlobal() {
    if (ok_) curl_global_cleanup();
  }
  bool ok() const { return ok_; }

 private:
  bool ok_;
};

bool curlReady() {
  static CurlGlobal global;
  return global.ok();
}

struct BodySink {
  std::string* body;
  std::size_t limit;
};

// Stops the transfer (a short count) once the body would pass the limit.
extern "C" size_t appendBody(char* data, size_t size, size_t count, void* context) {
  BodySink* sink = static_cast<BodySink*>(context);
  const std::size_t bytes = size * count;
  if (sink->body->size() + bytes > sink->limit) return 0;
  sink->body->append(data, bytes);
  return bytes;
}

struct CurlDeleter {
  void operator()(CURL* handle) const { curl_easy_cleanup(handle); }
};
struct HeaderListDeleter {
  void operator()(curl_slist* list) const { curl_slist_free_all(list); }
};

// The easy handle on its multi handle, taken off again before either goes.
class MultiTransfer {
 public:
  explicit MultiTransfer(CURL* easy) : easy_(easy), multi_(curl_multi_init()) {
    added_ = multi_ && curl_multi_add_handle(multi_, easy_) == CURLM_OK;
  }
  ~MultiTransfer() {
    if (added_) curl_multi_remove_handle(multi_, easy_);
    if (multi_) curl_multi_cleanup(multi_);
  }
  MultiTransfer(const MultiTransfer&) = delete;
  MultiTransfer& operator=(const MultiTransfer&) = delete;

  // Runs the exchange to its end, or until an abort; CURLE_ABORTED_BY_CALLBACK then.
  CURLcode perform() {
    if (!added_) return CURLE_OUT_OF_MEMORY;
    std::atomic<bool> aborted{false};
    const RunningTransfer running([this, &aborted] {
      aborted = true;
      curl_multi_wakeup(multi_);
    });
    int active = 1;
    while (active > 0) {
      if (aborted) return CURLE_ABORTED_BY_CALLBACK;
      if (curl_multi_perform(multi_, &active) != CURLM_OK) return CURLE_FAILED_INIT;
      if (active > 0 && curl_multi_poll(multi_, nullptr, 0, 1000, nullptr) != CURLM_OK) return CURLE_FAILED_INIT;
    }
    int queued = 0;
    while (CURLMsg* message = curl_multi_info_read(multi_, &queued)) {
      if (message->msg == CURLMSG_DONE) return message->data.result;
    }
    return CURLE_FAILED_INIT;
  }

 private:
  CURL* easy_;
  CURLM* multi_;
  bool added_ = false;
};

}  // namespace

bool abortTransfers() { return abortRunningTransfers(); }

HttpResponse performTransfer(const HttpRequest& request, const TransferLimits& limits) {
  HttpResponse response;
  if (!curlReady()) return response;
  std::unique_ptr<CURL, CurlDeleter> curl(curl_easy_init());
  if (!curl) return response;
  CURL* handle = curl.get();

  BodySink sink{&response.body, limits.maxBodyBytes};
  curl_easy_setopt(handle, CURLOPT_URL, request.url.c_str());
  curl_easy_setopt(handle, CURLOPT_PROTOCOLS_STR, "http,https");
  curl_easy_setopt(handle, CURLOPT_FOLLOWLOCATION, 0L);
  curl_easy_setopt(handle, CURLOPT_NOSIGNAL, 1L);
  // An aborted transfer leaves a name still being resolved to the resolver's
  // thread, which ends on its own, instead of waiting for it: libcurl stays
  // loaded (see CurlGlobal), so that thread never runs in unmapped code.
  curl_easy_setopt(handle, CURLOPT_QUICK_EXIT, 1L);
  curl_easy_setopt(handle, CURLOPT_CONNECTTIMEOUT_MS, limits.connectTimeoutMs);
  curl_easy_setopt(handle, CURLOPT_TIMEOUT_MS, limits.totalTimeoutMs);
  curl_easy_setopt(handle, CURLOPT_MAXFILESIZE_LARGE, static_cast<curl_off_t>(limits.maxBodyBytes));
  curl_easy_setopt(handle, CURLOPT_WRITEFUNCTION, &appendBody);
  curl_easy_setopt(handle, CURLOPT_WRITEDATA, &sink);
  curl_easy_setopt(handle, CURLOPT_USERAGENT, "HalvornHttpClient/1.0");

  std::unique_ptr<curl_slist, HeaderListDeleter> headers;
  if (request.post) {
    const std::string contentType = "Content-Type: " + request.contentType;
    headers.reset(curl_slist_append(nullptr, contentType.c_str()));
    if (!headers) return response;
    curl_easy_setopt(handle, CURLOPT_HTTPHEADER, headers.get());
    curl_easy_setopt(handle, CURLOPT_POSTFIELDS, request.body.c_str());
    curl_easy_setopt(handle, CURLOPT_POSTFIELDSIZE_LARGE, static_cast<curl_off_t>(request.body.size()));
  }

  if (MultiTransfer(handle).perform() != CURLE_OK) {
    response.body.clear();
    return response;
  }
  long status = 0;
  curl_easy_getinfo(handle, CURLINFO_RESPONSE_CODE, &status);
  response.status = static_cast<int>(status);
  return response;
}

}  // namespace kvt1::http

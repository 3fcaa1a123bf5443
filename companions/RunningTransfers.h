#pragma once
// The transfers running in the library, so that AbortTransfers can end them
// all at once from another thread. Each transfer registers how it is stopped
// for as long as it runs.
#include <functional>

namespace kvt1::http {

class RunningTransfer {
 public:
  // Registers abort, which may run on any thread (under the registry's lock,
  // so it must only signal) until this object is destroyed.
  explicit RunningTransfer(std::function<void()> abort);
  ~RunningTransfer();
  RunningTransfer(const RunningTransfer&) = delete;
  RunningTransfer& operator=(const RunningTransfer&) = delete;

 private:
  friend bool abortRunningTransfers();
  std::function<void()> abort_;
};

// Calls the abort of every transfer running now; false when none was.
bool abortRunningTransfers();

}  // namespace kvt1::http

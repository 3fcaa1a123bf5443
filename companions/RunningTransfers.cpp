#include "companions/RunningTransfers.h"

#include <mutex>
#include <set>

namespace kvt1::http {
namespace {

struct Registry {
  std::mutex mutex;
  std::set<RunningTransfer*> running;
};

Registry& registry() {
  static Registry instance;
  return instance;
}

}  // namespace

RunningTransfer::RunningTransfer(std::function<void()> abort) : abort_(std::move(abort)) {
  const std::lock_guard<std::mutex> lock(registry().mutex);
  registry().running.insert(this);
}

RunningTransfer::~RunningTransfer() {
  const std::lock_guard<std::mutex> lock(registry().mutex);
  registry().running.erase(this);
}

bool abortRunningTransfers() {
  const std::lock_guard<std::mutex> lock(registry().mutex);
  for (RunningTransfer* transfer : registry().running) transfer->abort_();
  return !registry().running.empty();
}

}  // namespace kvt1::http

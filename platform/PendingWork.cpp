#include "platform/PendingWork.h"

#include "platform/HeadlessHost.h"

namespace kvt1::platform {
namespace {

void tell(int change) {
  static const auto report = reinterpret_cast<Kvt1HeadlessPendingWorkFn>(mainProgramSymbol(KVT1_HEADLESS_PENDING_WORK));
  if (report != nullptr) report(change);
}

}  // namespace

PendingWork::PendingWork() : counted_(true) { tell(1); }

PendingWork::~PendingWork() {
  if (counted_) tell(-1);
}

PendingWork::PendingWork(PendingWork&& other) noexcept : counted_(other.counted_) { other.counted_ = false; }

}  // namespace kvt1::platform

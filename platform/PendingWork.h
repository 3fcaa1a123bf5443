#pragma once
// Work whose result the main thread is still to get: from the start of a
// worker's task until the call that delivers its result has run or was
// dropped. The real host knows nothing of it; a host program without a
// desktop (the host emulator) is told through its export
// KVT1_HEADLESS_PENDING_WORK, so that it can wait for late results before it
// unloads a module.
namespace kvt1::platform {

class PendingWork {
 public:
  PendingWork();
  ~PendingWork();
  PendingWork(PendingWork&& other) noexcept;
  PendingWork& operator=(PendingWork&&) = delete;
  PendingWork(const PendingWork&) = delete;
  PendingWork& operator=(const PendingWork&) = delete;

 private:
  bool counted_;
};

}  // namespace kvt1::platform

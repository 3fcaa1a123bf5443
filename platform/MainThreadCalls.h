#pragma once
// Calls handed from worker threads to the thread that made this object (the
// host's main thread), which runs them from its message loop: through a
// message-only window on Windows, through the headless desktop's queue
// elsewhere. So a worker's result reaches the user interface on the thread
// that owns it, whenever the host's own loop next dispatches.
#include <functional>
#include <memory>

namespace kvt1::platform {

class MainThreadCalls {
 public:
  // On the main thread.
  MainThreadCalls();
  // On the main thread: calls that have not run yet never run.
  ~MainThreadCalls();
  MainThreadCalls(const MainThreadCalls&) = delete;
  MainThreadCalls& operator=(const MainThreadCalls&) = delete;

  // From any thread. False when the call cannot be handed over.
  bool post(std::function<void()> call);

  struct Queue;

 private:
  std::shared_ptr<Queue> queue_;
};

}  // namespace kvt1::platform

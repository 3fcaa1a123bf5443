#pragma once
// The update service's answer fetched on a worker thread, so that the host's
// main thread never waits on the network for a check: the start-up check
// hands its answer to the main thread's message loop, and a check the user
// asked for waits while the main thread's messages are served.
#include <functional>
#include <memory>
#include <thread>

#include "online/CHvAutomaticUpdateResult.h"
#include "platform/MainThreadCalls.h"

namespace Hv::Http {

class BackgroundUpdateFetch {
 public:
  using Fetch = std::function<CHvAutomaticUpdateResult()>;
  using Deliver = std::function<void(const CHvAutomaticUpdateResult&)>;

  BackgroundUpdateFetch() = default;
  ~BackgroundUpdateFetch() { stop(); }
  BackgroundUpdateFetch(const BackgroundUpdateFetch&) = delete;
  BackgroundUpdateFetch& operator=(const BackgroundUpdateFetch&) = delete;

  // Main thread: once the host's message loop next dispatches, runs fetch on
  // a worker thread; deliver then gets its answer on the main thread, from
  // that loop, unless stop came first. A fetch still running is stopped
  // first. False when the work cannot be handed to the loop.
  bool start(Fetch fetch, Deliver deliver);
  // Main thread: waits for the worker (whoever calls this ends its requests
  // first when it must not wait) and drops an answer not yet delivered.
  void stop();

  // fetch's answer, fetched on a worker thread while the calling (main)
  // thread serves its messages, so the host's windows keep being painted;
  // fetched on the calling thread when no thread can be started.
  static CHvAutomaticUpdateResult fetchServingMessages(const Fetch& fetch);

 private:
  std::unique_ptr<kvt1::platform::MainThreadCalls> calls_;
  std::thread worker_;
};

}  // namespace Hv::Http

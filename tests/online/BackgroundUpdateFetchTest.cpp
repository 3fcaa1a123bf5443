// The update check's fetch on a worker thread: it starts from the main
// thread's message loop and its answer comes back through that loop, a
// check the user asked for keeps the loop served while it waits, and a
// stopped fetch shows nothing.
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>

#include "online/BackgroundUpdateFetch.h"
#include "platform/DialogWindow.h"
#include "platform/MainThreadCalls.h"

namespace kvt1::testing {
namespace {

using Hv::Http::BackgroundUpdateFetch;
using Hv::Http::CHvAutomaticUpdateResult;

CHvAutomaticUpdateResult answerNamed(const std::wstring& name) {
  CHvAutomaticUpdateResult answer;
  answer.update.available = true;
  answer.update.name = name;
  return answer;
}

// A flag that another thread raises.
class Signal {
 public:
  void raise() {
    const std::lock_guard<std::mutex> lock(mutex_);
    raised_ = true;
    changed_.notify_all();
  }
  bool raised() {
    const std::lock_guard<std::mutex> lock(mutex_);
    return raised_;
  }
  bool waitFor(std::chrono::milliseconds limit) {
    std::unique_lock<std::mutex> lock(mutex_);
    return changed_.wait_for(lock, limit, [this] { return raised_; });
  }

 private:
  std::mutex mutex_;
  std::condition_variable changed_;
  bool raised_ = false;
};

// Serves the main thread's messages until done holds, for ten seconds at most.
template <typename Done>
bool serveUntil(Done done) {
  for (int i = 0; i < 1000 && !done(); ++i) {
    platform::pumpPendingMessages();
    std::this_thread::sleep_for(std::chrono::milliseconds(10));
  }
  return done();
}

TEST(BackgroundUpdateFetch, TheAnswerIsDeliveredOnTheMainThreadByItsMessageLoop) {
  const std::thread::id mainThread = std::this_thread::get_id();
  std::thread::id fetchedOn;
  std::thread::id deliveredOn;
  std::wstring delivered;
  BackgroundUpdateFetch fetch;
  ASSERT_TRUE(fetch.start(
      [&] {
        fetchedOn = std::this_thread::get_id();
        return answerNamed(L"KVT 1.1 SP1");
      },
      [&](const CHvAutomaticUpdateResult& answer) {
        deliveredOn = std::this_thread::get_id();
        delivered = answer.update.name;
      }));
  ASSERT_TRUE(serveUntil([&] { return !delivered.empty(); }));
  EXPECT_EQ(delivered, L"KVT 1.1 SP1");
  EXPECT_EQ(deliveredOn, mainThread);
  fetch.stop();
  EXPECT_NE(fetchedOn, mainThread);
}

TEST(BackgroundUpdateFetch, AStoppedFetchDeliversNothing) {
  Signal started;
  Signal released;
  bool delivered = false;
  BackgroundUpdateFetch fetch;
  ASSERT_TRUE(fetch.start(
      [&] {
        started.raise();
        released.waitFor(std::chrono::seconds(10));
        return answerNamed(L"late");
      },
      [&](const CHvAutomaticUpdateResult&) { delivered = true; }));
  ASSERT_TRUE(serveUntil([&] { return started.raised(); }));
  released.raise();
  fetch.stop();  // the answer's call was queued as the worker ended
  platform::pumpPendingMessages();
  EXPECT_FALSE(delivered);
}

TEST(BackgroundUpdateFetch, NothingIsFetchedBeforeTheMessageLoopRuns) {
  bool fetched = false;
  BackgroundUpdateFetch fetch;
  ASSERT_TRUE(fetch.start(
      [&] {
        fetched = true;
        return answerNamed(L"never");
      },
      [](const CHvAutomaticUpdateResult&) {}));
  std::this_thread::sleep_for(std::chrono::milliseconds(50));
  fetch.stop();
  platform::pumpPendingMessages();
  EXPECT_FALSE(fetched);
}

// The fetch finishes only once the main thread has run a call posted to it
// meanwhile, as the host's repaints are.
TEST(BackgroundUpdateFetch, WaitingForAnAnswerTheMainThreadServesItsMessages) {
  platform::MainThreadCalls calls;
  Signal served;
  const CHvAutomaticUpdateResult answer = BackgroundUpdateFetch::fetchServingMessages([&] {
    calls.post([&] { served.raise(); });
    return served.waitFor(std::chrono::seconds(10)) ? answerNamed(L"served") : answerNamed(L"not served");
  });
  EXPECT_EQ(answer.update.name, L"served");
}

}  // namespace
}  // namespace kvt1::testing

#include "online/BackgroundUpdateFetch.h"

#include <chrono>
#include <future>
#include <system_error>

#include "platform/DialogWindow.h"
#include "platform/PendingWork.h"

namespace Hv::Http {
namespace {

// How long the main thread waits for the answer between serving its messages.
constexpr std::chrono::milliseconds kServeInterval(15);

}  // namespace

bool BackgroundUpdateFetch::start(Fetch fetch, Deliver deliver) {
  stop();
  calls_ = std::make_unique<kvt1::platform::MainThreadCalls>();
  // Counted from now until the answer's call has run or was dropped.
  auto pending = std::make_shared<kvt1::platform::PendingWork>();
  // The worker starts from the host's message loop, once the host is done
  // with what it is doing (its start-up), so it never competes with that.
  return calls_->post([this, fetch = std::move(fetch), deliver = std::move(deliver), pending] {
    try {
      worker_ = std::thread([calls = calls_.get(), fetch, deliver, pending] {
        try {
          const CHvAutomaticUpdateResult answer = fetch();
          calls->post([deliver, answer, pending] { deliver(answer); });
        } catch (...) {
          // Nothing leaves the thread; nothing is shown.
        }
      });
    } catch (const std::system_error&) {
      // No thread: no check in this run.
    }
  });
}

void BackgroundUpdateFetch::stop() {
  if (worker_.joinable()) worker_.join();
  calls_.reset();
}

CHvAutomaticUpdateResult BackgroundUpdateFetch::fetchServingMessages(const Fetch& fetch) {
  std::future<CHvAutomaticUpdateResult> answer;
  try {
    answer = std::async(std::launch::async, fetch);
  } catch (const std::system_error&) {
    return fetch();
  }
  while (answer.wait_for(kServeInterval) != std::future_status::ready) kvt1::platform::pumpPendingMessages();
  try {
    return answer.get();
  } catch (...) {
    return {};
  }
}

}  // namespace Hv::Http

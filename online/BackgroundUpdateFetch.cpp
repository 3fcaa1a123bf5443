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

bool BackgroundUpdateFetch::Start(Fetch fetch, Deliver deliver) {
  Stop();
  m_calls = std::make_unique<kvt1::platform::MainThreadCalls>();
  // Counted from now until the answer's call has run or was dropped.
  auto pending = std::make_shared<kvt1::platform::PendingWork>();
  // The worker starts from the host's message loop, once the host is done
  // with what it is doing (its start-up), so it never competes with that.
  return m_calls->post([this, fetch = std::move(fetch), deliver = std::move(deliver), pending] {
    try {
      m_worker = std::thread([calls = m_calls.get(), fetch, deliver, pending] {
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

void BackgroundUpdateFetch::Stop() {
  if (m_worker.joinable()) m_worker.join();
  m_calls.reset();
}

CHvAutomaticUpdateResult BackgroundUpdateFetch::FetchServingMessages(const Fetch& fetch) {
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

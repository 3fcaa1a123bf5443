#include "platform/MainThreadCalls.h"

#include "platform/posix/HeadlessDesktop.h"

namespace kvt1::platform {

// The desktop keeps the calls; this is only what they are known by.
struct MainThreadCalls::Queue {};

MainThreadCalls::MainThreadCalls() : queue_(std::make_shared<Queue>()) {}

MainThreadCalls::~MainThreadCalls() { HeadlessDesktop::instance().dropCalls(queue_.get()); }

bool MainThreadCalls::post(std::function<void()> call) {
  HeadlessDesktop::instance().postCall(queue_.get(), std::move(call));
  return true;
}

}  // namespace kvt1::platform

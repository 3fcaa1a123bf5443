#include "platform/DialogClock.h"

#include <chrono>

namespace kvt1::platform {

std::function<std::uint64_t()> dialogClock() {
  return [] {
    using namespace std::chrono;
    return static_cast<std::uint64_t>(duration_cast<milliseconds>(steady_clock::now().time_since_epoch()).count());
  };
}

}  // namespace kvt1::platform

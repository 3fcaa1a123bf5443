#include "online/Clock.h"

#include <chrono>

namespace kvt1 {

std::int64_t systemSeconds() {
  return std::chrono::duration_cast<std::chrono::seconds>(std::chrono::system_clock::now().time_since_epoch()).count();
}

}  // namespace kvt1

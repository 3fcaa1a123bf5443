#include "platform/DialogClock.h"

namespace kvt1::platform {

std::function<std::uint64_t()> dialogClock() { return {}; }

}  // namespace kvt1::platform

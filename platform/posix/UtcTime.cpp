#include "platform/UtcTime.h"

namespace kvt1::platform {

bool utcTime(std::int64_t secondsSince1970, std::tm& parts) {
  const std::time_t time = static_cast<std::time_t>(secondsSince1970);
  return gmtime_r(&time, &parts) != nullptr;
}

}  // namespace kvt1::platform

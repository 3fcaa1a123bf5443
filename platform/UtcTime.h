#pragma once
// Calendar dates and times in UTC.
#include <cstdint>
#include <ctime>

namespace kvt1::platform {

// The UTC calendar parts of a time in seconds since 1970; false when the
// system's time functions cannot represent it.
bool utcTime(std::int64_t secondsSince1970, std::tm& parts);

}  // namespace kvt1::platform

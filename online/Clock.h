#pragma once
// Where online services take the current time from, so that tests can set it.
#include <cstdint>
#include <functional>

namespace kvt1 {

// Seconds since 1 January 1970 UTC.
using Clock = std::function<std::int64_t()>;

std::int64_t systemSeconds();

}  // namespace kvt1

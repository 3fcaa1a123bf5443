#pragma once
// The process environment.
#include <string>

namespace kvt1::platform {

// The value of a variable of the process environment itself (on Windows not
// a C runtime's copy of it, so that a host program's changes are seen);
// empty when it is not set.
std::string environmentVariable(const char* name);

}  // namespace kvt1::platform

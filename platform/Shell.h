#pragma once
// Asks the system's shell to open a web page or a file, as a double click would.
#include <string>

namespace kvt1::platform {

constexpr int kShowNormal = 1;
constexpr int kShowMaximized = 3;

// The "open" verb on target, with no parameters or working folder. True when
// the shell took the request; it does not wait for what it starts.
bool shellOpen(const std::wstring& target, int showCommand);

}  // namespace kvt1::platform

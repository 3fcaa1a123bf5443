#pragma once
// The clock that the dialogs' timers run on.
#include <cstdint>
#include <functional>

namespace kvt1::platform {

// Steady milliseconds where dialogs are real windows, which live in real time
// (Windows); empty on the headless desktop, whose director moves the dialog
// engine's clock itself.
std::function<std::uint64_t()> dialogClock();

}  // namespace kvt1::platform

#pragma once
// Waiting on the calling thread.
namespace kvt1::platform {

// Waits for the time given. On a headless desktop (posix/HeadlessDesktop.h)
// the desktop's clock moves on instead: that clock is the only time its
// windows and timers know, so they see the wait as they would on Windows.
void sleepMilliseconds(unsigned milliseconds);

}  // namespace kvt1::platform

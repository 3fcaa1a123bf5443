#include "platform/ActiveWindow.h"

namespace kvt1::platform {

// Headless: message boxes go to the host program, which needs no owner.
void* activeWindow() { return nullptr; }

}  // namespace kvt1::platform

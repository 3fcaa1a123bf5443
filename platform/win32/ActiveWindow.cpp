#include "platform/ActiveWindow.h"

#include <windows.h>

namespace kvt1::platform {

void* activeWindow() { return GetActiveWindow(); }

}  // namespace kvt1::platform

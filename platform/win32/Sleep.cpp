#include "platform/Sleep.h"

#include <windows.h>

namespace kvt1::platform {

void sleepMilliseconds(unsigned milliseconds) { ::Sleep(milliseconds); }

}  // namespace kvt1::platform

#include "platform/Sleep.h"

#include "platform/posix/HeadlessDesktop.h"

namespace kvt1::platform {

void sleepMilliseconds(unsigned milliseconds) { HeadlessDesktop::instance().advance(milliseconds); }

}  // namespace kvt1::platform

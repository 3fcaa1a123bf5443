#include "platform/ProcessHeap.h"

namespace kvt1::platform {

void useHostProcessHeap() {}

}  // namespace kvt1::platform

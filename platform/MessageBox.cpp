#include "platform/MessageBox.h"

namespace kvt1::platform {

int defaultMessageBoxAnswer(unsigned type) {
  switch (type & 0xF) {
    case kMbAbortRetryIgnore:
      return kIdAbort;
    case kMbYesNoCancel:
    case kMbYesNo:
      return kIdYes;
    case kMbRetryCancel:
      return kIdRetry;
    default:
      return kIdOk;
  }
}

}  // namespace kvt1::platform

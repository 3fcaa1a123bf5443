#include "platform/OsVersion.h"

#include <windows.h>

namespace kvt1::platform {

std::uint32_t packedOsVersion() { return static_cast<std::uint32_t>(GetVersion()); }

}  // namespace kvt1::platform

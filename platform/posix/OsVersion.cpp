#include "platform/OsVersion.h"

#include <sys/utsname.h>

#include <cstdlib>

namespace kvt1::platform {

std::uint32_t packedOsVersion() {
  utsname names{};
  if (uname(&names) != 0) return 0;
  std::uint32_t parts[3] = {};
  const char* at = names.release;
  for (std::uint32_t& part : parts) {
    char* end = nullptr;
    part = static_cast<std::uint32_t>(std::strtoul(at, &end, 10));
    if (end == at || *end != '.') break;
    at = end + 1;
  }
  return (parts[0] & 0xFF) | (parts[1] & 0xFF) << 8 | (parts[2] & 0xFFFF) << 16;
}

}  // namespace kvt1::platform

#include "platform/Guid.h"

#include <sys/random.h>

namespace kvt1::platform {

bool createGuid(Guid& out) {
  std::uint8_t bytes[16];
  std::size_t filled = 0;
  while (filled < sizeof bytes) {
    const ssize_t got = getrandom(bytes + filled, sizeof bytes - filled, 0);
    if (got <= 0) return false;
    filled += static_cast<std::size_t>(got);
  }
  Guid guid;
  guid.data1 = static_cast<std::uint32_t>(bytes[0]) << 24 | static_cast<std::uint32_t>(bytes[1]) << 16 |
               static_cast<std::uint32_t>(bytes[2]) << 8 | bytes[3];
  guid.data2 = static_cast<std::uint16_t>(bytes[4] << 8 | bytes[5]);
  // Version 4 (random) in the high bits of data3, the RFC 4122 variant in data4[0].
  guid.data3 = static_cast<std::uint16_t>(((bytes[6] & 0x0F) | 0x40) << 8 | bytes[7]);
  guid.data4[0] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
  for (int i = 1; i < 8; ++i) guid.data4[i] = bytes[8 + i];
  out = guid;
  return true;
}

}  // namespace kvt1::platform

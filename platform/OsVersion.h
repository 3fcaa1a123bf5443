#pragma once
// The operating system's version as one number.
#include <cstdint>

namespace kvt1::platform {

// Packed as Windows' GetVersion packs it: the major version in the low byte,
// the minor version in the next byte, the build number in the high word.
// Elsewhere the kernel's release "major.minor.patch" is packed the same way.
std::uint32_t packedOsVersion();

inline int osMajorVersion(std::uint32_t packed) { return static_cast<int>(packed & 0xFF); }

}  // namespace kvt1::platform

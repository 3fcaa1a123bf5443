#pragma once
// Base64 (RFC 4648, with padding), how the framed report travels inside a
// JSON document.
#include <cstdint>
#include <string>
#include <vector>

namespace kvt1::usage {

std::string base64Encode(const std::vector<std::uint8_t>& bytes);

}  // namespace kvt1::usage

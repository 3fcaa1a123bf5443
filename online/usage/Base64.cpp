#include "online/usage/Base64.h"

namespace kvt1::usage {

std::string base64Encode(const std::vector<std::uint8_t>& bytes) {
  static const char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string out;
  out.reserve((bytes.size() + 2) / 3 * 4);
  std::size_t i = 0;
  for (; i + 3 <= bytes.size(); i += 3) {
    const std::uint32_t group = bytes[i] << 16 | bytes[i + 1] << 8 | bytes[i + 2];
    out += kAlphabet[group >> 18];
    out += kAlphabet[(group >> 12) & 63];
    out += kAlphabet[(group >> 6) & 63];
    out += kAlphabet[group & 63];
  }
  const std::size_t rest = bytes.size() - i;
  if (rest > 0) {
    const std::uint32_t group = bytes[i] << 16 | (rest == 2 ? bytes[i + 1] << 8 : 0);
    out += kAlphabet[group >> 18];
    out += kAlphabet[(group >> 12) & 63];
    out += rest == 2 ? kAlphabet[(group >> 6) & 63] : '=';
    out += '=';
  }
  return out;
}

}  // namespace kvt1::usage

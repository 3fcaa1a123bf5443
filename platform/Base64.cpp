#include "platform/Base64.h"

#include <cstdint>

namespace kvt1::platform {
namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int sextet(char c) {
  if (c >= 'A' && c <= 'Z') return c - 'A';
  if (c >= 'a' && c <= 'z') return c - 'a' + 26;
  if (c >= '0' && c <= '9') return c - '0' + 52;
  if (c == '+') return 62;
  if (c == '/') return 63;
  return -1;
}

bool isSpace(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

std::uint32_t byteAt(std::string_view bytes, std::size_t i) {
  return i < bytes.size() ? static_cast<unsigned char>(bytes[i]) : 0u;
}

}  // namespace

std::string encodeBase64(std::string_view bytes) {
  std::string out;
  out.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const std::uint32_t group = byteAt(bytes, i) << 16 | byteAt(bytes, i + 1) << 8 | byteAt(bytes, i + 2);
    const std::size_t present = bytes.size() - i;
    out += kAlphabet[group >> 18];
    out += kAlphabet[(group >> 12) & 63];
    out += present > 1 ? kAlphabet[(group >> 6) & 63] : '=';
    out += present > 2 ? kAlphabet[group & 63] : '=';
  }
  return out;
}

bool decodeBase64(std::string_view text, std::string& bytes) {
  bytes.clear();
  std::uint32_t group = 0;
  int count = 0;
  int padding = 0;
  for (const char c : text) {
    if (isSpace(c)) continue;
    if (c == '=') {
      ++padding;
      continue;
    }
    const int value = sextet(c);
    if (value < 0 || padding > 0) return false;
    group = group << 6 | static_cast<std::uint32_t>(value);
    if (++count == 4) {
      bytes += static_cast<char>(group >> 16);
      bytes += static_cast<char>(group >> 8);
      bytes += static_cast<char>(group);
      group = 0;
      count = 0;
    }
  }
  if (count == 1 || (padding > 0 && count + padding != 4)) return false;
  if (count == 2) bytes += static_cast<char>(group >> 4);
  if (count == 3) {
    bytes += static_cast<char>(group >> 10);
    bytes += static_cast<char>(group >> 2);
  }
  return true;
}

}  // namespace kvt1::platform

#include "text/XmlBase64.h"

#include <cstdint>

#include "text/XmlSyntax.h"

namespace kvt1 {
namespace {

constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

int sextet(wchar_t c) {
  if (c >= L'A' && c <= L'Z') return c - L'A';
  if (c >= L'a' && c <= L'z') return c - L'a' + 26;
  if (c >= L'0' && c <= L'9') return c - L'0' + 52;
  if (c == L'+') return 62;
  if (c == L'/') return 63;
  return -1;
}

}  // namespace

std::wstring encodeBase64(std::string_view bytes) {
  std::wstring out;
  out.reserve((bytes.size() + 2) / 3 * 4);
  std::size_t i = 0;
  for (; i + 3 <= bytes.size(); i += 3) {
    const std::uint32_t group = static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << 16 |
                                static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i + 1])) << 8 |
                                static_cast<unsigned char>(bytes[i + 2]);
    for (int shift = 18; shift >= 0; shift -= 6) out += static_cast<wchar_t>(kAlphabet[(group >> shift) & 63]);
  }
  const std::size_t rest = bytes.size() - i;
  if (rest > 0) {
    std::uint32_t group = static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i])) << 16;
    if (rest == 2) group |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[i + 1])) << 8;
    out += static_cast<wchar_t>(kAlphabet[(group >> 18) & 63]);
    out += static_cast<wchar_t>(kAlphabet[(group >> 12) & 63]);
    out += rest == 2 ? static_cast<wchar_t>(kAlphabet[(group >> 6) & 63]) : L'=';
    out += L'=';
  }
  return out;
}

bool decodeBase64(std::wstring_view text, std::string& bytes) {
  bytes.clear();
  std::uint32_t group = 0;
  int count = 0;
  bool padded = false;
  for (const wchar_t c : text) {
    if (isXmlSpace(c)) continue;
    if (c == L'=') {
      padded = true;
      continue;
    }
    const int value = sextet(c);
    if (value < 0 || padded) return false;
    group = group << 6 | static_cast<std::uint32_t>(value);
    if (++count == 4) {
      bytes += static_cast<char>(group >> 16);
      bytes += static_cast<char>(group >> 8);
      bytes += static_cast<char>(group);
      group = 0;
      count = 0;
    }
  }
  if (count == 1) return false;
  if (count == 2) bytes += static_cast<char>(group >> 4);
  if (count == 3) {
    bytes += static_cast<char>(group >> 10);
    bytes += static_cast<char>(group >> 2);
  }
  return true;
}

}  // namespace kvt1

#include "platform/Guid.h"

#include <cstring>

#include "platform/WideFormat.h"

namespace kvt1::platform {
namespace {

int hexDigit(wchar_t c) {
  if (c >= L'0' && c <= L'9') return c - L'0';
  if (c >= L'a' && c <= L'f') return c - L'a' + 10;
  if (c >= L'A' && c <= L'F') return c - L'A' + 10;
  return -1;
}

// digits hexadecimal digits from text at position, or false.
bool readHex(const std::wstring& text, std::size_t position, int digits, std::uint32_t& value) {
  value = 0;
  for (int i = 0; i < digits; ++i) {
    const int digit = hexDigit(text[position + i]);
    if (digit < 0) return false;
    value = value << 4 | static_cast<std::uint32_t>(digit);
  }
  return true;
}

}  // namespace

bool operator==(const Guid& left, const Guid& right) {
  return left.data1 == right.data1 && left.data2 == right.data2 && left.data3 == right.data3 &&
         std::memcmp(left.data4, right.data4, sizeof left.data4) == 0;
}

std::wstring guidText(const Guid& guid) {
  return formatWide(L"{%08X-%04X-%04X-%02X%02X-%02X%02X%02X%02X%02X%02X}", guid.data1, guid.data2, guid.data3,
                    guid.data4[0], guid.data4[1], guid.data4[2], guid.data4[3], guid.data4[4], guid.data4[5],
                    guid.data4[6], guid.data4[7]);
}

bool parseGuid(const std::wstring& text, Guid& out) {
  // {XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}: 38 characters.
  if (text.size() != 38 || text[0] != L'{' || text[37] != L'}' || text[9] != L'-' || text[14] != L'-' ||
      text[19] != L'-' || text[24] != L'-') {
    return false;
  }
  Guid guid;
  std::uint32_t value = 0;
  if (!readHex(text, 1, 8, value)) return false;
  guid.data1 = value;
  if (!readHex(text, 10, 4, value)) return false;
  guid.data2 = static_cast<std::uint16_t>(value);
  if (!readHex(text, 15, 4, value)) return false;
  guid.data3 = static_cast<std::uint16_t>(value);
  static const std::size_t kBytePositions[8] = {20, 22, 25, 27, 29, 31, 33, 35};
  for (int i = 0; i < 8; ++i) {
    if (!readHex(text, kBytePositions[i], 2, value)) return false;
    guid.data4[i] = static_cast<std::uint8_t>(value);
  }
  out = guid;
  return true;
}

}  // namespace kvt1::platform

#pragma once
// GUIDs: the system's generator and the braced text form
// "{XXXXXXXX-XXXX-XXXX-XXXX-XXXXXXXXXXXX}".
#include <cstdint>
#include <string>

namespace kvt1::platform {

// The fields in the system's own order and widths.
struct Guid {
  std::uint32_t data1 = 0;
  std::uint16_t data2 = 0;
  std::uint16_t data3 = 0;
  std::uint8_t data4[8] = {};
};

bool operator==(const Guid& left, const Guid& right);

// A new random GUID (version 4 where the system makes them itself); false
// when the system's generator failed.
bool createGuid(Guid& out);

// The braced form with upper-case hexadecimal digits.
std::wstring guidText(const Guid& guid);

// Reads the braced form, digits in either case; false for anything else.
bool parseGuid(const std::wstring& text, Guid& out);

}  // namespace kvt1::platform

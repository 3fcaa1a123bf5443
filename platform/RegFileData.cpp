#include "platform/RegFileData.h"

#include <cstring>

#include "platform/RegFile.h"
#include "platform/Unicode.h"

namespace kvt1::platform {

bool isRegStringType(std::uint32_t type) { return type == 1 || type == 2 || type == kRegMultiSz; }

std::vector<unsigned char> regStringData(std::wstring_view textWithNul) {
  const auto* first = reinterpret_cast<const unsigned char*>(textWithNul.data());
  return std::vector<unsigned char>(first, first + textWithNul.size() * sizeof(wchar_t));
}

std::wstring regStringUnits(const std::vector<unsigned char>& data) {
  std::wstring units(data.size() / sizeof(wchar_t), L'\0');
  // An empty value may have no data buffer at all, which memcpy must not see.
  if (!units.empty()) std::memcpy(units.data(), data.data(), units.size() * sizeof(wchar_t));
  return units;
}

// Where wchar_t is UTF-16 the bytes are the data, odd sizes included.
std::vector<unsigned char> valueDataFromFile(std::uint32_t type, std::vector<unsigned char> bytes) {
  if (sizeof(wchar_t) == 2 || !isRegStringType(type)) return bytes;
  return regStringData(fromUtf16(std::string_view(reinterpret_cast<const char*>(bytes.data()), bytes.size())));
}

std::vector<unsigned char> fileBytesFromValueData(std::uint32_t type, const std::vector<unsigned char>& data) {
  if (sizeof(wchar_t) == 2 || !isRegStringType(type)) return data;
  const std::string bytes = toUtf16(regStringUnits(data));
  return std::vector<unsigned char>(bytes.begin(), bytes.end());
}

}  // namespace kvt1::platform

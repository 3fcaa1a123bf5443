#include "platform/RegFileData.h"

#include <cstring>

#include "platform/RegFile.h"

namespace kvt1::platform {

std::wstring wideFromUtf16le(const unsigned char* bytes, std::size_t size) {
  std::wstring text;
  text.reserve(size / 2);
  for (std::size_t i = 0; i + 1 < size; i += 2) {
    char32_t unit = static_cast<char32_t>(bytes[i] | (bytes[i + 1] << 8));
    if (sizeof(wchar_t) > 2 && unit >= 0xD800 && unit <= 0xDBFF && i + 3 < size) {
      const char32_t low = static_cast<char32_t>(bytes[i + 2] | (bytes[i + 3] << 8));
      if (low >= 0xDC00 && low <= 0xDFFF) {
        unit = 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00);
        i += 2;
      }
    }
    text += static_cast<wchar_t>(unit);
  }
  return text;
}

std::string utf16leFromWide(const wchar_t* text, std::size_t length) {
  std::string bytes;
  bytes.reserve(length * 2);
  const auto put = [&bytes](char32_t unit) {
    bytes += static_cast<char>(unit & 0xFF);
    bytes += static_cast<char>((unit >> 8) & 0xFF);
  };
  for (std::size_t i = 0; i < length; ++i) {
    char32_t c = static_cast<char32_t>(text[i]);
    if constexpr (sizeof(wchar_t) == 2) c &= 0xFFFF;
    if (c >= 0x10000 && c <= 0x10FFFF) {
      c -= 0x10000;
      put(0xD800 + (c >> 10));
      put(0xDC00 + (c & 0x3FF));
    } else {
      put(c);
    }
  }
  return bytes;
}

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
  return regStringData(wideFromUtf16le(bytes.data(), bytes.size()));
}

std::vector<unsigned char> fileBytesFromValueData(std::uint32_t type, const std::vector<unsigned char>& data) {
  if (sizeof(wchar_t) == 2 || !isRegStringType(type)) return data;
  const std::wstring units = regStringUnits(data);
  const std::string bytes = utf16leFromWide(units.data(), units.size());
  return std::vector<unsigned char>(bytes.begin(), bytes.end());
}

}  // namespace kvt1::platform

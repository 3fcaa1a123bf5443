#include "htmlui/engine/PageText.h"

#include <string_view>

#include "platform/Unicode.h"

namespace kvt1::html {

std::wstring decodePageBytes(const unsigned char* data, std::size_t size) {
  if (data == nullptr || size == 0) return std::wstring();
  if (size >= 2 && data[0] == 0xFF && data[1] == 0xFE) {
    std::wstring out;
    out.reserve(size / 2);
    for (std::size_t i = 2; i + 1 < size; i += 2) {
      const char32_t unit = static_cast<char32_t>(data[i] | (data[i + 1] << 8));
      if (unit >= 0xD800 && unit <= 0xDBFF && i + 3 < size) {
        const char32_t low = static_cast<char32_t>(data[i + 2] | (data[i + 3] << 8));
        if (low >= 0xDC00 && low <= 0xDFFF) {
          platform::appendCodePoint(out, 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
          i += 2;
          continue;
        }
      }
      platform::appendCodePoint(out, unit >= 0xD800 && unit <= 0xDFFF ? 0xFFFD : unit);
    }
    return out;
  }
  std::string_view bytes(reinterpret_cast<const char*>(data), size);
  if (bytes.size() >= 3 && bytes.compare(0, 3, "\xEF\xBB\xBF") == 0) bytes.remove_prefix(3);
  return platform::fromUtf8(bytes);
}

}  // namespace kvt1::html

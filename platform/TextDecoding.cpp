#include "platform/TextDecoding.h"

#include "platform/CodePage.h"
#include "platform/Unicode.h"

namespace kvt1::platform {
namespace {

std::wstring fromUtf16LittleEndian(std::string_view bytes) {
  const auto unitAt = [&bytes](std::size_t i) {
    return static_cast<char32_t>(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1]) << 8);
  };
  std::wstring out;
  out.reserve(bytes.size() / 2);
  for (std::size_t i = 0; i + 1 < bytes.size(); i += 2) {
    const char32_t unit = unitAt(i);
    if (unit >= 0xD800 && unit <= 0xDBFF && i + 3 < bytes.size()) {
      const char32_t low = unitAt(i + 2);
      if (low >= 0xDC00 && low <= 0xDFFF) {
        appendCodePoint(out, 0x10000 + ((unit - 0xD800) << 10) + (low - 0xDC00));
        i += 2;
        continue;
      }
    }
    appendCodePoint(out, unit >= 0xD800 && unit <= 0xDFFF ? 0xFFFD : unit);
  }
  return out;
}

bool startsWith(std::string_view bytes, std::string_view mark) { return bytes.substr(0, mark.size()) == mark; }

}  // namespace

std::wstring decodeText(std::string_view bytes, unsigned codePageWithoutMark) {
  if (startsWith(bytes, "\xFF\xFE")) return fromUtf16LittleEndian(bytes.substr(2));
  if (startsWith(bytes, "\xEF\xBB\xBF")) return fromUtf8(bytes.substr(3));
  if (codePageWithoutMark == kCodePageUtf8) return fromUtf8(bytes);
  std::wstring text;
  if (!bytesToWide(kCodePageUtf8, bytes, text)) bytesToWide(codePageWithoutMark, bytes, text);
  return text;
}

}  // namespace kvt1::platform

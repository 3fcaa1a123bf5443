#include "platform/TextDecoding.h"

#include "platform/CodePage.h"
#include "platform/Unicode.h"

namespace kvt1::platform {
namespace {

bool startsWith(std::string_view bytes, std::string_view mark) { return bytes.substr(0, mark.size()) == mark; }

}  // namespace

std::wstring decodeText(std::string_view bytes, unsigned codePageWithoutMark) {
  if (startsWith(bytes, "\xFF\xFE")) return fromUtf16(bytes.substr(2));
  if (startsWith(bytes, "\xEF\xBB\xBF")) return fromUtf8(bytes.substr(3));
  if (codePageWithoutMark == kCodePageUtf8) return fromUtf8(bytes);
  std::wstring text;
  if (!bytesToWide(kCodePageUtf8, bytes, text)) bytesToWide(codePageWithoutMark, bytes, text);
  return text;
}

}  // namespace kvt1::platform

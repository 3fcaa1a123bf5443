#include "online/WebLink.h"

#include <cwctype>

namespace kvt1 {
namespace {

bool startsWithNoCase(const std::wstring& text, const wchar_t* prefix, std::size_t& length) {
  length = std::char_traits<wchar_t>::length(prefix);
  if (text.size() < length) return false;
  for (std::size_t i = 0; i < length; ++i) {
    if (static_cast<wchar_t>(std::towlower(text[i])) != prefix[i]) return false;
  }
  return true;
}

bool allowedInLink(wchar_t c) {
  if (c <= 0x20 || c >= 0x7F) return false;
  switch (c) {
    case L'"': case L'<': case L'>': case L'\\': case L'^': case L'`': case L'{': case L'|': case L'}':
      return false;
    default:
      return true;
  }
}

}  // namespace

bool isWebLink(const std::wstring& link) {
  std::size_t schemeLength = 0;
  if (!startsWithNoCase(link, L"http://", schemeLength) && !startsWithNoCase(link, L"https://", schemeLength)) {
    return false;
  }
  if (link.size() == schemeLength || link[schemeLength] == L'/') return false;
  for (wchar_t c : link) {
    if (!allowedInLink(c)) return false;
  }
  return true;
}

}  // namespace kvt1

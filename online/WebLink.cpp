#include "online/WebLink.h"

#include "platform/CaseFolding.h"

namespace kvt1 {
namespace {

bool allowedInLink(wchar_t c) {
  if (c <= 0x20 || c >= 0x7F) return false;
  switch (c) {
    case L'"':
    case L'<':
    case L'>':
    case L'\\':
    case L'^':
    case L'`':
    case L'{':
    case L'|':
    case L'}':
      return false;
    default:
      return true;
  }
}

}  // namespace

bool isWebLink(const std::wstring& link) {
  std::size_t schemeLength = 0;
  for (const std::wstring_view scheme : {L"http://", L"https://"}) {
    if (platform::startsWithIgnoringCase(link, scheme)) schemeLength = scheme.size();
  }
  if (schemeLength == 0) return false;
  if (link.size() == schemeLength || link[schemeLength] == L'/') return false;
  for (wchar_t c : link) {
    if (!allowedInLink(c)) return false;
  }
  return true;
}

}  // namespace kvt1

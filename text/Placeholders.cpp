#include "text/Placeholders.h"

#include <cwctype>

#include "platform/WideFormat.h"

namespace NTxtRes {
namespace {

bool replaceFirst(std::wstring& text, const wchar_t* placeholder, const std::wstring& value) {
  const std::size_t at = text.find(placeholder);
  if (at == std::wstring::npos) return false;
  text.replace(at, 2, value);
  return !text.empty();
}

// "%f" or "%." digits "f": the only formats a float placeholder may carry.
bool isFloatFormat(const std::wstring& format) {
  if (format == L"%f") return true;
  if (format.size() < 3 || format[1] != L'.') return false;
  for (std::size_t i = 2; i + 1 < format.size(); ++i) {
    if (!std::iswdigit(format[i])) return false;
  }
  return true;
}

}  // namespace

void ReplaceAll(std::wstring& text, const std::wstring& what, const std::wstring& with) {
  if (what.empty()) return;
  for (std::size_t at = text.find(what); at != std::wstring::npos; at = text.find(what, at + with.size())) {
    text.replace(at, what.size(), with);
  }
}

bool ReplaceNumbered(std::wstring& text, int n, const std::wstring& value) {
  const std::wstring placeholder = kvt1::platform::formatWide(L"%%%d", n);
  const bool found = text.find(placeholder) != std::wstring::npos;
  ReplaceAll(text, placeholder, value);
  return found;
}

bool ReplaceString(std::wstring& text, const std::wstring& value) { return replaceFirst(text, L"%s", value); }

bool ReplaceInt(std::wstring& text, int value) {
  return replaceFirst(text, L"%d", kvt1::platform::formatWide(L"%d", value));
}

bool ReplaceUnsigned(std::wstring& text, unsigned value) {
  return replaceFirst(text, L"%u", kvt1::platform::formatWide(L"%u", value));
}

bool ReplaceFloat(std::wstring& text, double value, int precision) {
  if (precision >= 0) {
    const std::wstring format = kvt1::platform::formatWide(L"%%.%df", precision);
    return replaceFirst(text, L"%f", kvt1::platform::formatWide(format.c_str(), value));
  }
  std::size_t start = text.find(L'%');
  while (start != std::wstring::npos && start + 1 < text.size() && text[start + 1] != L'.' && text[start + 1] != L'f') {
    start = text.find(L'%', start + 1);
  }
  if (start == std::wstring::npos || start + 1 >= text.size()) return false;
  const std::size_t end = text.find(L'f', start + 1);
  if (end == std::wstring::npos) return false;
  const std::wstring format = text.substr(start, end - start + 1);
  if (!isFloatFormat(format)) return false;
  text.replace(start, format.size(), kvt1::platform::formatWide(format.c_str(), value));
  return !text.empty();
}

}  // namespace NTxtRes

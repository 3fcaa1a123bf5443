#include "text/Placeholders.h"

#include <cwchar>
#include <optional>

#include "platform/WideFormat.h"

namespace NTxtRes {
namespace {

bool replaceFirst(std::wstring& text, const wchar_t* placeholder, const std::wstring& value) {
  const std::size_t at = text.find(placeholder);
  if (at == std::wstring::npos) return false;
  text.replace(at, 2, value);
  return !text.empty();
}

// The float conversion that starts at text[at] ("%" flags width .precision
// length conversion, e.g. "%f", "%.2lf", "%-8.3Lf", "%+e"): its length, and
// the format to print a double with (the length modifier dropped: "L" would
// ask for a long double). Nothing when text[at] starts no such conversion;
// widths and precisions have at most three digits, so no text grows without bound.
constexpr std::size_t kMaxDigits = 3;

struct FloatConversion {
  std::size_t length;
  std::wstring format;
};

std::optional<FloatConversion> floatConversionAt(const std::wstring& text, std::size_t at) {
  std::size_t i = at + 1;
  const auto isIn = [&](const wchar_t* set) {
    return i < text.size() && text[i] != L'\0' && std::wcschr(set, text[i]) != nullptr;
  };
  const auto digits = [&] {
    const std::size_t first = i;
    while (isIn(L"0123456789")) ++i;
    return i - first <= kMaxDigits;
  };
  while (isIn(L"-+ #0")) ++i;
  if (!digits()) return std::nullopt;
  if (isIn(L".")) {
    ++i;
    if (!digits()) return std::nullopt;
  }
  std::wstring format = text.substr(at, i - at);
  if (isIn(L"lL")) ++i;
  if (!isIn(L"fFeEgG")) return std::nullopt;
  format += text[i];
  return FloatConversion{i + 1 - at, format};
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
  for (std::size_t at = text.find(L'%'); at != std::wstring::npos; at = text.find(L'%', at + 1)) {
    const std::optional<FloatConversion> conversion = floatConversionAt(text, at);
    if (!conversion) continue;
    text.replace(at, conversion->length, kvt1::platform::formatWide(conversion->format.c_str(), value));
    return !text.empty();
  }
  return false;
}

}  // namespace NTxtRes

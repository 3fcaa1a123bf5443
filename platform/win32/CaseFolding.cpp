#include "platform/CaseFolding.h"

#include <windows.h>

namespace kvt1::platform {

namespace {

// The invariant locale's case map, done in place: it keeps the length.
std::wstring mapped(std::wstring_view text, DWORD map) {
  std::wstring out(text);
  if (out.empty()) return out;
  const int length = static_cast<int>(out.size());
  LCMapStringEx(LOCALE_NAME_INVARIANT, map, out.data(), length, out.data(), length, nullptr, nullptr, 0);
  return out;
}

}  // namespace

std::wstring lowerCase(std::wstring_view text) { return mapped(text, LCMAP_LOWERCASE); }
std::wstring upperCase(std::wstring_view text) { return mapped(text, LCMAP_UPPERCASE); }

}  // namespace kvt1::platform

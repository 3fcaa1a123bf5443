#include "platform/CaseFolding.h"

#include <windows.h>

namespace kvt1::platform {

std::wstring lowerCase(std::wstring_view text) {
  std::wstring lowered(text);
  if (lowered.empty()) return lowered;
  // The invariant locale's case map, done in place: it keeps the length.
  const int length = static_cast<int>(lowered.size());
  LCMapStringEx(LOCALE_NAME_INVARIANT, LCMAP_LOWERCASE, lowered.data(), length, lowered.data(), length, nullptr,
                nullptr, 0);
  return lowered;
}

}  // namespace kvt1::platform

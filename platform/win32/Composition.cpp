#include "platform/Composition.h"

#include <windows.h>

namespace kvt1::platform {

std::wstring composeCharacters(std::wstring_view text) {
  if (text.empty()) return std::wstring();
  const int size = static_cast<int>(text.size());
  int estimate = NormalizeString(NormalizationC, text.data(), size, nullptr, 0);
  // The estimate may fall short; the call says how much it needs then.
  for (int attempt = 0; attempt < 3 && estimate > 0; ++attempt) {
    std::wstring composed(static_cast<std::size_t>(estimate), L'\0');
    const int length = NormalizeString(NormalizationC, text.data(), size, composed.data(), estimate);
    if (length > 0) {
      composed.resize(static_cast<std::size_t>(length));
      return composed;
    }
    if (GetLastError() != ERROR_INSUFFICIENT_BUFFER) break;
    estimate = -length;
  }
  return std::wstring(text);
}

}  // namespace kvt1::platform

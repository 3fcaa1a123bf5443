#include "platform/Composition.h"

#include <glib.h>

#include "platform/Unicode.h"

namespace kvt1::platform {

std::wstring composeCharacters(std::wstring_view text) {
  if (text.empty()) return std::wstring();
  const std::string utf8 = toUtf8(text);
  gchar* composed = g_utf8_normalize(utf8.data(), static_cast<gssize>(utf8.size()), G_NORMALIZE_NFC);
  if (composed == nullptr) return std::wstring(text);
  std::wstring result = fromUtf8(composed);
  g_free(composed);
  return result;
}

}  // namespace kvt1::platform

#include "platform/CaseFolding.h"

#include <locale.h>
#include <wctype.h>

namespace kvt1::platform {
namespace {

// The host's own locale may be "C", whose case map knows A-Z only: ours is
// the C library's Unicode locale, made once and kept for the process.
locale_t unicodeLocale() {
  static const locale_t locale = newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr));
  return locale;
}

}  // namespace

std::wstring lowerCase(std::wstring_view text) {
  std::wstring lowered(text);
  const locale_t locale = unicodeLocale();
  for (wchar_t& c : lowered) {
    if (locale != static_cast<locale_t>(nullptr))
      c = static_cast<wchar_t>(towlower_l(static_cast<wint_t>(c), locale));
    else if (c >= L'A' && c <= L'Z')
      c = static_cast<wchar_t>(c - L'A' + L'a');
  }
  return lowered;
}

}  // namespace kvt1::platform

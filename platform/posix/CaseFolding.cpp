#include "platform/CaseFolding.h"

#include <locale.h>
#include <wctype.h>

namespace kvt1::platform {
namespace {

// The host's own locale may be "C", whose case map knows A-Z only: ours is
// the C library's Unicode locale, made once and freed with the image.
class UnicodeLocale {
 public:
  UnicodeLocale() : locale_(newlocale(LC_CTYPE_MASK, "C.UTF-8", static_cast<locale_t>(nullptr))) {}
  ~UnicodeLocale() {
    if (locale_ != static_cast<locale_t>(nullptr)) freelocale(locale_);
  }
  UnicodeLocale(const UnicodeLocale&) = delete;
  UnicodeLocale& operator=(const UnicodeLocale&) = delete;
  locale_t get() const { return locale_; }

 private:
  locale_t locale_;
};

locale_t unicodeLocale() {
  static const UnicodeLocale locale;
  return locale.get();
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

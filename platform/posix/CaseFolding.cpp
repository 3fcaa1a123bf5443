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

// Without the Unicode locale only A to Z are mapped.
std::wstring mapped(std::wstring_view text, wint_t (*map)(wint_t, locale_t), bool upper) {
  std::wstring out(text);
  const locale_t locale = unicodeLocale();
  const wchar_t from = upper ? L'a' : L'A';
  const wchar_t to = upper ? L'A' : L'a';
  for (wchar_t& c : out) {
    if (locale != static_cast<locale_t>(nullptr))
      c = static_cast<wchar_t>(map(static_cast<wint_t>(c), locale));
    else if (c >= from && c <= from + 25)
      c = static_cast<wchar_t>(c - from + to);
  }
  return out;
}

}  // namespace

std::wstring lowerCase(std::wstring_view text) { return mapped(text, towlower_l, false); }
std::wstring upperCase(std::wstring_view text) { return mapped(text, towupper_l, true); }

}  // namespace kvt1::platform

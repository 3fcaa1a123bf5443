#include "platform/EnglishTimeLocale.h"

#include <clocale>

namespace kvt1::platform {
namespace {
#ifdef _WIN32
constexpr const char* kEnglish = "English";
#else
constexpr const char* kEnglish = "en_US.UTF-8";
#endif
}  // namespace

EnglishTimeLocale::EnglishTimeLocale() {
  if (const char* current = std::setlocale(LC_TIME, nullptr)) previous_ = current;
  // The C locale's month and day names are English too; it stands in when
  // the system has no English locale installed.
  if (!std::setlocale(LC_TIME, kEnglish)) std::setlocale(LC_TIME, "C");
}

EnglishTimeLocale::~EnglishTimeLocale() {
  if (!previous_.empty()) std::setlocale(LC_TIME, previous_.c_str());
}

}  // namespace kvt1::platform

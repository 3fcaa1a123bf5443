#pragma once
// Switches the C library's time formatting to English for the lifetime of the
// object and restores the previous setting afterwards.
#include <string>

namespace kvt1::platform {

class EnglishTimeLocale {
 public:
  EnglishTimeLocale();
  ~EnglishTimeLocale();
  EnglishTimeLocale(const EnglishTimeLocale&) = delete;
  EnglishTimeLocale& operator=(const EnglishTimeLocale&) = delete;

 private:
  std::string previous_;
};

}  // namespace kvt1::platform

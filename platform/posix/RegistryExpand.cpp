#include <cstdlib>

#include "platform/Registry.h"
#include "platform/Unicode.h"

namespace kvt1::platform {

// As on Windows, an unknown "%NAME%" stays as it is, both signs included,
// and a lone "%" stays too.
std::wstring expandEnvironmentStrings(const std::wstring& text) {
  std::wstring out;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::size_t open = text.find(L'%', at);
    const std::size_t close = open == std::wstring::npos ? open : text.find(L'%', open + 1);
    if (close == std::wstring::npos) {
      out.append(text, at, std::wstring::npos);
      break;
    }
    out.append(text, at, open - at);
    const std::string name = toUtf8(text.substr(open + 1, close - open - 1));
    const char* value = name.empty() ? nullptr : std::getenv(name.c_str());
    if (value != nullptr) {
      out += fromUtf8(value);
    } else {
      out.append(text, open, close - open + 1);
    }
    at = close + 1;
  }
  return out;
}

}  // namespace kvt1::platform

#include "support/AnsiText.h"

#include <algorithm>
#include <type_traits>

#include "platform/CodePage.h"
#include "platform/Composition.h"

namespace kvt1 {
namespace {

template <typename Char>
bool isAscii(std::basic_string_view<Char> text) {
  return std::all_of(text.begin(), text.end(), [](Char c) {
    return static_cast<unsigned long>(static_cast<std::make_unsigned_t<Char>>(c)) < 0x80;
  });
}

}  // namespace

std::wstring ansiToWide(std::string_view bytes) {
  if (isAscii(bytes)) return std::wstring(bytes.begin(), bytes.end());
  std::wstring text;
  platform::bytesToWide(platform::ansiCodePage(), bytes, text);
  return text;
}

std::string wideToAnsi(std::wstring_view text) {
  if (isAscii(text)) {
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(), [](wchar_t c) { return static_cast<char>(c); });
    return bytes;
  }
  // Composed first: "e" with a combining accent has a single character in most code pages.
  std::string bytes;
  platform::wideToBytes(platform::ansiCodePage(), platform::composeCharacters(text), bytes);
  return bytes;
}

}  // namespace kvt1

#pragma once
// Conversion between wide text and bytes in the ANSI code page. Text that is
// plain ASCII (the common case, and the same in every ANSI code page) is
// widened or narrowed directly; anything else goes through the code page.
// A character without a narrow form becomes "?"; invalid bytes become U+FFFD.
#include <string>
#include <string_view>

namespace kvt1 {

std::wstring ansiToWide(std::string_view bytes);
std::string wideToAnsi(std::wstring_view text);

}  // namespace kvt1

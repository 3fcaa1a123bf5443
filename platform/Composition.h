#pragma once
// Canonical composition: a base character followed by combining marks
// ("e" and U+0301) becomes the single character that Unicode defines for
// them ("\u00e9"), so that a code page holding that character can write it.
#include <string>
#include <string_view>

namespace kvt1::platform {

// The text composed; unchanged where nothing composes or the text is not valid Unicode.
std::wstring composeCharacters(std::wstring_view text);

}  // namespace kvt1::platform

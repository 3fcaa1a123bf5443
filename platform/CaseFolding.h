#pragma once
// Case-insensitive keys: lower case over the whole of Unicode, the same in
// every locale (no language's own rules). Each character maps to one
// character, so positions found in the lowered text hold in the original.
#include <string>
#include <string_view>

namespace kvt1::platform {

std::wstring lowerCase(std::wstring_view text);

}  // namespace kvt1::platform

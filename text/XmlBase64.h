#pragma once
// Base64 with the standard alphabet, for binary data held in element text.
#include <string>
#include <string_view>

namespace kvt1 {

std::wstring encodeBase64(std::string_view bytes);

// Decodes text, passing over white space. False (bytes holding what was
// decoded so far) on a character outside the alphabet, on data after the
// padding or on a final group of a single character.
bool decodeBase64(std::wstring_view text, std::string& bytes);

}  // namespace kvt1

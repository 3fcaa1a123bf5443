#pragma once
// Base64 (RFC 4648): the standard alphabet, with padding.
#include <string>
#include <string_view>

namespace kvt1::platform {

std::string encodeBase64(std::string_view bytes);

// Decodes text, passing over spaces, tabs and line ends; padding may be left
// out. False (bytes holding what was decoded so far) on a character outside
// the alphabet, on data after the padding, on padding that does not complete
// the last group, or on a last group of a single character.
bool decodeBase64(std::string_view text, std::string& bytes);

}  // namespace kvt1::platform

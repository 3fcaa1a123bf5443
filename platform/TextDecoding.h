#pragma once
// Text read from files and pages, as wide text. A byte order mark decides
// the encoding (FF FE: UTF-16 little-endian, EF BB BF: UTF-8) and is not
// part of the text; without one, bytes that are valid UTF-8 are read as
// UTF-8 and any others in the code page given. Lone surrogates and bytes
// that the encoding does not allow become U+FFFD. NUL characters stay.
#include <string>
#include <string_view>

namespace kvt1::platform {

std::wstring decodeText(std::string_view bytes, unsigned codePageWithoutMark);

}  // namespace kvt1::platform

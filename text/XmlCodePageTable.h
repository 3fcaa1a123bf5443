#pragma once
// Encoding names as XML declarations and HTML pages write them, mapped to
// Windows code page numbers.
#include <string_view>

namespace kvt1 {

// The code page of an encoding name, compared without regard to case; 0 when
// the name is not known. The Unicode names "UTF-8", "UTF-16", "UTF-16LE",
// "UTF-16BE" and "UTF-32" are the caller's to handle first.
unsigned codePageFromEncodingName(std::wstring_view name);

}  // namespace kvt1

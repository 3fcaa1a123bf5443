#pragma once
// Links that come from the network are opened with the shell only when they
// are plain web addresses.
#include <string>

namespace kvt1 {

// True for "http://" or "https://" (any case) followed by a host, with only
// printable ASCII that a URL may hold unescaped: no blanks, quotes, angle
// brackets, backslashes or other characters that could end the address in a
// command line.
bool isWebLink(const std::wstring& link);

}  // namespace kvt1

#pragma once
// Conversion between the module's wide strings and byte strings in a Windows
// code page (1252, 1250, 932, 65001 for UTF-8, ...). Windows uses its code
// page services; elsewhere iconv does the work under the same numbers.
#include <string>
#include <string_view>

namespace kvt1::platform {

constexpr unsigned kCodePageUtf8 = 65001;

// The ANSI code page: the system's on Windows; elsewhere Windows-1252, or the
// number in the environment variable KVT1_ANSI_CODEPAGE.
unsigned ansiCodePage();

// Whether the system can convert to and from this code page.
bool isCodePageSupported(unsigned codePage);

// Both return false when something was lost: bytes that are not valid in the
// code page (they become U+FFFD), or characters it cannot hold (they become
// '?'). The output holds the converted text either way.
bool bytesToWide(unsigned codePage, std::string_view bytes, std::wstring& out);
bool wideToBytes(unsigned codePage, std::wstring_view text, std::string& out);

}  // namespace kvt1::platform

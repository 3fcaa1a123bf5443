#pragma once
// Conversions between the module's wide strings and UTF-8 / UTF-16LE at the
// edges (files, the C library, JSON). wchar_t is UTF-16 on Windows and UTF-32
// elsewhere; both directions handle either. Malformed input becomes U+FFFD.
#include <string>
#include <string_view>

namespace kvt1::platform {

std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view text);

// Appends one Unicode code point: a surrogate pair where wchar_t is UTF-16.
void appendCodePoint(std::wstring& out, char32_t codePoint);

}  // namespace kvt1::platform

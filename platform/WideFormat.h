#pragma once
// printf-style formatting of wide strings with the host's (Windows) dialect on
// every system: in a wide format "%s" and "%c" take wide arguments, "%S" and
// "%C" narrow ones, and "%I64d"/"%I64u"/"%I64x" take 64-bit integers. The
// texts of the host's console, of messages and of item numbers are written in
// that dialect.
#include <cstdarg>
#include <string>

namespace kvt1::platform {

std::wstring formatWide(const wchar_t* format, ...);
std::wstring formatWideV(const wchar_t* format, std::va_list args);

// The format rewritten for the C library's wide printf functions.
std::wstring toStandardWideFormat(const wchar_t* format);

}  // namespace kvt1::platform

#include "platform/WideFormat.h"

#include <cwchar>
#include <vector>

namespace kvt1::platform {
namespace {

bool isFlag(wchar_t c) { return c == L'-' || c == L'+' || c == L' ' || c == L'#' || c == L'0'; }
bool isDigit(wchar_t c) { return c >= L'0' && c <= L'9'; }

// Copies flags, width and precision of one conversion; returns the position after them.
const wchar_t* copyFieldSpec(const wchar_t* p, std::wstring& out) {
  while (isFlag(*p)) out += *p++;
  if (*p == L'*') out += *p++;
  while (isDigit(*p)) out += *p++;
  if (*p == L'.') {
    out += *p++;
    if (*p == L'*') out += *p++;
    while (isDigit(*p)) out += *p++;
  }
  return p;
}

}  // namespace

std::wstring toStandardWideFormat(const wchar_t* format) {
  std::wstring out;
  for (const wchar_t* p = format; *p;) {
    if (*p != L'%') {
      out += *p++;
      continue;
    }
    out += *p++;
    if (*p == L'%') {
      out += *p++;
      continue;
    }
    p = copyFieldSpec(p, out);

    // Size prefix, in the host's dialect.
    enum class Width { Default, Narrow, Wide } charWidth = Width::Default;
    if (p[0] == L'I' && p[1] == L'6' && p[2] == L'4') {
      out += L"ll";
      p += 3;
    } else if (p[0] == L'I' && p[1] == L'3' && p[2] == L'2') {
      p += 3;
    } else if (p[0] == L'I') {
      out += L'z';
      p += 1;
    } else if (p[0] == L'h' && (p[1] == L's' || p[1] == L'c' || p[1] == L'S' || p[1] == L'C')) {
      charWidth = Width::Narrow;
      p += 1;
    } else if ((p[0] == L'l' || p[0] == L'w') && (p[1] == L's' || p[1] == L'c' || p[1] == L'S' || p[1] == L'C')) {
      charWidth = Width::Wide;
      p += 1;
    } else {
      while (*p == L'h' || *p == L'l' || *p == L'L' || *p == L'j' || *p == L'z' || *p == L't' || *p == L'q') {
        out += (*p == L'q') ? L'l' : *p;
        if (*p == L'q') out += L'l';
        ++p;
      }
    }

    const wchar_t conversion = *p;
    if (conversion == 0) break;
    ++p;
    switch (conversion) {
      case L's':
      case L'c':
        out += charWidth == Width::Narrow ? L"" : L"l";
        out += conversion;
        break;
      case L'S':
      case L'C':
        out += charWidth == Width::Wide ? L"l" : L"";
        out += static_cast<wchar_t>(conversion == L'S' ? L's' : L'c');
        break;
      case L'n':
        // Writing through an argument is never wanted; drop the conversion.
        out.pop_back();
        break;
      default:
        out += conversion;
    }
  }
  return out;
}

std::wstring formatWideV(const wchar_t* format, std::va_list args) {
  const std::wstring standard = toStandardWideFormat(format);
  std::vector<wchar_t> buffer(256);
  for (;;) {
    std::va_list copy;
    va_copy(copy, args);
    const int written = std::vswprintf(buffer.data(), buffer.size(), standard.c_str(), copy);
    va_end(copy);
    if (written >= 0 && static_cast<std::size_t>(written) < buffer.size()) {
      return std::wstring(buffer.data(), static_cast<std::size_t>(written));
    }
    // vswprintf reports a short buffer only as failure; grow, within reason.
    if (buffer.size() >= (std::size_t{1} << 20)) return std::wstring();
    buffer.resize(buffer.size() * 4);
  }
}

std::wstring formatWide(const wchar_t* format, ...) {
  std::va_list args;
  va_start(args, format);
  std::wstring text = formatWideV(format, args);
  va_end(args);
  return text;
}

}  // namespace kvt1::platform

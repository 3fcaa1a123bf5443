#pragma once
// Character classes and small scanners shared by the parse and the queries.
#include <cstddef>
#include <string_view>

namespace kvt1 {

inline bool isXmlSpace(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\n' || c == L'\r'; }

// A character that may begin an element name.
inline bool isXmlNameStart(wchar_t c) {
  return (c >= L'a' && c <= L'z') || (c >= L'A' && c <= L'Z') || c == L'_' || c == L':' ||
         static_cast<unsigned long>(c) >= 0x80;
}

// A character that ends a name inside a tag.
inline bool isXmlNameEnd(wchar_t c) {
  return isXmlSpace(c) || c == L'/' || c == L'>' || c == L'<' || c == L'=' || c == L'"' || c == L'\'';
}

// The length of the name at pos (up to the first character that ends a name).
inline std::size_t xmlNameLength(std::wstring_view text, std::size_t pos) {
  std::size_t end = pos;
  while (end < text.size() && !isXmlNameEnd(text[end])) ++end;
  return end - pos;
}

inline std::size_t skipXmlSpace(std::wstring_view text, std::size_t pos) {
  while (pos < text.size() && isXmlSpace(text[pos])) ++pos;
  return pos;
}

}  // namespace kvt1

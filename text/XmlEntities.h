#pragma once
// Entity and character references: decoding of element data and attribute
// values, escaping for output, and CDATA sections for output.
#include <string>
#include <string_view>

namespace kvt1 {

// Appends raw with "&name;", "&#n;" and "&#xh;" decoded. Names are the five of
// XML and the HTML 4 set. A reference that is unknown, malformed or names no
// valid character is kept as written.
void appendXmlDecoded(std::wstring& out, std::wstring_view raw);

// "&", "<", ">", '"' and "'" as references.
std::wstring escapeXmlText(std::wstring_view text);

// A whole CDATA section holding text; each "]]>" inside is split across two
// sections so that the output stays valid.
std::wstring makeXmlCData(std::wstring_view text);

// The code point of an HTML 4 named character reference; 0 if unknown.
char32_t htmlEntityCodePoint(std::wstring_view name);

}  // namespace kvt1

#pragma once
// Byte-level pieces of reading and writing document files: byte order marks,
// the encoding an XML declaration names, and the Unicode forms that are
// converted here (through platform/Unicode.h) rather than through a code page.
#include <cstddef>
#include <string>
#include <string_view>

namespace kvt1 {

enum class XmlUnicodeForm { kNone, kUtf8, kUtf16LE, kUtf16BE, kUtf32LE, kUtf32BE };

// The form a byte order mark at the start of bytes selects, and the mark's
// length (0 and kNone without one).
XmlUnicodeForm byteOrderMark(std::string_view bytes, std::size_t& markLength);

// UTF-16 or UTF-32 without a mark, told by how "<" and "?" of a leading
// declaration are laid out; kNone otherwise.
XmlUnicodeForm sniffUnicodeForm(std::string_view bytes);

// The form of the names "UTF-8", "UTF-16" and "UTF-16LE", "UTF-16BE",
// "UTF-32" and "UTF-32LE", "UTF-32BE" in any case; kNone for others.
XmlUnicodeForm unicodeFormFromName(std::wstring_view name);
const wchar_t* unicodeFormName(XmlUnicodeForm form);

// The "encoding" of an XML declaration at the start of text; empty if none.
std::wstring xmlDeclaredEncoding(std::wstring_view text);

// Bytes taken one to one as characters (enough to read ASCII markup).
std::wstring widenBytes(std::string_view bytes);

// The number of bytes at the end that begin a UTF-8 sequence cut short.
std::size_t cutUtf8Tail(std::string_view bytes);

// Converts UTF-16 or UTF-32 bytes (a whole number of units). False when a
// unit is no valid character; it becomes U+FFFD.
bool decodeUnicodeForm(XmlUnicodeForm form, std::string_view bytes, std::wstring& text);
// Converts text to UTF-16 or UTF-32 bytes, with no byte order mark.
void encodeUnicodeForm(XmlUnicodeForm form, std::wstring_view text, std::string& bytes);

}  // namespace kvt1

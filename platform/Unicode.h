#pragma once
// Conversions between the module's wide strings and UTF-8 / UTF-16 at the
// edges (files, the registry, the C library, JSON). wchar_t is UTF-16 on
// Windows and UTF-32 elsewhere; every function handles either. Malformed
// input, a lone surrogate included, becomes U+FFFD.
#include <string>
#include <string_view>

namespace kvt1::platform {

constexpr char32_t kReplacementCharacter = 0xFFFD;

constexpr bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
constexpr bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }
constexpr char32_t joinSurrogates(char32_t high, char32_t low) {
  return 0x10000 + ((high - 0xD800) << 10) + (low - 0xDC00);
}

std::string toUtf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view text);

// Whether bytes are well-formed UTF-8: no overlong form, no encoded surrogate,
// nothing beyond U+10FFFF, no sequence cut short.
bool isValidUtf8(std::string_view bytes);

enum class ByteOrder { kLittleEndian, kBigEndian };

// UTF-16 bytes with no byte order mark; a last odd byte is left out.
std::wstring fromUtf16(std::string_view bytes, ByteOrder order = ByteOrder::kLittleEndian);
// The same, and false when a lone surrogate was replaced.
bool fromUtf16(std::string_view bytes, ByteOrder order, std::wstring& text);
std::string toUtf16(std::wstring_view text, ByteOrder order = ByteOrder::kLittleEndian);

// The code point at text[i], a surrogate pair where wchar_t is UTF-16;
// advances i past it.
char32_t nextCodePoint(std::wstring_view text, std::size_t& i);

// Appends one Unicode code point: a surrogate pair where wchar_t is UTF-16.
void appendCodePoint(std::wstring& out, char32_t codePoint);

}  // namespace kvt1::platform

#include "platform/Unicode.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace kvt1::platform {
namespace {

TEST(Unicode, RoundTripsEveryPlane) {
  const std::wstring text = L"a\u00e9\u20ac\u4e2d" + fromUtf8("\xF0\x9F\x9B\xAB");  // 1- to 4-byte forms
  EXPECT_EQ(toUtf8(text), "a\xC3\xA9\xE2\x82\xAC\xE4\xB8\xAD\xF0\x9F\x9B\xAB");
  EXPECT_EQ(fromUtf8(toUtf8(text)), text);
  // Outside the basic plane, UTF-16 systems hold a surrogate pair.
  EXPECT_EQ(text.size(), sizeof(wchar_t) == 2 ? 6u : 5u);
}

TEST(Unicode, MalformedInputBecomesReplacementCharacters) {
  EXPECT_EQ(fromUtf8("a\xFF"
                     "b"),
            L"a\uFFFD"
            L"b");
  EXPECT_EQ(fromUtf8("\xE2\x82"), L"\uFFFD");                                        // truncated sequence
  EXPECT_EQ(fromUtf8("\xC0\xAF"), L"\uFFFD");                                        // overlong form of "/"
  EXPECT_EQ(fromUtf8("\xED\xA0\x80"), L"\uFFFD");                                    // encoded surrogate
  EXPECT_EQ(toUtf8(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xEF\xBF\xBD");  // lone surrogate
}

// The copies these functions replaced disagreed on lone surrogates (kept by
// some, replaced by others) and on byte order.
TEST(Unicode, Utf16BytesDecodeAloneSurrogateToTheReplacementCharacter) {
  const std::wstring clef = fromUtf8("\xF0\x9D\x84\x9E");
  const struct {
    std::string little;  // UTF-16LE; the big-endian cases swap each pair of bytes
    std::wstring text;
    bool lossless;
  } cases[] = {
      {"", L"", true},
      {std::string("a\0\xE9\0", 4), L"a\u00e9", true},
      {"\x34\xD8\x1E\xDD", clef, true},
      {std::string("\x34\xD8"
                   "a\0",
                   4),
       L"\uFFFD"
       L"a",
       false},
      {std::string("\x1E\xDD"
                   "a\0",
                   4),
       L"\uFFFD"
       L"a",
       false},
      {"\x34\xD8", L"\uFFFD", false},
      {"\x1E\xDD\x34\xD8", L"\uFFFD\uFFFD", false},
      {std::string("a\0b", 3), L"a", true},
  };
  for (const auto& c : cases) {
    std::string big = c.little;
    for (std::size_t i = 0; i + 1 < big.size(); i += 2) std::swap(big[i], big[i + 1]);
    EXPECT_EQ(fromUtf16(c.little), c.text) << c.little.size();
    std::wstring text;
    EXPECT_EQ(fromUtf16(big, ByteOrder::kBigEndian, text), c.lossless) << c.little.size();
    EXPECT_EQ(text, c.text) << c.little.size();
  }
}

TEST(Unicode, WideTextEncodesToUtf16AndBack) {
  const std::wstring clef = fromUtf8("\xF0\x9D\x84\x9E");
  const struct {
    std::wstring text;
    std::string little;
  } cases[] = {
      {L"", ""},
      {L"a\u20ac", std::string("a\0\xAC\x20", 4)},
      {clef, "\x34\xD8\x1E\xDD"},
      {std::wstring(1, static_cast<wchar_t>(0xDD1E)), "\xFD\xFF"},
      {std::wstring(1, static_cast<wchar_t>(0xD834)) + L"a", std::string("\xFD\xFF"
                                                                         "a\0",
                                                                         4)},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(toUtf16(c.text), c.little);
    std::string big = c.little;
    for (std::size_t i = 0; i + 1 < big.size(); i += 2) std::swap(big[i], big[i + 1]);
    EXPECT_EQ(toUtf16(c.text, ByteOrder::kBigEndian), big);
    EXPECT_EQ(fromUtf16(toUtf16(c.text)), fromUtf8(toUtf8(c.text)));
  }
}

TEST(Unicode, Utf8ValidityAgreesWithDecoding) {
  const struct {
    const char* bytes;
    bool valid;
  } cases[] = {
      {"", true},
      {"plain", true},
      {"\xC3\xA9\xE2\x82\xAC\xF0\x9F\x9B\xAB", true},
      {"\xE2\x82", false},          // cut short
      {"\xC0\xAF", false},          // overlong
      {"\xED\xA0\x80", false},      // encoded surrogate
      {"\xF4\x90\x80\x80", false},  // beyond U+10FFFF
      {"\xFF", false},
      {"\x80", false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(isValidUtf8(c.bytes), c.valid) << c.bytes;
    EXPECT_EQ(fromUtf8(c.bytes).find(L'\uFFFD') == std::wstring::npos, c.valid) << c.bytes;
  }
}

TEST(Unicode, NextCodePointJoinsPairsAndReplacesLoneSurrogates) {
  const std::wstring clef = fromUtf8("\xF0\x9D\x84\x9E");
  const std::wstring text = L"a" + clef + std::wstring(1, static_cast<wchar_t>(0xDC00)) + L"b";
  std::vector<char32_t> points;
  for (std::size_t i = 0; i < text.size();) points.push_back(nextCodePoint(text, i));
  EXPECT_EQ(points, (std::vector<char32_t>{U'a', 0x1D11E, 0xFFFD, U'b'}));
}

}  // namespace
}  // namespace kvt1::platform

#include "platform/Unicode.h"

#include <gtest/gtest.h>

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
  EXPECT_EQ(fromUtf8("a\xFF" "b"), L"a\uFFFD" L"b");
  EXPECT_EQ(fromUtf8("\xE2\x82"), L"\uFFFD");             // truncated sequence
  EXPECT_EQ(fromUtf8("\xC0\xAF"), L"\uFFFD");             // overlong form of "/"
  EXPECT_EQ(fromUtf8("\xED\xA0\x80"), L"\uFFFD");         // encoded surrogate
  EXPECT_EQ(toUtf8(std::wstring(1, static_cast<wchar_t>(0xD800))), "\xEF\xBF\xBD");  // lone surrogate
}

}  // namespace
}  // namespace kvt1::platform

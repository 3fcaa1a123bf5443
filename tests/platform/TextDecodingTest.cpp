// Text files as wide text: marks, UTF-8 found without one, the code page
// otherwise; and lower case over all of Unicode.
#include <gtest/gtest.h>

#include "platform/CaseFolding.h"
#include "platform/TextDecoding.h"

namespace kvt1::platform {
namespace {

TEST(TextDecoding, TheMarkOrTheBytesDecide) {
  struct Case {
    const char* what;
    std::string bytes;
    std::wstring text;
  };
  const Case cases[] = {
      {"UTF-8 mark", "\xEF\xBB\xBF\xC3\x84r", L"\u00c4r"},
      {"UTF-16 mark", std::string("\xFF\xFE\xC4\x00r\x00", 6), L"\u00c4r"},
      {"UTF-16 pair", std::string("\xFF\xFE\x3D\xD8\x00\xDE", 6), L"\U0001F600"},
      {"UTF-16 lone surrogate", std::string("\xFF\xFE\x3D\xD8r\x00", 6), L"\uFFFDr"},
      {"valid UTF-8", "\xC3\x84r", L"\u00c4r"},
      {"code page 1252", "\xC4r", L"\u00c4r"},
      {"NUL kept", std::string("a\0b", 3), std::wstring(L"a\0b", 3)},
      {"empty", "", L""},
  };
  for (const Case& c : cases) EXPECT_EQ(decodeText(c.bytes, 1252), c.text) << c.what;
}

TEST(CaseFolding, LowersEveryAlphabetAndKeepsPositions) {
  EXPECT_EQ(lowerCase(L"\u00c4rgerDLG \u0416\u0418\u0412 \u03a3\u039f\u03a6 \u00c5\u00d8"),
            L"\u00e4rgerdlg \u0436\u0438\u0432 \u03c3\u03bf\u03c6 \u00e5\u00f8");
  EXPECT_EQ(lowerCase(L"KVTOOLS;C:\\Program"), L"kvtools;c:\\program");
  EXPECT_EQ(lowerCase(L""), L"");
}

}  // namespace
}  // namespace kvt1::platform

// Text files as wide text: marks, UTF-8 found without one, the code page
// otherwise; and lower case over all of Unicode.
#include <gtest/gtest.h>

#include "platform/CaseFolding.h"
#include "platform/TextDecoding.h"
#include "platform/Unicode.h"

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

// The hand-written copies these replace folded A-Z only, or Latin-1 too, or
// what the C library's current locale knew: they disagreed beyond ASCII.
TEST(CaseFolding, NamesCompareAlikeInEveryScript) {
  const struct {
    const wchar_t* a;
    const wchar_t* b;
    bool equal;
    bool less;  // a before b
  } cases[] = {
      {L"Software", L"SOFTWARE", true, false},
      {L"\u00c4rger", L"\u00e4RGER", true, false},
      {L"\u0416\u0438\u0432", L"\u0436\u0418\u0412", true, false},
      {L"\u03a3\u03bf\u03c6", L"\u03c3\u039f\u03a6", true, false},
      {L"Halvorn", L"Halvorns", false, true},
      {L"A_B", L"AB", false, false},  // upper case decides: "_" sorts after "B" as on Windows
      {L"abc", L"ABD", false, true},
      {L"", L"", true, false},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(equalsIgnoringCase(c.a, c.b), c.equal) << c.a << L" " << c.b;
    EXPECT_EQ(lessIgnoringCase(c.a, c.b), c.less) << c.a << L" " << c.b;
    EXPECT_FALSE(lessIgnoringCase(c.a, c.b) && lessIgnoringCase(c.b, c.a));
    EXPECT_EQ(upperCase(c.a).size(), std::wstring_view(c.a).size());
  }
  EXPECT_TRUE(startsWithIgnoringCase(L"HTTPS://example", L"https://"));
  EXPECT_TRUE(startsWithIgnoringCase(L"\u00c4rger", L"\u00e4"));
  EXPECT_FALSE(startsWithIgnoringCase(L"http", L"https"));
}

TEST(CaseFolding, AsciiFoldingLeavesOtherLettersAlone) {
  const struct {
    const char* text;
    const char* lowered;
  } cases[] = {
      {"DIV", "div"},
      {"Content-Type", "content-type"},
      {"\xC3\x84"
       "BC",
       "\xC3\x84"
       "bc"},            // UTF-8 bytes pass as they are
      {"@[`{", "@[`{"},  // the neighbours of A-Z and a-z
      {"", ""},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(asciiLowerCase(std::string_view(c.text)), c.lowered);
    EXPECT_EQ(asciiLowerCase(fromUtf8(c.text)), fromUtf8(c.lowered));
    EXPECT_TRUE(asciiEqualsIgnoringCase(std::string_view(c.text), std::string_view(c.lowered)));
  }
  EXPECT_FALSE(asciiEqualsIgnoringCase(std::wstring_view(L"\u00c4"), std::wstring_view(L"\u00e4")));
  EXPECT_FALSE(asciiEqualsIgnoringCase(std::string_view("UTF-8"), std::string_view("UTF-16")));
  EXPECT_FALSE(asciiEqualsIgnoringCase(std::string_view("@"), std::string_view("`")));
}

}  // namespace
}  // namespace kvt1::platform

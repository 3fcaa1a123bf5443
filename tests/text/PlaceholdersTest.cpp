#include <gtest/gtest.h>

#include "text/Placeholders.h"

namespace {

using namespace NTxtRes;

TEST(PlaceholdersTest, NumberedPlaceholdersAreAPlainReplaceAll) {
  std::wstring text = L"%1 of %10";
  EXPECT_TRUE(ReplaceNumbered(text, 1, L"x"));
  EXPECT_EQ(text, L"x of x0");

  text = L"%2 and %1, again %2";
  EXPECT_TRUE(ReplaceNumbered(text, 2, L"%1"));
  EXPECT_EQ(text, L"%1 and %1, again %1");
  EXPECT_FALSE(ReplaceNumbered(text, 3, L"y"));
  EXPECT_EQ(text, L"%1 and %1, again %1");
}

TEST(PlaceholdersTest, PositionalPlaceholdersFillTheFirstOccurrenceOnly) {
  std::wstring text = L"%s and %s, %d/%d, %u";
  EXPECT_TRUE(ReplaceString(text, L"a"));
  EXPECT_TRUE(ReplaceInt(text, -12));
  EXPECT_TRUE(ReplaceUnsigned(text, 4000000000u));
  EXPECT_EQ(text, L"a and %s, -12/%d, 4000000000");

  std::wstring none = L"no placeholder";
  EXPECT_FALSE(ReplaceString(none, L"x"));
  EXPECT_FALSE(ReplaceInt(none, 1));
  EXPECT_FALSE(ReplaceUnsigned(none, 1));
  EXPECT_EQ(none, L"no placeholder");
}

TEST(PlaceholdersTest, ReplacingWithNothingReportsAnEmptyResult) {
  std::wstring text = L"%s";
  EXPECT_FALSE(ReplaceString(text, L""));
  EXPECT_EQ(text, L"");
}

TEST(PlaceholdersTest, FloatsTakeTheGivenPrecisionOrTheTextsOwnFormat) {
  struct Case {
    const wchar_t* text;
    double value;
    int precision;
    const wchar_t* expected;
  };
  const Case cases[] = {
      {L"Slope %.2f", 0.12345, -1, L"Slope 0.12"},
      {L"Slope %f", 0.5, 3, L"Slope 0.500"},
      {L"100% of %f and %f", 2.25, -1, L"100% of 2.250000 and %f"},
      {L"Slope %.2lf", 0.12345, -1, L"Slope 0.12"},
      {L"Slope %.3Lf m", 1.5, -1, L"Slope 1.500 m"},
      {L"[%-6.1f]", 2.0, -1, L"[2.0   ]"},
      {L"[%+08.2f]", 3.14159, -1, L"[+0003.14]"},
      {L"%g", 1500.0, -1, L"1500"},
      {L"%G", 0.0001, -1, L"0.0001"},
      {L"%d of %.1f", 7.3, -1, L"%d of 7.3"},
  };
  for (const Case& c : cases) {
    std::wstring text = c.text;
    EXPECT_TRUE(ReplaceFloat(text, c.value, c.precision)) << c.text;
    EXPECT_EQ(text, c.expected) << c.text;
  }
}

TEST(PlaceholdersTest, AFloatFormatTheTextCannotNameLeavesItUnchanged) {
  struct Case {
    std::wstring text;
    int precision;
  };
  const Case cases[] = {
      {L"Slope %.2f", 2},  // a given precision needs a bare "%f"
      {L"50% off", -1},
      {L"ends with %", -1},
      {L"%.2 without an f", -1},
      {L"%.x2f", -1},
      {L"%.2d%", -1},
      {L"%*.2f", -1},                    // a width taken from the arguments
      {L"%.2llf", -1},                   // one length letter at most
      {L"%1000000f", -1},                // a width that would fill memory
      {L"%.1000000f", -1},               // a precision likewise
      {std::wstring(L"%.2\0f", 5), -1},  // a NUL inside the conversion
  };
  for (const Case& c : cases) {
    std::wstring text = c.text;
    EXPECT_FALSE(ReplaceFloat(text, 1.5, c.precision)) << c.text.c_str();
    EXPECT_EQ(text, c.text);
  }
}

}  // namespace

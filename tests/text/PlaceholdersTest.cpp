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
  std::wstring text = L"Slope %.2f";
  EXPECT_TRUE(ReplaceFloat(text, 0.12345, -1));
  EXPECT_EQ(text, L"Slope 0.12");

  text = L"Slope %f";
  EXPECT_TRUE(ReplaceFloat(text, 0.5, 3));
  EXPECT_EQ(text, L"Slope 0.500");

  text = L"100% of %f and %f";
  EXPECT_TRUE(ReplaceFloat(text, 2.25, -1));
  EXPECT_EQ(text, L"100% of 2.250000 and %f");

  text = L"Slope %.2f";
  EXPECT_FALSE(ReplaceFloat(text, 1.0, 2));
  EXPECT_EQ(text, L"Slope %.2f");
}

TEST(PlaceholdersTest, AFloatFormatTheTextCannotNameLeavesItUnchanged) {
  for (const wchar_t* original : {L"50% off", L"ends with %", L"%.2 without an f", L"%.x2f", L"%.2d%"}) {
    std::wstring text = original;
    EXPECT_FALSE(ReplaceFloat(text, 1.5, -1)) << text;
    EXPECT_EQ(text, original);
  }
}

}  // namespace

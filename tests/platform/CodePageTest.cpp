#include "platform/CodePage.h"

#include <gtest/gtest.h>

namespace kvt1::platform {
namespace {

TEST(CodePage, ConvertsWindows1252BothWays) {
  std::wstring wide;
  EXPECT_TRUE(bytesToWide(1252, "caf\xE9 \x80", wide));
  EXPECT_EQ(wide, L"caf\u00e9 \u20ac");
  std::string bytes;
  EXPECT_TRUE(wideToBytes(1252, wide, bytes));
  EXPECT_EQ(bytes, "caf\xE9 \x80");
}

TEST(CodePage, ReportsWhatWasLost) {
  std::wstring wide;
  EXPECT_FALSE(bytesToWide(kCodePageUtf8,
                           "a\xFF"
                           "b",
                           wide));
  EXPECT_EQ(wide,
            L"a\uFFFD"
            L"b");

  std::string bytes;
  EXPECT_FALSE(wideToBytes(1252, L"x\u4e2dy\u0416z", bytes));
  EXPECT_EQ(bytes, "x?y?z");
}

TEST(CodePage, MultiByteCodePages) {
  std::wstring wide;
  EXPECT_TRUE(bytesToWide(932, "\x93\xFA\x96\x7B", wide));  // "Japan" in Shift-JIS
  EXPECT_EQ(wide, L"\u65e5\u672c");
  std::string bytes;
  EXPECT_TRUE(wideToBytes(kCodePageUtf8, L"\u65e5", bytes));
  EXPECT_EQ(bytes, "\xE6\x97\xA5");
}

TEST(CodePage, KnowsWhichCodePagesExist) {
  EXPECT_TRUE(isCodePageSupported(1250));
  EXPECT_TRUE(isCodePageSupported(ansiCodePage()));
  EXPECT_FALSE(isCodePageSupported(4242));
}

}  // namespace
}  // namespace kvt1::platform

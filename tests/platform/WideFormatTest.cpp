#include "platform/WideFormat.h"

#include <gtest/gtest.h>

#include <cstdint>

namespace kvt1::platform {
namespace {

TEST(WideFormat, TakesTheHostsDialectOnEverySystem) {
  EXPECT_EQ(formatWide(L"HelpMapping; Dialog:%s  Id:%d\n", L"Main", 42), L"HelpMapping; Dialog:Main  Id:42\n");
  EXPECT_EQ(formatWide(L"%S|%hs|%ls|%ws", "narrow", "short", L"long", L"wide"), L"narrow|short|long|wide");
  EXPECT_EQ(formatWide(L"%c%C%lc", L'w', 'n', L'l'), L"wnl");
  EXPECT_EQ(formatWide(L"[FPID='%I64u']", std::uint64_t{18446744073709551615ull}), L"[FPID='18446744073709551615']");
  EXPECT_EQ(formatWide(L"%I64d %I64x %I32d", std::int64_t{-5}, std::uint64_t{255}, 7), L"-5 ff 7");
  EXPECT_EQ(formatWide(L"%-6s|%5.1f|%%|%04x", L"ab", 2.25, 0x1b), L"ab    |  2.2|%|001b");
}

TEST(WideFormat, GrowsBeyondItsFirstBuffer) {
  const std::wstring longText(5000, L'x');
  EXPECT_EQ(formatWide(L"<%s>", longText.c_str()), L"<" + longText + L">");
}

TEST(WideFormat, DropsWritesThroughArguments) {
  EXPECT_EQ(toStandardWideFormat(L"a%nb"), L"ab");
  EXPECT_EQ(toStandardWideFormat(L"%s %S %I64u"), L"%ls %s %llu");
}

}  // namespace
}  // namespace kvt1::platform

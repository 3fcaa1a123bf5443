#include "tools/kvt1-host/core/ResultBuffers.h"

#include <gtest/gtest.h>

#include "host/arx/ArxFunctions.h"

namespace kvt1::emu {
namespace {

TEST(ResultBuffers, BuildsListsFromTypedPairs) {
  resbuf* list = acutBuildList(RTSHORT, 0, RTNONE);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->restype, RTSHORT);
  EXPECT_EQ(list->resval.rint, 0);
  EXPECT_EQ(list->rbnext, nullptr);
  acutRelRb(list);

  const ads_point point = {1.0, 2.0, 3.0};
  list = acutBuildList(RTSTR, L"a", RTLB, RTLONG, 70000, RTREAL, 0.5, RTLE, RT3DPOINT, point, RTT, 0);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(toLispText(fromResultList(list)), L"(\"a\" (70000 0.5) (1.0 2.0 3.0) T)");
  acutRelRb(list);
}

TEST(ResultBuffers, RefusesUnknownTypesAndUnbalancedLists) {
  EXPECT_EQ(acutBuildList(RTSHORT, 1, 4242, 0), nullptr);
  EXPECT_EQ(acutBuildList(RTLB, RTSHORT, 1, RTNONE), nullptr);
  EXPECT_EQ(acutBuildList(RTLE, RTNONE), nullptr);
}

TEST(ResultBuffers, ArgumentsRoundTrip) {
  const LispValue args =
      LispValue::list({LispValue::fromInteger(5), LispValue::fromInteger(-40000), LispValue::fromString(L"s"),
                       LispValue::nil(), LispValue::t(), LispValue::list({LispValue::fromReal(1.5)})});
  resbuf* list = toArgumentList(args.items);
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->restype, RTSHORT);
  EXPECT_EQ(list->rbnext->restype, RTLONG);  // beyond 16 bits
  EXPECT_EQ(list->rbnext->rbnext->restype, RTSTR);
  EXPECT_EQ(list->rbnext->rbnext->rbnext->restype, RTNIL);
  // nil inside a list reads back as nil; the rest as written.
  EXPECT_EQ(toLispText(fromResultList(list)), L"(5 -40000 \"s\" nil T (1.5))");
  releaseList(list);
}

}  // namespace
}  // namespace kvt1::emu

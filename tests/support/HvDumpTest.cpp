// The diagnostic dumps of the elements.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "support/HvElement/CHvArc.h"
#include "support/HvElement/CHvLine.h"
#include "support/HvElement/CHvPolyline.h"

namespace kvt1 {
namespace {

TEST(HvDump, ElementsFollowEachOtherInOneText) {
  std::wstring text;
  CHvArc({1, -2.5}, 3, 0, 1.5).Dump(text);
  CHvLine({0, 0}, {0.1, 1e300}).Dump(text);
  CHvLine({-0.0, 2}, {3, 4}).Dump(text);
  EXPECT_EQ(text,
            L"Arc:ctr (1, -2.5) rad 3 stAng 0 swp 1.5\n"
            L"Line:  (0, 0) (0.1, 1e+300)Line:  (-0, 2) (3, 4)");
}

TEST(HvDump, PolylineListsItsSegments) {
  CHvPolyline polyline;
  polyline.AddSegment(CHvLine({0, 0}, {1, 0}));
  polyline.AddSegment(CHvArc({1, 1}, 1, -1.5, 6.283185307179586));
  polyline.AddSegment(CHvLine({1, 2}, {0, 2}));
  std::wstring text;
  polyline.Dump(text);
  EXPECT_EQ(text,
            L"Polyline: \n"
            L"  line: start (0, 0) end (1, 0)\n"
            L"   arc: center (1, 1)\n"
            L" rad 1 stAng -1.5 endAng 4.783185307179586 swp 6.283185307179586"
            L"  line: start (1, 2) end (0, 2)\n");
  text.clear();
  CHvPolyline().Dump(text);
  EXPECT_EQ(text, L"Polyline: \n");
}

TEST(HvDump, ValuesThatAreNotFiniteReadTheSameOnEverySystem) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const double inf = std::numeric_limits<double>::infinity();
  std::wstring text;
  CHvArc({nan, -nan}, inf, -inf, nan).Dump(text);
  CHvLine({inf, 0}, {0, -inf}).Dump(text);
  EXPECT_EQ(text, L"Arc:ctr (nan, nan) rad inf stAng -inf swp nan\nLine:  (inf, 0) (0, -inf)");
}

}  // namespace
}  // namespace kvt1

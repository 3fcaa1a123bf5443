// Lines and arcs as curves: end angles, evaluation, length, bounds and transforms.
#include <gtest/gtest.h>

#include <cmath>

#include "support/HvElement/CHvArc.h"
#include "support/HvElement/CHvLine.h"
#include "support/HvElement/CHvXform.h"

namespace kvt1 {
namespace {

constexpr double kPi = kHvTwoPi / 2;

void expectPoint(const CHvPoint2d& actual, double x, double y) {
  EXPECT_NEAR(actual.x, x, 1e-12);
  EXPECT_NEAR(actual.y, y, 1e-12);
}

void expectBox(const CHvBox2d& box, double minX, double minY, double maxX, double maxY) {
  expectPoint(box.min, minX, minY);
  expectPoint(box.max, maxX, maxY);
}

CHvXform rotationAboutZ(double angle, double dx, double dy) {
  CHvXform xform;
  EXPECT_TRUE(xform.SetAxes({std::cos(angle), std::sin(angle), 0}, {-std::sin(angle), std::cos(angle), 0}, {0, 0, 1}));
  xform.SetTranslation({dx, dy, 0});
  return xform;
}

TEST(HvArcEndAngle, KeepsAFullTurnAndTheSignOfTheRemainder) {
  EXPECT_EQ(CHvArc({0, 0}, 1, 0, kHvTwoPi).GetEndAngle(), kHvTwoPi);
  EXPECT_EQ(CHvArc({0, 0}, 1, 1e-7, kHvTwoPi).GetEndAngle(), 1e-7 + kHvTwoPi);  // within 1e-6: as it is
  EXPECT_NEAR(CHvArc({0, 0}, 1, 1e-5, kHvTwoPi).GetEndAngle(), 1e-5, 1e-12);    // beyond: reduced
  EXPECT_DOUBLE_EQ(CHvArc({0, 0}, 1, kPi, 3 * kPi / 2).GetEndAngle(), kPi / 2);
  EXPECT_DOUBLE_EQ(CHvArc({0, 0}, 1, 0, -kPi / 2).GetEndAngle(), -kPi / 2);
  EXPECT_DOUBLE_EQ(CHvArc({0, 0}, 1, -kPi, -3 * kPi / 2).GetEndAngle(), -kPi / 2);
  EXPECT_DOUBLE_EQ(CHvArc({0, 0}, 1, kPi, 3 * kPi).GetEndAngle(), 0);  // only 2π itself is kept
  EXPECT_DOUBLE_EQ(CHvArc({0, 0}, 1, -kPi, -kPi).GetEndAngle(), -0.0);
}

TEST(HvCurve, LineEvaluatesAlongItsLength) {
  const CHvLine line({1, 2}, {4, 6});
  EXPECT_DOUBLE_EQ(line.GetLength(), 5);
  expectPoint(line.GetStartPoint(), 1, 2);
  expectPoint(line.GetEndPoint(), 4, 6);
  expectPoint(line.GetPointAt(0.5), 2.5, 4);
  expectPoint(line.GetPointAt(-1), -2, -2);
  expectBox(CHvLine({4, -1}, {1, 6}).GetBoundingBox(), 1, -1, 4, 6);
}

TEST(HvCurve, ArcEvaluatesAroundItsCentreInTheSweepDirection) {
  const CHvArc ccw({10, 20}, 2, 0, kPi / 2);
  EXPECT_DOUBLE_EQ(ccw.GetLength(), kPi);
  expectPoint(ccw.GetStartPoint(), 12, 20);
  expectPoint(ccw.GetEndPoint(), 10, 22);
  expectPoint(ccw.GetPointAt(0.5), 10 + std::sqrt(2.0), 20 + std::sqrt(2.0));
  const CHvArc cw({0, 0}, 2, kPi / 2, -kPi);
  EXPECT_DOUBLE_EQ(cw.GetLength(), 2 * kPi);
  expectPoint(cw.GetPointAt(0.5), 2, 0);
  expectPoint(cw.GetEndPoint(), 0, -2);
}

TEST(HvCurve, ArcBoundsIncludeTheExtremesItPasses) {
  // A quarter inside one quadrant: only its ends count.
  expectBox(CHvArc({0, 0}, 1, kPi / 6, kPi / 6).GetBoundingBox(), std::cos(kPi / 3), 0.5, std::cos(kPi / 6),
            std::sin(kPi / 3));
  // Crossing angle 0 clockwise from π/4 to -π/4, and the same from 7π/4 onwards.
  const double c = std::sqrt(0.5);
  expectBox(CHvArc({0, 0}, 1, kPi / 4, -kPi / 2).GetBoundingBox(), c, -c, 1, c);
  expectBox(CHvArc({0, 0}, 1, 7 * kPi / 4, kPi / 2).GetBoundingBox(), c, -c, 1, c);
  // Starting on an extreme, and sweeping more than a turn.
  expectBox(CHvArc({5, 5}, 2, kPi / 2, kPi / 2).GetBoundingBox(), 3, 5, 5, 7);
  expectBox(CHvArc({5, 5}, 2, 1, -3 * kPi).GetBoundingBox(), 3, 3, 7, 7);
}

TEST(HvCurve, RigidTransformsMoveArcsAndLines) {
  const CHvXform turn = rotationAboutZ(kPi / 2, 10, 0);
  CHvArc arc({1, 0}, 1, 0, kPi / 2);
  ASSERT_TRUE(arc.TransformBy(turn));
  expectPoint(arc.GetCenter(), 10, 1);
  EXPECT_DOUBLE_EQ(arc.GetStartAngle(), kPi / 2);
  EXPECT_DOUBLE_EQ(arc.GetSweepAngle(), kPi / 2);
  expectPoint(arc.GetEndPoint(), 9, 1);
  CHvLine line({0, 0}, {2, 0});
  ASSERT_TRUE(line.TransformBy(turn));
  expectPoint(line.GetEndPoint(), 10, 2);

  // A mirror in the x axis reverses the sweep; the arc keeps its points.
  CHvXform mirror;
  ASSERT_TRUE(mirror.SetAxes({1, 0, 0}, {0, -1, 0}, {0, 0, -1}));
  CHvArc arc2({0, 3}, 1, 0, kPi / 2);
  ASSERT_TRUE(arc2.TransformBy(mirror));
  expectPoint(arc2.GetStartPoint(), 1, -3);
  expectPoint(arc2.GetPointAt(0.5), std::sqrt(0.5), -3 - std::sqrt(0.5));
  expectPoint(arc2.GetEndPoint(), 0, -4);
  EXPECT_DOUBLE_EQ(arc2.GetSweepAngle(), -kPi / 2);
}

TEST(HvCurve, TransformsThatBreakTheCurveAreRefused) {
  CHvXform scale;
  scale(0, 0) = 2;
  CHvArc arc({1, 1}, 1, 0, 1);
  EXPECT_FALSE(arc.TransformBy(scale));
  expectPoint(arc.GetCenter(), 1, 1);
  CHvLine line({1, 1}, {2, 1});
  EXPECT_TRUE(line.TransformBy(scale));  // a scaled line is still a line
  expectPoint(line.GetEndPoint(), 4, 1);

  CHvXform tilt;  // a turn about the x axis takes the plane out of itself
  ASSERT_TRUE(tilt.SetAxes({1, 0, 0}, {0, 0, 1}, {0, -1, 0}));
  EXPECT_FALSE(line.TransformBy(tilt));
  EXPECT_FALSE(arc.TransformBy(tilt));
  expectPoint(line.GetStartPoint(), 2, 1);
  CHvXform lift;
  lift.SetTranslation({0, 0, 1});
  EXPECT_FALSE(line.TransformBy(lift));
}

}  // namespace
}  // namespace kvt1

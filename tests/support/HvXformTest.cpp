// Transforms: setting orthonormal axes with its six checks, and the rigid inverse.
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

#include "support/HvElement/CHvXform.h"
#include "support/HvElement/HvAssert.h"

namespace kvt1 {
namespace {

struct Report {
  std::wstring condition;
  std::wstring source;
  int line;
};
std::vector<Report> g_reports;

void capture(const wchar_t* condition, const wchar_t* source, int line) {
  g_reports.push_back({condition, source, line});
}

class HvXformAxes : public testing::Test {
 protected:
  void SetUp() override {
    g_reports.clear();
    m_previous = SetHvAssertionHandler(capture);
  }
  void TearDown() override { SetHvAssertionHandler(m_previous); }

  HvAssertionHandler m_previous = nullptr;
};

const CHvVector3d kX{1, 0, 0};
const CHvVector3d kY{0, 1, 0};
const CHvVector3d kZ{0, 0, 1};

void expectIdentity(const CHvXform& xform) {
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) EXPECT_EQ(xform(row, column), row == column ? 1.0 : 0.0);
  }
}

TEST_F(HvXformAxes, StoresOrthonormalAxesAsColumnsAndKeepsTheRest) {
  CHvXform xform;
  xform.SetTranslation({7, 8, 9});
  xform(3, 0) = 0.5;
  const double c = std::sqrt(0.5);
  ASSERT_TRUE(xform.SetAxes({c, c, 0}, {-c, c, 0}, kZ));
  EXPECT_TRUE(g_reports.empty());
  const double expected[4][4] = {{c, -c, 0, 7}, {c, c, 0, 8}, {0, 0, 1, 9}, {0.5, 0, 0, 1}};
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) EXPECT_EQ(xform(row, column), expected[row][column]);
  }
}

TEST_F(HvXformAxes, ReportsTheFirstFailedConditionAndStoresNothing) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const struct {
    CHvVector3d x, y, z;
    const wchar_t* condition;
    int line;
  } cases[] = {
      {kX, {0.1, 1, 0}, {0, 0, 2}, L"fabs(dot12) < HV_RANGE_TOLERANCE", 125},
      {kX, kY, {0.1, 0, 1}, L"fabs(dot13) < HV_RANGE_TOLERANCE", 126},
      {kX, kY, {0, 0.1, 1}, L"fabs(dot23) < HV_RANGE_TOLERANCE", 127},
      {{1.00001, 0, 0}, kY, kZ, L"fabs(dot11 - 1) < HV_RANGE_TOLERANCE", 128},
      {kX, {0, 1.00001, 0}, kZ, L"fabs(dot22 - 1) < HV_RANGE_TOLERANCE", 129},
      {kX, kY, {0, 0, 0.99999}, L"fabs(dot33 - 1) < HV_RANGE_TOLERANCE", 130},
      // The tolerance applies to the squared length: 1 + 7e-7 fails, 1 + 4e-7 passes.
      {{1.0000007, 0, 0}, kY, kZ, L"fabs(dot11 - 1) < HV_RANGE_TOLERANCE", 128},
      {kX, kY, {0, 0, 1.0000004}, nullptr, 0},
      {kX, {nan, 1, 0}, kZ, L"fabs(dot12) < HV_RANGE_TOLERANCE", 125},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.line);
    g_reports.clear();
    CHvXform xform;
    EXPECT_EQ(xform.SetAxes(c.x, c.y, c.z), c.condition == nullptr);
    if (c.condition == nullptr) {
      EXPECT_TRUE(g_reports.empty());
      continue;
    }
    ASSERT_EQ(g_reports.size(), 1u);
    EXPECT_EQ(g_reports[0].condition, c.condition);
    EXPECT_EQ(g_reports[0].source, L"System\\src\\HvElement\\src\\HvXform");
    EXPECT_EQ(g_reports[0].line, c.line);
    expectIdentity(xform);
  }
}

TEST(HvXformAssertion, DefaultHandlerStopsTheProgramWithTheReport) {
  EXPECT_EQ(FormatHvAssertion(L"fabs(dot12) < HV_RANGE_TOLERANCE", L"System\\src\\HvElement\\src\\HvXform", 125),
            L"Assertion failed: fabs(dot12) < HV_RANGE_TOLERANCE, file System\\src\\HvElement\\src\\HvXform, line 125");
#ifndef _WIN32
  EXPECT_DEATH(CHvXform().SetAxes(kX, kY, {0, 0, 2}),
               "Assertion failed: fabs\\(dot33 - 1\\) < HV_RANGE_TOLERANCE, file "
               "System\\\\src\\\\HvElement\\\\src\\\\HvXform, line 130");
#endif
}

TEST(HvXformInverse, UndoesARigidTransform) {
  CHvXform translation;
  translation.SetTranslation({1, 2, 3});
  const CHvXform back = translation.GetInverse();
  EXPECT_EQ(back(0, 3), -1);
  EXPECT_EQ(back(1, 3), -2);
  EXPECT_EQ(back(2, 3), -3);

  CHvXform rigid;
  const double c = std::cos(0.3);
  const double s = std::sin(0.3);
  ASSERT_TRUE(rigid.SetAxes({c, s, 0}, {-s, c, 0}, kZ));
  rigid.SetTranslation({5, -4, 0});
  rigid(3, 1) = 9;  // the inverse's last row is 0, 0, 0, 1 whatever this one holds
  const CHvXform inverse = rigid.GetInverse();
  for (int column = 0; column < 4; ++column) EXPECT_EQ(inverse(3, column), column == 3 ? 1.0 : 0.0);
  for (const CHvPoint2d point : {CHvPoint2d{0, 0}, CHvPoint2d{3, -2}, CHvPoint2d{-100, 7.5}}) {
    const CHvPoint2d moved = rigid.TransformPoint(point);
    EXPECT_GT(std::hypot(moved.x - point.x, moved.y - point.y), 1.0);
    const CHvPoint2d restored = inverse.TransformPoint(moved);
    EXPECT_NEAR(restored.x, point.x, 1e-12);
    EXPECT_NEAR(restored.y, point.y, 1e-12);
  }
}

}  // namespace
}  // namespace kvt1

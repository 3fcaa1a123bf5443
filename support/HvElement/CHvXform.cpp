#include "support/HvElement/CHvXform.h"

#include <cmath>

#include "support/HvElement/HvAssert.h"

namespace kvt1 {
namespace {

constexpr const wchar_t* kSource = L"System\\src\\HvElement\\src\\HvXform";

struct AxisCheck {
  bool holds;
  const wchar_t* condition;
  int line;
};

bool isSmall(double value) { return std::fabs(value) < HV_RANGE_TOLERANCE; }

}  // namespace

CHvXform::CHvXform() {
  for (int row = 0; row < 4; ++row) {
    for (int column = 0; column < 4; ++column) m_matrix[row][column] = row == column ? 1.0 : 0.0;
  }
}

bool CHvXform::SetAxes(const CHvVector3d& xAxis, const CHvVector3d& yAxis, const CHvVector3d& zAxis) {
  const double dot12 = Dot(xAxis, yAxis);
  const double dot13 = Dot(xAxis, zAxis);
  const double dot23 = Dot(yAxis, zAxis);
  const double dot11 = Dot(xAxis, xAxis);
  const double dot22 = Dot(yAxis, yAxis);
  const double dot33 = Dot(zAxis, zAxis);
  const AxisCheck checks[] = {
      {isSmall(dot12), L"fabs(dot12) < HV_RANGE_TOLERANCE", 125},
      {isSmall(dot13), L"fabs(dot13) < HV_RANGE_TOLERANCE", 126},
      {isSmall(dot23), L"fabs(dot23) < HV_RANGE_TOLERANCE", 127},
      {isSmall(dot11 - 1), L"fabs(dot11 - 1) < HV_RANGE_TOLERANCE", 128},
      {isSmall(dot22 - 1), L"fabs(dot22 - 1) < HV_RANGE_TOLERANCE", 129},
      {isSmall(dot33 - 1), L"fabs(dot33 - 1) < HV_RANGE_TOLERANCE", 130},
  };
  for (const AxisCheck& check : checks) {
    if (!check.holds) {
      ReportHvAssertion(check.condition, kSource, check.line);
      return false;
    }
  }
  const CHvVector3d* axes[] = {&xAxis, &yAxis, &zAxis};
  for (int column = 0; column < 3; ++column) {
    m_matrix[0][column] = axes[column]->x;
    m_matrix[1][column] = axes[column]->y;
    m_matrix[2][column] = axes[column]->z;
  }
  return true;
}

void CHvXform::SetTranslation(const CHvVector3d& offset) {
  m_matrix[0][3] = offset.x;
  m_matrix[1][3] = offset.y;
  m_matrix[2][3] = offset.z;
}

CHvXform CHvXform::GetInverse() const {
  CHvXform inverse;
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) inverse.m_matrix[row][column] = m_matrix[column][row];
  }
  for (int row = 0; row < 3; ++row) {
    inverse.m_matrix[row][3] = -(inverse.m_matrix[row][0] * m_matrix[0][3] + inverse.m_matrix[row][1] * m_matrix[1][3] +
                                 inverse.m_matrix[row][2] * m_matrix[2][3]);
  }
  return inverse;
}

CHvPoint2d CHvXform::TransformPoint(const CHvPoint2d& point) const {
  return {m_matrix[0][0] * point.x + m_matrix[0][1] * point.y + m_matrix[0][3],
          m_matrix[1][0] * point.x + m_matrix[1][1] * point.y + m_matrix[1][3]};
}

bool CHvXform::KeepsPlane() const {
  return isSmall(m_matrix[2][0]) && isSmall(m_matrix[2][1]) && isSmall(m_matrix[2][3]);
}

bool CHvXform::IsRigidInPlane() const {
  const CHvVector3d xImage{m_matrix[0][0], m_matrix[1][0], 0};
  const CHvVector3d yImage{m_matrix[0][1], m_matrix[1][1], 0};
  return KeepsPlane() && isSmall(Dot(xImage, xImage) - 1) && isSmall(Dot(yImage, yImage) - 1) &&
         isSmall(Dot(xImage, yImage));
}

}  // namespace kvt1

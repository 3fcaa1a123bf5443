#include "support/HvElement/CHvArc.h"

#include <cmath>

#include "support/HvElement/CHvXform.h"
#include "support/HvElement/HvDumpFormat.h"

namespace kvt1 {

double CHvArc::GetEndAngle() const {
  const double end = m_startAngle + m_sweepAngle;
  if (std::fabs(end - kHvTwoPi) < HV_RANGE_TOLERANCE) return end;
  return std::fmod(end, kHvTwoPi);
}

void CHvArc::Dump(std::wstring& text) const {
  text += L"Arc:ctr";
  AppendHvPoint(text, m_center);
  text += L" rad";
  AppendHvNumber(text, m_radius);
  text += L" stAng";
  AppendHvNumber(text, m_startAngle);
  text += L" swp";
  AppendHvNumber(text, m_sweepAngle);
  text += L'\n';
}

CHvPoint2d CHvArc::GetPointAt(double parameter) const {
  const double angle = m_startAngle + parameter * m_sweepAngle;
  return {m_center.x + m_radius * std::cos(angle), m_center.y + m_radius * std::sin(angle)};
}

double CHvArc::GetLength() const { return std::fabs(m_radius * m_sweepAngle); }

CHvBox2d CHvArc::GetBoundingBox() const {
  CHvBox2d box = CHvBox2d::Around(GetStartPoint(), GetEndPoint());
  // The circle's extreme points at 0, π/2, π and 3π/2 count where the arc passes them.
  const double low = std::fmin(m_startAngle, m_startAngle + m_sweepAngle);
  const double high = std::fmax(m_startAngle, m_startAngle + m_sweepAngle);
  const CHvPoint2d offsets[] = {{m_radius, 0}, {0, m_radius}, {-m_radius, 0}, {0, -m_radius}};
  for (int quarter = 0; quarter < 4; ++quarter) {
    const double angle = quarter * kHvHalfPi;
    const double firstPassage = angle + std::ceil((low - angle) / kHvTwoPi) * kHvTwoPi;
    if (firstPassage <= high) box.Include({m_center.x + offsets[quarter].x, m_center.y + offsets[quarter].y});
  }
  return box;
}

bool CHvArc::TransformBy(const CHvXform& xform) {
  if (!xform.IsRigidInPlane()) return false;
  // The plane turns by rotation; a mirroring transform also reflects every
  // angle about it, so angles run the other way.
  const double rotation = std::atan2(xform(1, 0), xform(0, 0));
  const bool mirrors = xform(0, 0) * xform(1, 1) - xform(0, 1) * xform(1, 0) < 0;
  m_center = xform.TransformPoint(m_center);
  m_startAngle = mirrors ? rotation - m_startAngle : m_startAngle + rotation;
  if (mirrors) m_sweepAngle = -m_sweepAngle;
  return true;
}

}  // namespace kvt1

#include "support/HvElement/CHvLine.h"

#include <cmath>

#include "support/HvElement/CHvXform.h"
#include "support/HvElement/HvDumpFormat.h"

namespace kvt1 {

void CHvLine::Dump(std::wstring& text) const {
  text += L"Line: ";
  AppendHvPoint(text, m_start);
  AppendHvPoint(text, m_end);
}

CHvPoint2d CHvLine::GetPointAt(double parameter) const {
  return {m_start.x + parameter * (m_end.x - m_start.x), m_start.y + parameter * (m_end.y - m_start.y)};
}

double CHvLine::GetLength() const { return std::hypot(m_end.x - m_start.x, m_end.y - m_start.y); }

CHvBox2d CHvLine::GetBoundingBox() const { return CHvBox2d::Around(m_start, m_end); }

bool CHvLine::TransformBy(const CHvXform& xform) {
  if (!xform.KeepsPlane()) return false;
  m_start = xform.TransformPoint(m_start);
  m_end = xform.TransformPoint(m_end);
  return true;
}

}  // namespace kvt1

#pragma once
// A straight segment from a start point to an end point.
#include "support/HvElement/CHvElement.h"
#include "support/HvElement/IHvCurve.h"

namespace kvt1 {

class CHvLine : public CHvElement, public IHvCurve {
 public:
  CHvLine() = default;
  CHvLine(const CHvPoint2d& start, const CHvPoint2d& end) : m_start(start), m_end(end) {}

  // "Line: " followed by the start and end points.
  void Dump(std::wstring& text) const override;

  CHvPoint2d GetPointAt(double parameter) const override;
  double GetLength() const override;
  CHvPoint2d GetStartPoint() const override { return m_start; }
  CHvPoint2d GetEndPoint() const override { return m_end; }
  CHvBox2d GetBoundingBox() const override;
  // Any transform that keeps the plane, scaling and shearing included.
  bool TransformBy(const CHvXform& xform) override;

 private:
  CHvPoint2d m_start;
  CHvPoint2d m_end;
};

}  // namespace kvt1

#pragma once
// A circular arc: a centre, a radius, a start angle and a signed sweep
// (radians; a positive sweep runs counter-clockwise).
#include "support/HvElement/CHvElement.h"
#include "support/HvElement/IHvCurve.h"

namespace kvt1 {

class CHvArc : public CHvElement, public IHvCurve {
 public:
  CHvArc() = default;
  CHvArc(const CHvPoint2d& center, double radius, double startAngle, double sweepAngle)
      : m_center(center), m_radius(radius), m_startAngle(startAngle), m_sweepAngle(sweepAngle) {}

  const CHvPoint2d& GetCenter() const { return m_center; }
  double GetRadius() const { return m_radius; }
  double GetStartAngle() const { return m_startAngle; }
  double GetSweepAngle() const { return m_sweepAngle; }
  // The start angle plus the sweep, reduced by the floating remainder of 2π,
  // except that a sum within 1e-6 of 2π is returned as it is: an arc that
  // ends at a full turn reports 2π, never 0. A negative sum stays negative.
  double GetEndAngle() const;

  // "Arc:", "ctr" and the centre, " rad", " stAng" and " swp" with their
  // values, and a line end.
  void Dump(std::wstring& text) const override;

  CHvPoint2d GetPointAt(double parameter) const override;
  double GetLength() const override;
  CHvPoint2d GetStartPoint() const override { return GetPointAt(0); }
  CHvPoint2d GetEndPoint() const override { return GetPointAt(1); }
  CHvBox2d GetBoundingBox() const override;
  // Only transforms that move the plane rigidly; a mirroring one reverses
  // the sweep.
  bool TransformBy(const CHvXform& xform) override;

 private:
  CHvPoint2d m_center;
  double m_radius = 0;
  double m_startAngle = 0;
  double m_sweepAngle = 0;
};

}  // namespace kvt1

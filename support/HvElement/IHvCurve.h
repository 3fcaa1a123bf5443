#pragma once
// The operations every curve offers.
#include "support/HvElement/HvGeometry.h"

namespace kvt1 {

class CHvXform;

class IHvCurve {
 public:
  virtual ~IHvCurve() = default;

  // The point at a parameter: 0 is the start, 1 the end, and values between
  // run along the curve in proportion to its length. Values outside continue
  // the curve (a line beyond its ends, an arc around its circle).
  virtual CHvPoint2d GetPointAt(double parameter) const = 0;
  virtual double GetLength() const = 0;
  virtual CHvPoint2d GetStartPoint() const = 0;
  virtual CHvPoint2d GetEndPoint() const = 0;
  virtual CHvBox2d GetBoundingBox() const = 0;
  // Moves the curve by the transform. False, leaving the curve as it was,
  // when the result would not be a curve of the same kind in the plane.
  virtual bool TransformBy(const CHvXform& xform) = 0;
};

}  // namespace kvt1

#pragma once
// A transform as a 4 by 4 matrix of doubles, row by row: the rotation part
// in rows and columns 0..2, the translation in column 3. Points of the plane
// are transformed as (x, y, 0, 1); the last row is taken as 0, 0, 0, 1.
#include "support/HvElement/HvGeometry.h"

namespace kvt1 {

class CHvXform {
 public:
  // The identity.
  CHvXform();

  double operator()(int row, int column) const { return m_matrix[row][column]; }
  double& operator()(int row, int column) { return m_matrix[row][column]; }

  // Stores the axes as the columns 0, 1 and 2 of the rotation part, leaving
  // the translation and the last row untouched. The axes must be orthonormal:
  // the first check that fails is reported as an assertion (HvAssert.h) and
  // the axes are then not stored. Returns whether they were stored.
  bool SetAxes(const CHvVector3d& xAxis, const CHvVector3d& yAxis, const CHvVector3d& zAxis);
  void SetTranslation(const CHvVector3d& offset);

  // The inverse of a rigid transform: the rotation part transposed, the
  // translation minus the transposed rotation times the old translation.
  CHvXform GetInverse() const;

  CHvPoint2d TransformPoint(const CHvPoint2d& point) const;

  // Whether the plane z = 0 stays in place (only moved within itself).
  bool KeepsPlane() const;
  // Whether it also moves the plane rigidly: a rotation about z, possibly
  // mirrored, and a translation, without scaling or shearing.
  bool IsRigidInPlane() const;

 private:
  double m_matrix[4][4];
};

}  // namespace kvt1

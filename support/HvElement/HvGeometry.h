#pragma once
// The value types of the geometry elements: points in the plane, vectors in
// space (the axes of a transform) and axis-aligned boxes.
#include <algorithm>

namespace kvt1 {

// The tolerance of the geometry checks.
constexpr double HV_RANGE_TOLERANCE = 1e-6;
constexpr double kHvTwoPi = 6.283185307179586;
constexpr double kHvHalfPi = kHvTwoPi / 4;

struct CHvPoint2d {
  double x = 0;
  double y = 0;
};

struct CHvVector3d {
  double x = 0;
  double y = 0;
  double z = 0;
};

inline double Dot(const CHvVector3d& a, const CHvVector3d& b) { return a.x * b.x + a.y * b.y + a.z * b.z; }

// The smallest axis-aligned box around the points given to it.
struct CHvBox2d {
  CHvPoint2d min;
  CHvPoint2d max;

  static CHvBox2d Around(const CHvPoint2d& a, const CHvPoint2d& b) {
    return {{std::min(a.x, b.x), std::min(a.y, b.y)}, {std::max(a.x, b.x), std::max(a.y, b.y)}};
  }
  void Include(const CHvPoint2d& point) {
    min = {std::min(min.x, point.x), std::min(min.y, point.y)};
    max = {std::max(max.x, point.x), std::max(max.y, point.y)};
  }
};

}  // namespace kvt1

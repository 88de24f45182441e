/// \file
/// A surface of triangles.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace Surface {

using Point = std::array<double, 3>;
using Triangle = std::array<std::uint32_t, 3>;  ///< indices of points, from 0

/// A surface of triangles; coordinates in millimetres. Corners are counter-clockwise when seen
/// from outside. What readers of files give has finite coordinates and valid indices only.
struct Mesh {
  std::vector<Point> points;
  std::vector<Triangle> triangles;
};

/// The mesh several times, side by side along the first axis with a small gap.
/// \param copies at least 1
/// \throws Kyr::Exception when the points are too many for the indices of triangles
/// \throws Aborted when the abort flag is set
Mesh repeated(const Mesh& mesh, unsigned copies);

inline Point sum(const Point& a, const Point& b) {
  return {a[0] + b[0], a[1] + b[1], a[2] + b[2]};
}
inline Point difference(const Point& a, const Point& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}
inline Point scaled(const Point& a, double factor) {
  return {a[0] * factor, a[1] * factor, a[2] * factor};
}
inline Point cross(const Point& a, const Point& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}
inline double dot(const Point& a, const Point& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

}  // namespace Surface

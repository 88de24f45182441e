/// \file
/// A scan as the picture needs it.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace Viewer {

/// A place or a direction. In single precision: pictures have no use for more.
struct Vector {
  float x = 0;
  float y = 0;
  float z = 0;
};

inline float dot(const Vector& a, const Vector& b) {
  return a.x * b.x + a.y * b.y + a.z * b.z;
}

/// What is drawn. Never changed once it was shared, so any thread may read it.
struct Model {
  std::vector<Vector> points;   ///< from the middle of the scan, none farther away than 1
  std::vector<Vector> normals;  ///< of length 1, one for each point
  std::vector<float> values;    ///< one for each point; no number where there is none
  std::vector<std::array<std::uint32_t, 3>> triangles;
};

}  // namespace Viewer

#include "surface/mesh.h"

#include <kyr/i18n/KyrTranslate.h>

#include "surface/abort.h"
#include "surface/words.h"

#include <algorithm>
#include <limits>

namespace Surface {

namespace {

/// The distance from the left of one copy to the left of the next.
double stride(const std::vector<Point>& points) {
  constexpr double gap = 0.05;
  double left = points.front()[0];
  double right = left;
  for (const Point& point : points) {
    left = std::min(left, point[0]);
    right = std::max(right, point[0]);
  }
  return (right - left) * (1 + gap);
}

}  // namespace

Mesh repeated(const Mesh& mesh, unsigned copies) {
  const std::size_t count = mesh.points.size();
  if (copies <= 1 || count == 0) {
    return mesh;
  }
  if (count > std::numeric_limits<std::uint32_t>::max() / copies) {
    throw Kyr::Exception(
        Kyr::translate("Surface", "%1 copies of %2 are too many points")
            .arg(counted(copies), counted(static_cast<qint64>(count), Things::point)));
  }
  Mesh result;
  result.points.reserve(count * copies);
  result.triangles.reserve(mesh.triangles.size() * copies);
  const double step = stride(mesh.points);
  for (unsigned copy = 0; copy < copies; ++copy) {
    const auto first = static_cast<std::uint32_t>(copy * count);
    forEachIndex(count, [&](std::size_t i) {
      const Point& point = mesh.points[i];
      result.points.push_back({point[0] + copy * step, point[1], point[2]});
    });
    forEachIndex(mesh.triangles.size(), [&](std::size_t i) {
      const Triangle& t = mesh.triangles[i];
      result.triangles.push_back({first + t[0], first + t[1], first + t[2]});
    });
  }
  return result;
}

}  // namespace Surface

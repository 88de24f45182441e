#include "surface/measure.h"

#include "surface/abort.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace Surface {

namespace {

struct Box {
  Point low{};
  Point high{};
};

Box boundingBox(const std::vector<Point>& points) {
  Box box{points.front(), points.front()};
  for (const Point& point : points) {
    for (std::size_t axis = 0; axis < 3; ++axis) {
      box.low[axis] = std::min(box.low[axis], point[axis]);
      box.high[axis] = std::max(box.high[axis], point[axis]);
    }
  }
  return box;
}

/// Calls action with both ends of every side of every triangle, the smaller index first.
template <class Action>
void forEachSide(const std::vector<Triangle>& triangles, Action action) {
  forEachIndex(triangles.size(), [&](std::size_t index) {
    const Triangle& t = triangles[index];
    for (std::size_t corner = 0; corner < 3; ++corner) {
      const auto ends = std::minmax(t[corner], t[(corner + 1) % 3]);
      action(ends.first, ends.second);
    }
  });
}

/// How many values stand alone among their equals.
std::size_t countSingles(std::uint32_t* begin, std::uint32_t* end) {
  std::sort(begin, end);
  std::size_t singles = 0;
  while (begin != end) {
    const std::uint32_t* const next = std::upper_bound(begin, end, *begin);
    singles += next - begin == 1 ? 1 : 0;
    begin += next - begin;
  }
  return singles;
}

/// Counts the edges that are the side of one triangle only. Sides are put together by their smaller
/// end: the few of each point are then quickly compared.
std::size_t countOpenEdges(const Mesh& mesh) {
  std::vector<std::size_t> next(mesh.points.size() + 1);
  forEachSide(mesh.triangles,
              [&](std::uint32_t smaller, std::uint32_t /*larger*/) { ++next[smaller + 1]; });
  std::partial_sum(next.begin(), next.end(), next.begin());
  std::vector<std::uint32_t> ends(next.back());
  forEachSide(mesh.triangles,
              [&](std::uint32_t smaller, std::uint32_t larger) { ends[next[smaller]++] = larger; });
  // By now next[i] is where the sides of the point behind i begin.
  std::size_t open = 0;
  std::size_t begin = 0;
  forEachIndex(mesh.points.size(), [&](std::size_t point) {
    open += countSingles(ends.data() + begin, ends.data() + next[point]);
    begin = next[point];
  });
  return open;
}

/// Adds the triangle's area and the volume of the tetrahedron between it and the middle.
void addTriangle(Measures& measures, const Mesh& mesh, const Triangle& triangle,
                 const Point& middle) {
  const Point a = difference(mesh.points[triangle[0]], middle);
  const Point b = difference(mesh.points[triangle[1]], middle);
  const Point c = difference(mesh.points[triangle[2]], middle);
  const Point normal = cross(difference(b, a), difference(c, a));
  measures.area += std::sqrt(dot(normal, normal)) / 2;
  measures.volume += dot(a, cross(b, c)) / 6;
}

}  // namespace

Measures measure(const Mesh& mesh) {
  Measures measures;
  if (mesh.points.empty()) {
    return measures;
  }
  const Box box = boundingBox(mesh.points);
  measures.extent = difference(box.high, box.low);
  Point middle{};
  for (std::size_t axis = 0; axis < 3; ++axis) {
    middle[axis] = (box.low[axis] + box.high[axis]) / 2;
  }
  forEachIndex(mesh.triangles.size(), [&](std::size_t index) {
    addTriangle(measures, mesh, mesh.triangles[index], middle);
  });
  measures.volume = std::abs(measures.volume);
  measures.openEdges = countOpenEdges(mesh);
  return measures;
}

}  // namespace Surface

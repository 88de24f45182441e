#include "measure.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace Tour {

namespace {

Point difference(const Point& a, const Point& b) {
  return {a[0] - b[0], a[1] - b[1], a[2] - b[2]};
}

Point cross(const Point& a, const Point& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double dot(const Point& a, const Point& b) {
  return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

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

/// An edge inside the surface is passed once in each direction.
std::size_t countOpenEdges(const std::vector<Triangle>& triangles) {
  std::vector<std::pair<std::uint32_t, std::uint32_t>> edges;
  edges.reserve(triangles.size() * 3);
  for (const Triangle& t : triangles) {
    for (std::size_t corner = 0; corner < 3; ++corner) {
      edges.push_back(std::minmax({t[corner], t[(corner + 1) % 3]}));
    }
  }
  std::sort(edges.begin(), edges.end());
  std::size_t open = 0;
  for (auto edge = edges.begin(); edge != edges.end();) {
    const auto next = std::upper_bound(edge, edges.end(), *edge);
    open += next - edge == 1 ? 1 : 0;
    edge = next;
  }
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
  for (const Triangle& triangle : mesh.triangles) {
    addTriangle(measures, mesh, triangle, middle);
  }
  measures.volume = std::abs(measures.volume);
  measures.openEdges = countOpenEdges(mesh.triangles);
  return measures;
}

}  // namespace Tour

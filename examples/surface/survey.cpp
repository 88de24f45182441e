#include "surface/survey_p.h"

#include <kyr/jobs/KyrStopToken.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace Surface {

namespace {

constexpr unsigned smallestShift = 12;
constexpr std::size_t mostChunks = 256;

unsigned shiftFor(std::size_t elements) {
  unsigned shift = smallestShift;
  while (((elements - 1) >> shift) >= mostChunks) {
    ++shift;
  }
  return shift;
}

/// Calls action for each index of a chunk, and looks now and then whether to stop.
template <class Action>
void forEachIn(const Chunks& chunks, unsigned chunk, Action action) {
  constexpr std::size_t between = 1024;
  const std::size_t begin = chunks.begin(chunk);
  const std::size_t end = chunks.end(chunk);
  for (std::size_t block = begin; block < end; block += between) {
    Kyr::throwIfStopped();
    const std::size_t blockEnd = std::min(block + between, end);
    for (std::size_t index = block; index < blockEnd; ++index) {
      action(index);
    }
  }
}

/// The vector of length 1 with the same direction; zero for one without a direction.
Point unit(const Point& vector) {
  const double length = std::sqrt(dot(vector, vector));
  return length > 0 && std::isfinite(length) ? scaled(vector, 1 / length) : Point{};
}

/// The same triangle with a certain corner first.
Triangle turned(const Triangle& t, std::size_t first) {
  return t[0] == first   ? t
         : t[1] == first ? Triangle{t[1], t[2], t[0]}
                         : Triangle{t[2], t[0], t[1]};
}

/// Turns counts, each one place late, into the beginnings of the groups that they count.
template <class Number>
void addUp(std::vector<Number>& counts) {
  Number total = 0;
  for (Number& count : counts) {
    total += count;
    count = total;
  }
}

}  // namespace

Chunks::Chunks(std::size_t elements)
    : _elements(elements),
      _shift(elements == 0 ? smallestShift : shiftFor(elements)),
      _count(elements == 0 ? 1 : of(elements - 1) + 1) {}

std::size_t Chunks::end(unsigned chunk) const {
  return chunk + 1 == _count ? _elements : begin(chunk + 1);
}

Survey::Survey(const Mesh& mesh)
    : _mesh(mesh),
      _triangleChunks(mesh.triangles.size()),
      _pointChunks(mesh.points.size()),
      _corners(_triangleChunks.count()),
      _stars(_pointChunks.count()),
      _normals{std::vector<Point>(mesh.points.size()), std::vector<Point>(mesh.points.size())},
      _curvature(mesh.points.size(), std::numeric_limits<double>::quiet_NaN()) {}

/// Twice the area of the triangle, as the length of its normal.
Point Survey::areaNormal(const Triangle& triangle) const {
  const Point& origin = _mesh.points[triangle[0]];
  return cross(difference(_mesh.points[triangle[1]], origin),
               difference(_mesh.points[triangle[2]], origin));
}

/// The normal of a triangle as its first corner counts it: with weights that give the corners of
/// any triangles on a sphere the sphere's normals.
Point Survey::weightedNormal(const Triangle& triangle) const {
  const Point& origin = _mesh.points[triangle[0]];
  const Point one = difference(_mesh.points[triangle[1]], origin);
  const Point other = difference(_mesh.points[triangle[2]], origin);
  return scaled(cross(one, other), 1 / (dot(one, one) * dot(other, other)));
}

/// Whether a triangle has a normal: that of one much thinner than long is nothing but rounding.
bool Survey::hasArea(const Triangle& triangle) const {
  constexpr double thinnest = 1e-10;
  const Point& origin = _mesh.points[triangle[0]];
  const Point one = difference(_mesh.points[triangle[1]], origin);
  const Point other = difference(_mesh.points[triangle[2]], origin);
  const Point normal = cross(one, other);
  const double doubleArea = std::sqrt(dot(normal, normal));
  return std::isfinite(doubleArea) && doubleArea > thinnest * (dot(one, one) + dot(other, other));
}

void Survey::sortCorners(unsigned triangleChunk) {
  SortedCorners& sorted = _corners[triangleChunk];
  sorted.first.assign(_pointChunks.count() + 1, 0);
  std::vector<std::uint32_t> kept;
  forEachIn(_triangleChunks, triangleChunk, [&](std::size_t index) {
    const Triangle& triangle = _mesh.triangles[index];
    if (hasArea(triangle)) {
      kept.push_back(static_cast<std::uint32_t>(index));
      for (const std::uint32_t point : triangle) {
        ++sorted.first[_pointChunks.of(point) + 1];
      }
    }
  });
  addUp(sorted.first);
  sorted.corners.resize(sorted.first.back());
  std::vector<std::uint32_t> next = sorted.first;
  for (const std::uint32_t triangle : kept) {
    for (const std::uint32_t point : _mesh.triangles[triangle]) {
      sorted.corners[next[_pointChunks.of(point)]++] = {point, triangle};
    }
  }
}

/// Calls action with the corners that lie in a chunk of points, in the order of triangles.
template <class Action>
void Survey::forEachCorner(unsigned chunk, Action action) const {
  for (const SortedCorners& sorted : _corners) {
    for (std::size_t i = sorted.first[chunk]; i < sorted.first[chunk + 1]; ++i) {
      action(sorted.corners[i]);
    }
  }
}

void Survey::listTriangles(unsigned chunk) {
  const std::size_t begin = _pointChunks.begin(chunk);
  std::vector<std::size_t>& first = _stars[chunk].first;
  first.assign(_pointChunks.end(chunk) - begin + 1, 0);
  forEachCorner(chunk, [&](const Corner& corner) { ++first[corner.point - begin + 1]; });
  addUp(first);
  _stars[chunk].triangles.resize(first.back());
  std::vector<std::size_t> next = first;
  forEachCorner(chunk, [&](const Corner& corner) {
    _stars[chunk].triangles[next[corner.point - begin]++] = corner.triangle;
  });
}

void Survey::findNeighbours(unsigned chunk) {
  std::vector<bool> met(_pointChunks.count());
  met[chunk] = true;
  for (const std::uint32_t triangle : _stars[chunk].triangles) {
    for (const std::uint32_t point : _mesh.triangles[triangle]) {
      met[_pointChunks.of(point)] = true;
    }
  }
  for (unsigned other = 0; other < _pointChunks.count(); ++other) {
    if (met[other]) {
      _stars[chunk].neighbours.push_back(other);
    }
  }
}

template <class Action>
void Survey::forEachTriangleAround(std::size_t point, Action action) const {
  const unsigned chunk = _pointChunks.of(point);
  const Stars& stars = _stars[chunk];
  const std::size_t index = point - _pointChunks.begin(chunk);
  for (std::size_t i = stars.first[index]; i < stars.first[index + 1]; ++i) {
    action(turned(_mesh.triangles[stars.triangles[i]], point));
  }
}

void Survey::findStars(unsigned chunk) {
  listTriangles(chunk);
  findNeighbours(chunk);
  forEachIn(_pointChunks, chunk, [&](std::size_t point) {
    Point total{};
    forEachTriangleAround(
        point, [&](const Triangle& triangle) { total = sum(total, weightedNormal(triangle)); });
    _normals[0][point] = unit(total);
  });
}

/// The mean of the normals around a point, with weights under which the mean of the places
/// around it would be its own place: others would tilt the normal where triangles are uneven.
Point Survey::meanAround(std::size_t point, const std::vector<Point>& normals) const {
  Point total{};
  double weights = 0;
  forEachTriangleAround(point, [&](const Triangle& triangle) {
    const Point& origin = _mesh.points[point];
    const Point one = difference(_mesh.points[triangle[1]], origin);
    const Point other = difference(_mesh.points[triangle[2]], origin);
    const Point normal = cross(one, other);
    const double oneLength = std::sqrt(dot(one, one));
    const double otherLength = std::sqrt(dot(other, other));
    const double tangentOfHalfAngle =
        std::sqrt(dot(normal, normal)) / (oneLength * otherLength + dot(one, other));
    const double oneWeight = tangentOfHalfAngle / oneLength;
    const double otherWeight = tangentOfHalfAngle / otherLength;
    total = sum(total, sum(scaled(normals[triangle[1]], oneWeight),
                           scaled(normals[triangle[2]], otherWeight)));
    weights += oneWeight + otherWeight;
  });
  return weights > 0 && std::isfinite(weights) ? scaled(total, 1 / weights) : Point{};
}

void Survey::smooth(unsigned chunk, unsigned pass) {
  const std::vector<Point>& before = _normals[pass % 2];
  std::vector<Point>& after = _normals[(pass + 1) % 2];
  forEachIn(_pointChunks, chunk, [&](std::size_t point) {
    after[point] = unit(sum(before[point], meanAround(point, before)));
  });
}

double Survey::curvatureAt(std::size_t point, const std::vector<Point>& normals) const {
  double divergence = 0;  // sum over the triangles, each weighted with twice its area
  double doubleArea = 0;
  forEachTriangleAround(point, [&](const Triangle& triangle) {
    const Point total = areaNormal(triangle);
    const double length = std::sqrt(dot(total, total));
    const Point normal = scaled(total, 1 / length);
    for (std::size_t corner = 0; corner < 3; ++corner) {
      const Point opposite = difference(_mesh.points[triangle[(corner + 2) % 3]],
                                        _mesh.points[triangle[(corner + 1) % 3]]);
      divergence += dot(normals[triangle[corner]], cross(normal, opposite));
    }
    doubleArea += length;
  });
  return divergence / doubleArea / 2;
}

void Survey::bend(unsigned chunk, unsigned passes) {
  const std::vector<Point>& normals = _normals[passes % 2];
  forEachIn(_pointChunks, chunk, [&](std::size_t point) {
    const double curvature = curvatureAt(point, normals);
    if (normals[point] != Point{} && std::isfinite(curvature)) {
      _curvature[point] = curvature;
    }
  });
}

Analysis Survey::take(unsigned passes) {
  Analysis result;
  result.normals = std::move(_normals[passes % 2]);
  result.curvature = std::move(_curvature);
  return result;
}

}  // namespace Surface

#include "canvas.h"

#include <algorithm>
#include <cmath>

namespace Viewer {

namespace {

/// Nothing is drawn that is nearer to the eye than this part of the distance to the target.
constexpr float nearest = 0.01F;
/// How far outside of a triangle a sample may lie that still counts, in shares: neighbours
/// round differently, and no hole may come of it.
constexpr float tolerance = 1e-4F;

/// Twice the area of a triangle, above 0 when it turns its face to the eye.
float doubleArea(const Seen& a, const Seen& b, const Seen& c) {
  return (c.x - a.x) * (b.y - a.y) - (b.x - a.x) * (c.y - a.y);
}

/// The samples from \a low to \a high whose middles lie between the borders.
struct Steps {
  int low;
  int high;
};

Steps steps(float least, float most, int begin, int end) {
  const float low =
      std::clamp(std::ceil(least - 0.5F), static_cast<float>(begin), static_cast<float>(end));
  const float high = std::clamp(std::floor(most - 0.5F), static_cast<float>(begin) - 1,
                                static_cast<float>(end) - 1);
  return {static_cast<int>(low), static_cast<int>(high)};
}

}  // namespace

void Canvas::draw(const Model& model, const Projection& projection, int width, int height,
                  Crew& crew, const std::atomic<bool>* cancelled) {
  _width = width;
  _height = height;
  const std::size_t samples = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  _nearness.resize(samples);
  _triangles.resize(samples);
  _seen.resize(model.points.size());
  crew.shareRange(model.points.size(), [&](std::size_t begin, std::size_t end) {
    project(model, projection, begin, end);
  });
  // Several bands for each thread, dealt out in turn: the model is seldom spread evenly.
  const unsigned bands = crew.size() * 4;
  crew.share([&](unsigned part) {
    for (unsigned band = part; band < bands; band += crew.size()) {
      const auto line = [&](unsigned number) {
        return static_cast<int>(static_cast<unsigned>(height) * number / bands);
      };
      fill(model, {line(band), line(band + 1)}, cancelled);
    }
  });
}

void Canvas::project(const Model& model, const Projection& projection, std::size_t begin,
                     std::size_t end) {
  const float depthLimit = nearest * projection.distance;
  for (std::size_t point = begin; point < end; ++point) {
    const Vector& place = model.points[point];
    const Vector turned =
        projection.turned({place.x - projection.target.x, place.y - projection.target.y,
                           place.z - projection.target.z});
    const float depth = projection.distance - turned.z;
    if (!(depth > depthLimit)) {
      _seen[point] = {};
      continue;
    }
    const float nearness = 1 / depth;
    _seen[point] = {projection.middleX + projection.focal * turned.x * nearness,
                    projection.middleY - projection.focal * turned.y * nearness, nearness};
  }
}

void Canvas::clear(const Band& band) {
  const auto begin = static_cast<std::ptrdiff_t>(index(0, band.top));
  const auto end = static_cast<std::ptrdiff_t>(index(0, band.bottom));
  std::fill(_nearness.begin() + begin, _nearness.begin() + end, 0.0F);
  std::fill(_triangles.begin() + begin, _triangles.begin() + end, nothing);
}

void Canvas::fill(const Model& model, const Band& band, const std::atomic<bool>* cancelled) {
  constexpr std::uint32_t between = 4096;  // triangles between two looks at the flag
  clear(band);
  std::uint32_t number = 0;
  for (const auto& corners : model.triangles) {
    if (number % between == 0 && cancelled && *cancelled) {
      return;
    }
    fillTriangle(corners, number++, band);
  }
}

void Canvas::fillTriangle(const std::array<std::uint32_t, 3>& corners, std::uint32_t number,
                          const Band& band) {
  const Seen& a = _seen[corners[0]];
  const Seen& b = _seen[corners[1]];
  const Seen& c = _seen[corners[2]];
  const auto [top, bottom] = std::minmax({a.y, b.y, c.y});
  const Steps lines = steps(top, bottom, band.top, band.bottom);
  const bool inFront = a.nearness > 0 && b.nearness > 0 && c.nearness > 0;
  if (lines.low > lines.high || !inFront) {
    return;
  }
  const auto [left, right] = std::minmax({a.x, b.x, c.x});
  const Steps columns = steps(left, right, 0, _width);
  const float area = doubleArea(a, b, c);
  if (columns.low > columns.high || !(std::abs(area) > 0)) {
    return;
  }
  const float scale = 1 / area;
  // Shares of a and b grow evenly along a line, and so does nearness.
  const float shareAStep = (c.y - b.y) * scale;
  const float shareBStep = (a.y - c.y) * scale;
  const float nearStep =
      shareAStep * (a.nearness - c.nearness) + shareBStep * (b.nearness - c.nearness);
  for (int line = lines.low; line <= lines.high; ++line) {
    const Seen first = {static_cast<float>(columns.low) + 0.5F, static_cast<float>(line) + 0.5F, 0};
    float shareA = doubleArea(first, b, c) * scale;
    float shareB = doubleArea(a, first, c) * scale;
    float near =
        c.nearness + shareA * (a.nearness - c.nearness) + shareB * (b.nearness - c.nearness);
    std::size_t sample = index(columns.low, line);
    for (int column = columns.low; column <= columns.high; ++column, ++sample) {
      const bool inside =
          shareA >= -tolerance && shareB >= -tolerance && shareA + shareB <= 1 + tolerance;
      if (inside && near > _nearness[sample]) {
        _nearness[sample] = near;
        _triangles[sample] = number;
      }
      shareA += shareAStep;
      shareB += shareBStep;
      near += nearStep;
    }
  }
}

Hit Canvas::hitAt(const Model& model, int x, int y) const {
  Hit hit;
  hit.corners = &model.triangles[triangleAt(x, y)];
  const Seen& a = _seen[(*hit.corners)[0]];
  const Seen& b = _seen[(*hit.corners)[1]];
  const Seen& c = _seen[(*hit.corners)[2]];
  const Seen here = {static_cast<float>(x) + 0.5F, static_cast<float>(y) + 0.5F, 0};
  const float area = doubleArea(a, b, c);
  hit.back = area < 0;
  // Weighting with the nearness of each corner makes shares of the picture shares of the surface.
  const float shareA = doubleArea(here, b, c) / area * a.nearness;
  const float shareB = doubleArea(a, here, c) / area * b.nearness;
  const float shareC = doubleArea(a, b, here) / area * c.nearness;
  const float sum = shareA + shareB + shareC;
  hit.shares = {shareA / sum, shareB / sum, shareC / sum};
  return hit;
}

}  // namespace Viewer

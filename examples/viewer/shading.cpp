#include "shading.h"

#include <algorithm>
#include <cmath>

namespace Viewer {

namespace {

Vector unit(const Vector& v) {
  const float length = std::sqrt(dot(v, v));
  return {v.x / length, v.y / length, v.z / length};
}

struct Lamp {
  Vector towards;
  Light light;
  float softness;  ///< how far its light goes around, 0 for none

  float amount(const Vector& normal) const {
    return std::max(0.0F, (dot(normal, towards) + softness) / (1 + softness));
  }
};

const Lamp key = {unit({-0.50F, 0.62F, 0.68F}), {0.74F, 0.72F, 0.69F}, 0.15F};
const Lamp fill = {unit({0.80F, 0.05F, 0.55F}), {0.16F, 0.18F, 0.21F}, 0.40F};
const Lamp rim = {unit({0.35F, 0.55F, -0.60F}), {0.22F, 0.24F, 0.27F}, 0.0F};
constexpr Light sky = {0.30F, 0.31F, 0.33F};
constexpr Light ground = {0.13F, 0.125F, 0.12F};

/// Light mirrored by a surface that shines a little.
float gloss(const Vector& normal) {
  static const Vector half = unit({key.towards.x, key.towards.y, key.towards.z + 1});
  const float near = std::max(0.0F, dot(normal, half));
  const float second = near * near;
  const float eighth = second * second * second * second;
  return 0.10F * eighth * eighth * eighth;
}

}  // namespace

Light backgroundAt(float placeX, float placeY) {
  static const Light inner = lightOf(QColor(0x3d, 0x43, 0x4b));
  static const Light outer = lightOf(QColor(0x16, 0x19, 0x1d));
  const float x = (placeX - 0.5F) * 1.25F;
  const float y = (placeY - 0.42F) * 1.45F;
  const float away = std::min(1.0F, std::sqrt(x * x + y * y));
  const float part = away * away * (3 - 2 * away);
  Light light{};
  for (std::size_t i = 0; i < light.size(); ++i) {
    light[i] = inner[i] + (outer[i] - inner[i]) * part;
  }
  return light;
}

Light shaded(const Vector& normal, const Light& paint) {
  const float up = normal.y * 0.5F + 0.5F;
  const float byKey = key.amount(normal);
  const float byFill = fill.amount(normal);
  const float byRim = rim.amount(normal);
  const float mirrored = gloss(normal);
  Light light{};
  for (std::size_t i = 0; i < light.size(); ++i) {
    const float around = ground[i] + (sky[i] - ground[i]) * up;
    light[i] =
        paint[i] * (around + key.light[i] * byKey + fill.light[i] * byFill + rim.light[i] * byRim) +
        mirrored;
  }
  return light;
}

Light paintOfBacks() {
  return {0.13F, 0.135F, 0.15F};
}

float openness(const Canvas& canvas, int x, int y, float focal, float reach) {
  // Half of a ring of directions; the other half is opposite to these. A pair of neighbours that
  // both come nearer than the sample makes a hollow, and a slope makes none.
  static constexpr float directions[][2] = {
      {1, 0}, {0.924F, 0.383F},  {0.707F, 0.707F},  {0.383F, 0.924F},
      {0, 1}, {-0.383F, 0.924F}, {-0.707F, 0.707F}, {-0.924F, 0.383F}};
  static constexpr float rings[] = {0.12F, 0.35F, 0.68F, 1.0F};
  const float depth = 1 / canvas.nearnessAt(x, y);
  const auto nearnessAt = [&](float dx, float dy) {
    const int column = std::clamp(x + static_cast<int>(dx), 0, canvas.width() - 1);
    const int line = std::clamp(y + static_cast<int>(dy), 0, canvas.height() - 1);
    return canvas.nearnessAt(column, line);
  };
  float closed = 0;
  for (const float ring : rings) {
    const float radius = std::max(1.0F, ring * reach);
    const float width = radius * depth / focal;
    for (const auto& direction : directions) {
      const float dx = direction[0] * radius;
      const float dy = direction[1] * radius;
      const float one = nearnessAt(dx, dy);
      const float other = nearnessAt(-dx, -dy);
      if (!(one > 0 && other > 0)) {
        continue;  // light comes from beyond the model's outline
      }
      const float rise = depth - 0.5F * (1 / one + 1 / other);
      // A part of the model far in front hides the sample from the eye, not from the light.
      const float steepness = rise / width;
      closed += steepness > 3 ? 0.25F : std::clamp(steepness * 1.1F, 0.0F, 1.0F);
    }
  }
  return 1 - std::min(0.85F, 1.15F * closed / (std::size(rings) * std::size(directions)));
}

}  // namespace Viewer

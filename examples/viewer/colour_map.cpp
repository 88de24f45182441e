#include "colour_map.h"

#include <algorithm>
#include <cmath>

namespace Viewer {

namespace {

/// Lightness and two opponent colours, in which equal steps look equal.
struct Perceived {
  float lightness;
  float redGreen;
  float yellowBlue;
};

// Oklab to linear sRGB: https://bottosson.github.io/posts/oklab
Light toLight(const Perceived& colour) {
  const auto [lightness, a, b] = colour;
  const auto cube = [](float root) { return root * root * root; };
  const float l = cube(lightness + 0.3963377774F * a + 0.2158037573F * b);
  const float m = cube(lightness - 0.1055613458F * a - 0.0638541728F * b);
  const float s = cube(lightness - 0.0894841775F * a - 1.2914855480F * b);
  const Light light = {4.0767416621F * l - 3.3077115913F * m + 0.2309699292F * s,
                       -1.2684380046F * l + 2.6097574011F * m - 0.3413193965F * s,
                       -0.0041960863F * l - 0.7034186147F * m + 1.7076147010F * s};
  return {std::clamp(light[0], 0.0F, 1.0F), std::clamp(light[1], 0.0F, 1.0F),
          std::clamp(light[2], 0.0F, 1.0F)};
}

constexpr float lightest = 0.93F;
constexpr float darkest = 0.46F;
constexpr Perceived below = {darkest, -0.025F, -0.165F};
constexpr Perceived above = {darkest, 0.155F, 0.080F};
constexpr Perceived withoutValue = {0.62F, 0.0F, 0.0F};

Perceived perceived(float position) {
  if (std::isnan(position)) {
    return withoutValue;
  }
  const float distance = std::min(std::abs(position), 1.0F);
  const Perceived& end = position < 0 ? below : above;
  // The peak of lightness is blunt, so that zero is not seen as a line.
  const float fall = distance * (0.3F + 0.7F * distance);
  const float saturation = distance * (1.35F - 0.35F * distance);
  return {lightest + (end.lightness - lightest) * fall, end.redGreen * saturation,
          end.yellowBlue * saturation};
}

constexpr int half = 512;
constexpr std::size_t entries = 2 * half + 1;
using Table = std::array<Light, entries>;

Table makeTable() {
  Table table{};
  for (std::size_t entry = 0; entry < entries; ++entry) {
    table[entry] = toLight(perceived(static_cast<float>(entry) / half - 1));
  }
  return table;
}

float encoded(float light) {
  return light <= 0.0031308F ? 12.92F * light : 1.055F * std::pow(light, 1.0F / 2.4F) - 0.055F;
}

float decoded(float level) {
  return level <= 0.04045F ? level / 12.92F : std::pow((level + 0.055F) / 1.055F, 2.4F);
}

constexpr int levels = 4096;

std::array<float, levels + 1> makeLevels() {
  std::array<float, levels + 1> table{};
  for (int entry = 0; entry <= levels; ++entry) {
    table[static_cast<std::size_t>(entry)] = 255 * encoded(static_cast<float>(entry) / levels);
  }
  return table;
}

}  // namespace

Light lightOf(float position) {
  static const Table table = makeTable();
  static const Light none = toLight(withoutValue);
  if (std::isnan(position)) {
    return none;
  }
  const float clamped = std::clamp(position, -1.0F, 1.0F);
  return table[static_cast<std::size_t>(std::lround(clamped * half) + half)];
}

QColor colourOf(float position) {
  const Light light = lightOf(position);
  return {screenLevel(light[0]), screenLevel(light[1]), screenLevel(light[2])};
}

int screenLevel(float light, float shift) {
  static const auto table = makeLevels();
  const float entry = std::clamp(light, 0.0F, 1.0F) * levels + 0.5F;
  const float level = table[static_cast<std::size_t>(entry)] + shift + 0.5F;
  return static_cast<int>(std::clamp(level, 0.0F, 255.0F));
}

Light lightOf(const QColor& colour) {
  return {decoded(static_cast<float>(colour.redF())), decoded(static_cast<float>(colour.greenF())),
          decoded(static_cast<float>(colour.blueF()))};
}

}  // namespace Viewer

#include "camera.h"

#include <algorithm>
#include <cmath>

namespace Viewer {

namespace {

constexpr float openingAngle = 28;  // degrees; near to how one holds a small part
constexpr float margin = 1.08F;
constexpr float closest = 0.02F;
constexpr float farthest = 100;

float radians(float degrees) {
  return degrees * 3.14159265F / 180;
}

/// How many pixels something takes that is as wide as it is far away.
float focalOf(const QSizeF& size) {
  const auto smaller = static_cast<float>(std::min(size.width(), size.height()));
  return smaller / 2 / std::tan(radians(openingAngle / 2));
}

void add(Vector& sum, const Vector& direction, float factor) {
  sum.x += direction.x * factor;
  sum.y += direction.y * factor;
  sum.z += direction.z * factor;
}

/// How much of a direction of the picture the points take: the slopes of the outermost rays from
/// the eye to them.
struct Span {
  float least = 0;
  float most = 0;

  void take(float slope) {
    least = std::min(least, slope);
    most = std::max(most, slope);
  }
};

}  // namespace

std::array<Vector, 3> Camera::axes() const {
  const float yaw = radians(_yaw);
  const float pitch = radians(_pitch);
  const Vector right = {std::cos(yaw), 0, std::sin(yaw)};
  const Vector back = {-std::sin(yaw) * std::cos(pitch), std::sin(pitch),
                       std::cos(yaw) * std::cos(pitch)};
  const Vector up = {std::sin(yaw) * std::sin(pitch), std::cos(pitch),
                     -std::cos(yaw) * std::sin(pitch)};
  return {right, up, back};
}

void Camera::look(Standpoint from) {
  struct Direction {
    float yaw;
    float pitch;
  };
  static constexpr Direction directions[] = {{-24, 14}, {0, 0},  {180, 0}, {90, 0},
                                             {-90, 0},  {0, 90}, {0, -90}};
  const Direction& direction = directions[static_cast<int>(from)];
  _yaw = direction.yaw;
  _pitch = direction.pitch;
}

void Camera::fit(const Model& model, const QSizeF& size, const QSizeF& frame) {
  const float slopesPerPixel = 1 / focalOf(size);
  const auto width = static_cast<float>(frame.width()) * slopesPerPixel;
  const auto height = static_cast<float>(frame.height()) * slopesPerPixel;
  const std::array<Vector, 3> axes = this->axes();
  _target = {};
  _distance = 4;
  // The middle of what is seen depends on the distance and this on that; both settle quickly.
  for (int round = 0; round < 4; ++round) {
    Span across;
    Span upright;
    for (const Vector& point : model.points) {
      Vector seen = point;
      add(seen, _target, -1);
      const float depth = std::max(_distance - dot(axes[2], seen), 0.01F);
      across.take(dot(axes[0], seen) / depth);
      upright.take(dot(axes[1], seen) / depth);
    }
    add(_target, axes[0], (across.least + across.most) / 2 * _distance);
    add(_target, axes[1], (upright.least + upright.most) / 2 * _distance);
    const float fill =
        std::max((across.most - across.least) / width, (upright.most - upright.least) / height);
    _distance = std::clamp(_distance * fill * margin, 1.02F, farthest);
  }
}

void Camera::turn(double degreesRight, double degreesDown) {
  _yaw = std::remainder(_yaw + static_cast<float>(degreesRight), 360.0F);
  _pitch = std::clamp(_pitch + static_cast<float>(degreesDown), -90.0F, 90.0F);
}

void Camera::zoom(double factor) {
  _distance = std::clamp(_distance / static_cast<float>(factor), closest, farthest);
}

void Camera::move(const QPointF& offset) {
  const std::array<Vector, 3> axes = this->axes();
  const float width = 2 * _distance * std::tan(radians(openingAngle / 2));
  add(_target, axes[0], -width * static_cast<float>(offset.x()));
  add(_target, axes[1], width * static_cast<float>(offset.y()));
}

Projection Camera::projection(const QSizeF& size, const QPointF& middle) const {
  Projection projection;
  projection.axes = axes();
  projection.target = _target;
  projection.distance = _distance;
  projection.focal = focalOf(size);
  projection.middleX = static_cast<float>(middle.x());
  projection.middleY = static_cast<float>(middle.y());
  return projection;
}

}  // namespace Viewer

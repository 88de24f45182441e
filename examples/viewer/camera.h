/// \file
/// Where the scan is seen from.
#pragma once

#include "model.h"

#include <QPointF>
#include <QSizeF>

#include <array>
#include <optional>

namespace Viewer {

/// How places of the model come to places of a picture.
struct Projection {
  std::array<Vector, 3> axes;  ///< right, up and towards the eye, seen from the model
  Vector target;               ///< the point that the eye looks at
  float distance = 1;          ///< from the eye to the target
  float focal = 1;             ///< pixels of something as wide as it is far away
  float middleX = 0;           ///< pixels; where the target is seen
  float middleY = 0;

  /// A direction of the model as the eye sees it: x to the right, y up, z towards the eye.
  Vector turned(const Vector& direction) const {
    return {dot(axes[0], direction), dot(axes[1], direction), dot(axes[2], direction)};
  }
};

/// Views that people ask for by name.
enum class Standpoint { Oblique, Front, Back, Left, Right, Top, Bottom };

/// An eye that turns about a point of the scan, with the model's y axis always upright.
class Camera {
 public:
  /// Goes to a standpoint; the point that is looked at and the distance stay.
  void look(Standpoint from);
  /// Comes so near that the whole model is just seen, its middle in the middle.
  /// \param size of the picture in pixels
  /// \param frame the size of the part of the picture that it shall fill
  void fit(const Model& model, const QSizeF& size, const QSizeF& frame);
  /// Turns the model as a finger does that pushes it to the right and downwards.
  void turn(double degreesRight, double degreesDown);
  /// \param factor above 1 comes nearer
  void zoom(double factor);
  /// Moves the model in the plane of the picture.
  /// \param offset in parts of the smaller side of the picture
  void move(const QPointF& offset);

  /// \param size of the picture in pixels
  /// \param middle where the target is to be seen, in pixels
  Projection projection(const QSizeF& size, const QPointF& middle) const;

 private:
  std::array<Vector, 3> axes() const;

  float _yaw = 0;       // degrees
  float _pitch = 0;     // degrees, -90 to 90
  float _distance = 4;  // the model's radius is 1
  Vector _target;
};

}  // namespace Viewer

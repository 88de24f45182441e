/// \file
/// Surfaces whose curvature is known.
#pragma once

#include "surface/mesh.h"

#include <QByteArray>

namespace KyrTest {

/// A square of 2 mm with the height bend * (x² + y²) / 2 over its middle: the mean curvature there
/// is -bend. It faces along the third axis.
/// \param steps of the grid along each side
inline Surface::Mesh curvedSquare(double bend, unsigned steps = 24) {
  Surface::Mesh mesh;
  for (unsigned row = 0; row <= steps; ++row) {
    for (unsigned column = 0; column <= steps; ++column) {
      const double x = 2.0 * column / steps - 1;
      const double y = 2.0 * row / steps - 1;
      mesh.points.push_back({x, y, bend * (x * x + y * y) / 2});
    }
  }
  for (unsigned row = 0; row < steps; ++row) {
    for (unsigned column = 0; column < steps; ++column) {
      const unsigned corner = row * (steps + 1) + column;
      mesh.triangles.push_back({corner, corner + 1, corner + steps + 2});
      mesh.triangles.push_back({corner, corner + steps + 2, corner + steps + 1});
    }
  }
  return mesh;
}

/// The text of an OBJ file.
inline QByteArray objOf(const Surface::Mesh& mesh) {
  QByteArray text;
  for (const Surface::Point& point : mesh.points) {
    text += "v " + QByteArray::number(point[0]) + ' ' + QByteArray::number(point[1]) + ' ' +
            QByteArray::number(point[2]) + '\n';
  }
  for (const Surface::Triangle& triangle : mesh.triangles) {
    text += "f " + QByteArray::number(triangle[0] + 1) + ' ' + QByteArray::number(triangle[1] + 1) +
            ' ' + QByteArray::number(triangle[2] + 1) + '\n';
  }
  return text;
}

}  // namespace KyrTest

/// \file
/// A scanned surface and its reader.
#pragma once

#include <kyr/log/KyrErrorLog.h>

#include <QString>

#include <array>
#include <cstdint>
#include <vector>

namespace Tour {

using Point = std::array<double, 3>;
using Triangle = std::array<std::uint32_t, 3>;  ///< indices of points, from 0

/// A surface of triangles; coordinates in millimetres.
struct Mesh {
  std::vector<Point> points;
  std::vector<Triangle> triangles;
};

/// What the reader met besides the mesh.
struct ReadingNotes {
  int lines = 0;         ///< data lines read
  int ignoredLines = 0;  ///< lines with keys that hold no geometry
};

/// Reads vertices ("v x y z") and faces ("f i j k ...", counted from 1, or from the end when
/// negative, each with optional "/..." behind it) of an OBJ file. Faces with more than three
/// corners are cut into triangles.
/// \param millimetresPerUnit what one unit of the file means
/// \param log receives a message for each of the first unknown keys, with file, line and text
/// \throws Kyr::Exception for a file that cannot be opened and for a damaged line, with file,
///         line and text: a measurement with a point missing is no measurement
Mesh readScan(const QString& fileName, double millimetresPerUnit, Kyr::ErrorLog& log,
              ReadingNotes& notes);

}  // namespace Tour

/// \file
/// The reader of scans.
#pragma once

#include "surface/mesh.h"

#include <kyr/log/KyrErrorLog.h>

#include <QString>

namespace Surface {

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
/// \throws Aborted when the abort flag is set
/// \threadsafety any thread; the log and the notes are the caller's
Mesh readScan(const QString& fileName, double millimetresPerUnit, Kyr::ErrorLog& log,
              ReadingNotes& notes);

}  // namespace Surface

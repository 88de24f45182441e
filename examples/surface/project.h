/// \file
/// The examples' project file: a mesh in a compressed stream.
#pragma once

#include "surface/mesh.h"
#include "surface/scan.h"

#include <QString>

#include <vector>

namespace Surface {

/// Version of the content that these programs write, and the newest that they read.
constexpr unsigned projectVersion = 1;

/// The bytes of a mesh, the same on every machine: the counts of points and triangles as
/// 64-bit integers, then three IEEE 754 doubles for each point and three 32-bit indices for
/// each triangle, all little-endian.
/// \throws Aborted when the abort flag is set
std::vector<char> toBytes(const Mesh& mesh);

/// The mesh that toBytes() wrote.
/// \throws Kyr::Exception for counts that do not fit the number of bytes, coordinates that are
///         not finite and indices without a point
/// \throws Aborted when the abort flag is set
Mesh fromBytes(const std::vector<char>& content);

/// Writes bytes into a project file, in place of one of that name only when all is written.
/// \throws Kyr::Exception when it could not be written; an older file then stands as it was
/// \throws Aborted when the abort flag is set; the same holds
void writeProject(const QString& fileName, const std::vector<char>& content);

/// What reading a project file came to.
struct Reading {
  std::vector<char> content;  ///< all that was read before the end or the damage
  QString problem;            ///< empty when the file was whole
  QString written;            ///< the local time in the header; empty without a good header
};

/// Reads a project file whole.
/// \param newestVersion the newest version of the content that the caller understands
/// \throws Aborted when the abort flag is set
Reading readProject(const QString& fileName, unsigned newestVersion = projectVersion);

/// Reads a mesh from a project file or from an OBJ file, told apart by their first bytes.
/// \param millimetresPerUnit what one unit of an OBJ file means; a project is in millimetres
/// \param log, notes as for readScan(), which a project leaves alone
/// \throws Kyr::Exception when the file is missing, damaged or holds no triangle
/// \throws Aborted when the abort flag is set
/// \threadsafety any thread; the log and the notes are the caller's
Mesh readSurface(const QString& fileName, double millimetresPerUnit, Kyr::ErrorLog& log,
                 ReadingNotes& notes);

}  // namespace Surface

/// \file
/// The examples' project file: a mesh in a compressed stream.
#pragma once

#include "surface/mesh.h"
#include "surface/scan.h"

#include <QString>

#include <cstddef>
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

/// A part of the content that a damaged file does not hold any more.
struct Gap {
  std::size_t begin = 0;
  std::size_t end = 0;  ///< behind its last byte
};

/// What is left of a mesh.
struct Rest {
  Mesh mesh;
  std::size_t lostPoints = 0;
  std::size_t lostTriangles = 0;  ///< those with a lost corner included
};

/// As fromBytes(), without what touches a gap.
/// \param gaps in order; what stands there in \a content does not matter
/// \throws Kyr::Exception also when the counts are lost
Rest restFromBytes(const std::vector<char>& content, const std::vector<Gap>& gaps);
/// How many points and triangles are lost, in words.
QString missingOf(const Rest& rest);

/// Writes bytes into a project file, in place of one of that name only when all is written.
/// \throws Kyr::Exception when it could not be written; an older file then stands as it was
/// \throws Aborted when the abort flag is set; the same holds
void writeProject(const QString& fileName, const std::vector<char>& content);

/// What reading a project file came to.
struct Reading {
  std::vector<char> content;  ///< all that was read; zeros in the gaps
  std::vector<Gap> gaps;      ///< what is lost of it, in order
  bool isChecked = false;     ///< whether all but the gaps is known to be what was written
  QString problem;            ///< empty when the file was whole
  QString written;            ///< the local time in the header; empty without a good header
};

/// Reads a project file whole. Of a damaged one that was written in pieces all other pieces are
/// read, of one that was not what stands before the damage.
/// \param newestVersion the newest version of the content that the caller understands
/// \throws Aborted when the abort flag is set
Reading readProject(const QString& fileName, unsigned newestVersion = projectVersion);

/// Reads a mesh from a project file or from an OBJ file, told apart by their first bytes. Of a
/// damaged project what is left is read when that is known to be good.
/// \param millimetresPerUnit what one unit of an OBJ file means; a project is in millimetres
/// \param log as for readScan(); of a damaged project it says what is missing
/// \param notes as for readScan(); a project leaves them alone
/// \throws Kyr::Exception when the file is missing or holds no triangle, and for other damage
/// \throws Aborted when the abort flag is set
/// \threadsafety any thread; the log and the notes are the caller's
Mesh readSurface(const QString& fileName, double millimetresPerUnit, Kyr::ErrorLog& log,
                 ReadingNotes& notes);

}  // namespace Surface

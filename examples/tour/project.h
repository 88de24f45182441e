/// \file
/// The tour's project file: a mesh in a compressed stream.
#pragma once

#include "scan.h"

#include <QString>

#include <vector>

namespace Tour {

/// Version of the content that this program writes, and the newest that it reads.
constexpr unsigned projectVersion = 1;

/// The bytes of a mesh, the same on every machine: the counts of points and triangles as
/// 64-bit integers, then three IEEE 754 doubles for each point and three 32-bit indices for
/// each triangle, all little-endian.
std::vector<char> toBytes(const Mesh& mesh);

/// Writes bytes into a project file, in place of one of that name only when all is written.
/// \throws Kyr::Exception when it could not be written; an older file then stands as it was
void writeProject(const QString& fileName, const std::vector<char>& content);

/// What reading a project file came to.
struct Reading {
  std::vector<char> content;  ///< all that was read before the end or the damage
  QString problem;            ///< empty when the file was whole
  QString written;            ///< the local time in the header; empty without a good header
};

/// Reads a project file whole.
/// \param newestVersion the newest version of the content that the caller understands
Reading readProject(const QString& fileName, unsigned newestVersion = projectVersion);

}  // namespace Tour

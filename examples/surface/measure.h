/// \file
/// What is measured on a scan.
#pragma once

#include "surface/mesh.h"

#include <cstddef>

namespace Surface {

/// Sizes of a surface, in millimetres, square and cubic millimetres.
struct Measures {
  Point extent{};
  double area = 0;
  double volume = 0;          ///< enclosed; an open surface is closed over its middle
  std::size_t openEdges = 0;  ///< edges with a triangle on one side only
};

/// Measures a surface. An empty one has only zeros.
/// \throws Aborted when the abort flag is set
Measures measure(const Mesh& mesh);

}  // namespace Surface

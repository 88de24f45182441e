/// \file
/// Normals and curvatures of a surface, computed by several workers.
#pragma once

#include "surface/mesh.h"

#include <cstddef>
#include <vector>

namespace Surface {

/// What is known of every point of a mesh, in the order of its points.
struct Analysis {
  /// Smoothed unit normals, pointing outwards; zero for a point without a triangle of any area.
  std::vector<Point> normals;
  /// Mean curvature in 1/mm: 1/r on the outside of a sphere of radius r, 0 on a plane, negative
  /// in a hollow. NaN for a point without a normal.
  std::vector<double> curvature;
  std::size_t jobs = 0;  ///< how many jobs the workers shared
};

struct AnalysisOptions {
  unsigned workers = 0;          ///< threads; 0 takes one for each processor, 256 at most
  unsigned smoothingPasses = 2;  ///< how often normals become the mean of their neighbourhood
  int progressMin = 0;           ///< the part of the progress scale that the analysis fills
  int progressMax = 100;
};

/// The threads that analyse() starts with these options.
unsigned numberOfWorkers(const AnalysisOptions& options);

/// Computes normals and curvatures chunk by chunk in workers, and waits for them.
///
/// Kyr::Progress gets a forced text for each kind of work and moves from the lower to the upper
/// end of the range, never backwards, and to that end also when it is stopped; inside of a
/// Kyr::ProgressScope the analysis is a step of that. The caller resets it before and after. The
/// workers look at its abort flag all the time and end within some hundredths of a second.
///
/// Takes any triangles: those without area or with coordinates that are not finite count for
/// nothing, edges may have any number of sides. The cost is linear in points and triangles.
///
/// Normals are summed up with the weights of N. Max, "Weights for Computing Vertex Normals from
/// Facet Normals", Journal of Graphics Tools 4, 1999, and smoothed with those of M. Floater,
/// "Mean value coordinates", Computer Aided Geometric Design 20, 2003. The mean curvature is half
/// the divergence of the normals. On each triangle they are taken as linear between its corners,
/// as in S. Rusinkiewicz, "Estimating Curvatures and Their Derivatives on Triangle Meshes", 3DPVT
/// 2004; a point has the mean of its triangles, weighted by their areas. All are exact on
/// spheres but for the smoothing, whose error falls with the square of the size of triangles.
/// At an open edge, and as many rows inwards as there are passes of smoothing, normals lean
/// inwards and curvatures come out too small.
/// \param mesh indices must be valid
/// \throws Aborted when the abort flag was met
/// \throws Kyr::Exception when no thread could be started
/// \throws std::bad_alloc
/// \threadsafety one call at a time in the process, from any thread; not from the thread that
///               is to handle the progress events, which would come only after it
Analysis analyse(const Mesh& mesh, const AnalysisOptions& options = {});

/// How the curvatures of a surface are spread, in 1/mm; all zero when none is defined.
struct CurvatureStatistics {
  std::size_t defined = 0;    ///< points with a curvature; the others count nowhere below
  std::size_t undefined = 0;  ///< points without
  double mean = 0;
  double lowest = 0;
  double low = 0;  ///< 5 of 100 points lie below
  double median = 0;
  double high = 0;  ///< 5 of 100 points lie above
  double highest = 0;
};

/// Sums up curvatures; linear.
CurvatureStatistics curvatureStatistics(const std::vector<double>& curvature);

}  // namespace Surface

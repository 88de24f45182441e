/// \file
/// The tour's way to the analysis: workers compute, the main thread shows how far they are.
#pragma once

#include "page.h"
#include "surface/analysis.h"

namespace Tour {

/// What an analysis cost.
struct Cost {
  double userSeconds = 0;  ///< of all threads together
  double wallSeconds = 0;
};

/// Runs analyse() on a thread of its own, while this one handles its progress events: they move
/// a bar on a terminal; elsewhere each new text is printed as a row.
/// \throws what analyse() throws, and Kyr::Exception when its thread could not be started
/// \threadsafety the main thread, which needs an application object
Surface::Analysis analyseVisibly(const Surface::Mesh& mesh, const Surface::AnalysisOptions& options,
                                 Page& page, Cost& cost);

}  // namespace Tour

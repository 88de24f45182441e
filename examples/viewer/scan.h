/// \file
/// A scan with all that the program shows of it, and the thread that makes it from a file.
#pragma once

#include "model.h"

#include "surface/analysis.h"
#include "surface/measure.h"
#include "surface/mesh.h"

#include <kyr/sync/KyrThread.h>

#include <QString>

#include <cstddef>
#include <memory>
#include <vector>

namespace Viewer {

/// All that is shown of one file. Never changed once it was shared.
struct Scan {
  QString path;
  QString origin;  ///< kind and size of the file, in words
  std::size_t points = 0;
  std::size_t triangles = 0;
  Surface::Measures measures;
  Surface::CurvatureStatistics curvature;
  double range = 1;  ///< 1/mm; the colours go from minus this to plus this
  /// How many points have a curvature in each of equal parts of the range.
  std::vector<std::size_t> histogram;
  std::shared_ptr<const Model> model;
  QString remarks;  ///< what the reader met besides the mesh; empty for nothing
};

/// A file and how it is read.
struct Source {
  QString path;
  double millimetresPerUnit = 1;  ///< of an OBJ file
  unsigned copies = 1;            ///< how often the scan is repeated, side by side
};

enum class Outcome { Loaded, Failed, Aborted };

/// Reads a file and computes all of a scan. Reports to Kyr::Progress, which its starter resets
/// before, and ends early when the abort flag there is set.
class Loading : public Kyr::Thread {
 public:
  explicit Loading(const Source& source);

  /// Starts the thread.
  /// \return false when the system refuses; it then counts as failed
  bool begin();

  const Source& source() const { return _source; }

  // What follows is known when the thread has ended.

  Outcome outcome() const { return _outcome; }
  /// The scan when it was loaded, else null.
  std::shared_ptr<const Scan> scan() const { return _scan; }
  /// Why it failed.
  const QString& problem() const { return _problem; }

 protected:
  void run() override;

 private:
  const Source _source;
  Outcome _outcome = Outcome::Failed;
  std::shared_ptr<const Scan> _scan;
  QString _problem;
};

}  // namespace Viewer

/// \file
/// What the user asks of the tour.
#pragma once

#include "surface/analysis.h"

#include <kyr/units/KyrUnit.h>

#include <QString>
#include <QStringList>

namespace Tour {

/// The arguments of the command line, checked.
struct Options {
  QString scan;
  Kyr::Unit::Units_t unit = Kyr::Unit::Millimetre;  ///< what one unit of the scan is
  QString directory;
  QString archive;  ///< where everything is packed in the end
  unsigned copies = 1;
  Surface::AnalysisOptions analysis;

  /// The name of the project file that the scan becomes.
  QString project() const;
};

/// Reads the arguments of the program, its name first. Wrong ones end the process with code 2 and a
/// message; asking for help ends it with code 0.
Options parseArguments(const QStringList& arguments);

}  // namespace Tour

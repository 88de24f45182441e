/// \file
/// The ways in which a program can die of its own mistakes.
#pragma once

#include <QString>

namespace Crash {

/// A kind of mistake.
struct Fault {
  const char* kind;  ///< its name on the command line
  void (*commit)();  ///< does not return
  const char* what;  ///< one line of explanation
};

/// \return null when no kind has that name
const Fault* findFault(const QString& kind);

/// The kinds with their explanations, a line for each.
QString listOfFaults();

}  // namespace Crash

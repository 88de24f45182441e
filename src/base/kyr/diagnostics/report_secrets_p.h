/// \file
/// Secrets of command lines.
#pragma once

#include <QStringList>

namespace Kyr::Report {

/// The words of a command line as they may leave the machine.
/// \throws std::bad_alloc
QStringList blankArguments(const QStringList& arguments);

}  // namespace Kyr::Report

/// \file
/// What reports of crashes say of the program.
#pragma once

#include <QStringList>

namespace Kyr::Start {

/// Prepares it while the process is well.
/// \param arguments of the program, its name first
void describeProgram(const QStringList& arguments);

}  // namespace Kyr::Start

/// \file
/// What tests try of the report without the machine's own hardware.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/diagnostics/KyrSystemReport.h>

#include <QString>

namespace Kyr::Report {

/// Screens and graphics cards as the kernel's files tell them.
/// \param root the directory of these files, "/sys"
void describeDisplaysBelow(const QString& root, SystemReport::Section& section);

}  // namespace Kyr::Report

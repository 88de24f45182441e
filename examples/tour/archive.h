/// \file
/// The tour's end: all that it had and made in one archive.
#pragma once

#include "options.h"
#include "page.h"

#include <kyr/log/KyrErrorLog.h>

namespace Tour {

/// Packs the scan, the project file and the log so far into options.archive, which then stands
/// there whole or not at all, and shows what went in. A scan that is no plain file, such as a pipe,
/// is left out.
/// \throws Surface::Aborted when the abort flag is set
/// \throws Kyr::Exception when the archive cannot be written or a file cannot be read
void packArchive(const Options& options, const Kyr::ErrorLog& log, Page& page);

}  // namespace Tour

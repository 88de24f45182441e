/// \file
/// The commands of the tool. Each gives the exit code, and throws UsageError or FileError.
#pragma once

#include "arguments.h"

namespace KyrTool {

/// Converts a value: VALUE FROM TO.
int convert(const Arguments& arguments);
/// Lists the kinds of quantities, or the units of one.
int units(const Arguments& arguments);
/// Shows a zip stream's header and the statistics of its blocks.
int zipInfo(const Arguments& arguments);
/// Says whether a zip stream is complete, and if not, where it ends or is damaged.
int zipVerify(const Arguments& arguments);
/// Writes the content of a zip stream to standard output.
int zipCat(const Arguments& arguments);
/// Makes a zip stream of a file.
int zipPack(const Arguments& arguments);

}  // namespace KyrTool

/// \file
/// The program that reads debug information.
#pragma once

#include "crash_report.h"

#include <QString>

#include <cstdint>
#include <vector>

namespace KyrTool {

/// Asks for the functions and lines of addresses in one file.
/// \param fileName with debug information
/// \param addresses as the linker has placed them
/// \return for each address its places, the innermost inlined function first; none where nothing is
///         known
/// \throws FileError when there is no such program, or it cannot read the file; Kyr::Stopped
std::vector<std::vector<Place>> placesOf(const QString& fileName,
                                         const std::vector<std::uint64_t>& addresses);

}  // namespace KyrTool

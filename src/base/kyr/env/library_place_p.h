/// \file
/// Where the library itself is installed.
#pragma once

#include <QString>

namespace Kyr::Platform {

/// The directory in which the library lies, or the program that it is part of.
/// \return empty when the system does not tell
QString libraryDirectory();

}  // namespace Kyr::Platform

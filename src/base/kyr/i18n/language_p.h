/// \file
/// What the translator asks of the platforms.
#pragma once

#include <QString>

namespace Kyr::Platform {

/// The language of the system's interface, as a Windows language identifier: the low 10 bits are
/// the language, those above tell its varieties apart and are of no use here.
unsigned userInterfaceLanguage();

/// The directory in which the library lies, or the program that it is part of.
/// \return empty when the system does not tell
QString libraryDirectory();

}  // namespace Kyr::Platform

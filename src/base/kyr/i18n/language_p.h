/// \file
/// What the translator asks of the platforms.
#pragma once

namespace Kyr::Platform {

/// The language of the system's interface, as a Windows language identifier: the low 10 bits are
/// the language, those above tell its varieties apart and are of no use here.
unsigned userInterfaceLanguage();

}  // namespace Kyr::Platform

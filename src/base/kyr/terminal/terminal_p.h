/// \file
/// What a bar asks of the terminal; one whole file for each system.
#pragma once

#include <QString>

namespace Kyr::Platform {

/// How many characters fit into a line of the terminal on standard error.
/// \return 0 where that is no terminal
unsigned terminalWidth() noexcept;

/// Writes a text to standard error, in one piece; in the user's encoding, in UTF-8 on Windows.
void writeErrors(const QString& text) noexcept;

}  // namespace Kyr::Platform

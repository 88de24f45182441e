/// \file
/// What both families of logs do alike.
#pragma once

#include <QString>

namespace Kyr::LogOutput {

/// "0x" and at least eight hexadecimal digits.
QString addressText(const void* address);

/// Writes a message in the local 8-bit encoding and a line feed to std::cerr, and flushes it.
void echo(const QString& message);

}  // namespace Kyr::LogOutput

/// \file
/// What both families of logs do alike.
#pragma once

#include <kyr/log/KyrErrorLog.h>

#include <QString>

namespace Kyr::LogOutput {

/// "0x" and at least eight hexadecimal digits.
QString addressText(const void* address);

/// Has the flight recorder know of a message.
void note(const QString& message, const LogFeed& feed) noexcept;

/// Writes a message in the local 8-bit encoding and a line feed to std::cerr, and flushes it.
void echo(const QString& message);

}  // namespace Kyr::LogOutput

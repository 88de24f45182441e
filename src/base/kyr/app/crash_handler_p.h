/// \file
/// The handler that reports a crash before the process ends.
#pragma once

namespace Kyr::Crash {

/// Installs the handler for the whole process; a second call changes nothing.
void install() noexcept;

/// Says that the process writes to a console window of its own, which a crash keeps open until
/// the user has read the report.
void setConsoleAllocated(bool allocated) noexcept;

}  // namespace Kyr::Crash

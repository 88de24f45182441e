/// \file
/// The handler that reports a crash before the process ends.
#pragma once

namespace Kyr::Crash {

/// Installs the handler for the whole process; a second call only changes the name of the dump.
/// \param dumpFile the file for this process's dump with its whole path, in UTF-8; empty for none
void install(const char* dumpFile) noexcept;

/// Says that the process writes to a console window of its own, which a crash keeps open until
/// the user has read the report.
void setConsoleAllocated(bool allocated) noexcept;

}  // namespace Kyr::Crash

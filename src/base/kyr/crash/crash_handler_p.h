/// \file
/// The handler that reports a crash before the process ends.
#pragma once

#include <cstdint>

namespace Kyr::Crash {

/// Installs the handler for the whole process; a second call only changes the name of the dump.
/// \param dumpFile the file for this process's dump with its whole path, in UTF-8; empty for none
void install(const char* dumpFile) noexcept;

/// Says that the process writes to a console window of its own, which a crash keeps open until
/// the user has read the report.
void setConsoleAllocated(bool allocated) noexcept;

/// Remembers what reports say of the program; for the time before a crash.
/// \param lines each with its end, in UTF-8; at most 3000 bytes are kept
/// \param home the user's home directory with "/" between its parts, which reports write as "~";
///        empty for none
/// \param ignoresCase whether paths that differ in capitals only lead to the same file
void describeProgram(const char* lines, const char* home, bool ignoresCase) noexcept;

/// Has reports written to a file of the process's own, too; for the time before a crash.
/// \param file its whole path, in UTF-8; empty for none
void setReportFile(const char* file) noexcept;

/// What the person at the terminal reads when the report goes elsewhere, in UTF-8.
struct Notice {
  const char* beforeDump;  ///< the sentence up to the path of the dump
  const char* behindDump;  ///< the rest of it
  const char* withoutDump;
};
/// Remembers these texts, up to 1500 bytes of each; for the time before a crash.
void setNotice(const Notice& notice) noexcept;
/// Remembers where the notice is written once the report is done; without that it is not.
/// \param place an open descriptor, where the system has such, or a handle; stays open
void setPlaceOfNotice(std::intptr_t place) noexcept;

}  // namespace Kyr::Crash

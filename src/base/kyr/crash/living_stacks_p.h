/// \file
/// Where all threads stand, told by a process that lives on.
#pragma once

#include <QByteArray>

#include <cstdint>

namespace Kyr::Crash {

/// The backtraces of all threads but the calling one, with headings as in the report of a crash.
/// What fails is said in between. For one thread at a time.
/// \param hanging the system's number of the thread that comes first
/// \param alone leaves out all other threads
QByteArray stacksOfThreads(std::uint64_t hanging, bool alone);

/// The same, for several threads at once, which take turns.
QByteArray stacksInTurn(std::uint64_t hanging, bool alone);

/// Whether a debugger is attached to this process.
bool isDebugged() noexcept;

/// Keeps the signals of the application away from the calling thread, which is one of the library.
void keepSignalsAway() noexcept;

}  // namespace Kyr::Crash

/// \file
/// What the flight recorder holds, in a report.
#pragma once

#include <cstddef>

namespace Kyr::Crash {

/// Prints who holds which lock, if the lock doctor watches, and the last entries of the flight
/// recorder, the newest first, each with a heading; nothing where there is nothing. Uses no heap
/// and no lock. \param write where to
void printRecorder(void (*write)(const char* bytes, std::size_t length)) noexcept;

}  // namespace Kyr::Crash

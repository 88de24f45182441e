/// \file
/// What the flight recorder holds, in a report.
#pragma once

#include <cstddef>

namespace Kyr::Crash {

/// Prints the last entries of the flight recorder, the newest first, with a heading; nothing when
/// there are none. Uses no heap and no lock.
/// \param write where to
void printRecorder(void (*write)(const char* bytes, std::size_t length)) noexcept;

}  // namespace Kyr::Crash

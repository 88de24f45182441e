/// \file
/// The thread that runs, and what becomes of it when the process is copied.
#pragma once

#include <cstdint>

namespace Kyr::Platform {

/// The system's number of the calling thread; that of the process for its first one on Linux.
/// Copied processes have their own numbers once callAroundForks() has been called.
std::uint64_t threadNumber() noexcept;

/// Has functions called around each fork() from now on, on the thread that forks, where there is
/// such a thing.
void callAroundForks(void (*before)(), void (*inParent)(), void (*inChild)()) noexcept;

}  // namespace Kyr::Platform

/// \file
/// What the lock doctor, and reports of crashes, ask the system about threads.
#pragma once

#include <cstddef>
#include <cstdint>

namespace Kyr::Platform {

/// Has \a end called with \a data when the calling thread ends; a later call replaces the data. At
/// the end of the process it may not be called.
/// \param end the same function in every call
/// \return false when the system refuses
bool callAtThreadEnd(void (*end)(void* data), void* data) noexcept;

/// The name that the system knows of a thread of this process; empty if it has none. Uses no heap
/// of the process's own, and no lock. \param number as threadNumber() gives it
void threadName(std::uint64_t number, char* name, std::size_t size) noexcept;

}  // namespace Kyr::Platform

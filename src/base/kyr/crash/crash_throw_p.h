/// \file
/// Where an exception was thrown that nobody has caught.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace Kyr::Crash {

/// The return addresses of a stack, the innermost first.
struct CallChain {
  std::size_t count;
  std::array<std::uint64_t, 16> addresses;
};

/// Makes the calling thread remember, from now on, where it throws.
void watchThrows() noexcept;
/// Makes every thread remember it.
void watchAllThrows() noexcept;

/// Where the exception that the calling thread handles was thrown.
/// \return false when that was not watched
bool findThrow(CallChain& chain) noexcept;

/// The compiler's own function for a throw, which the library's stands in front of:
/// platform/crash_throw_posix.cpp and its fellow.
void* findThrowFunction() noexcept;

}  // namespace Kyr::Crash

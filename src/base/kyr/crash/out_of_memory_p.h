/// \file
/// What operator new throws when the handlers of the library find no memory.
#pragma once

#include <cstddef>
#include <new>

namespace Kyr {

/// Want of memory, with a text that is the same for every compiler's library.
class OutOfMemory : public std::bad_alloc {
 public:
  const char* what() const noexcept override { return "bad allocation"; }

  /// How much was asked for; 0 when that is not known.
  std::size_t bytes() const noexcept { return _bytes; }
  void setBytes(std::size_t bytes) noexcept { _bytes = bytes; }

 private:
  std::size_t _bytes = 0;
};

}  // namespace Kyr

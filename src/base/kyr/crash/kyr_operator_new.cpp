// Stands in front of the compiler's operator new, which tells nobody how much it was asked for when
// there is no memory. What it returns goes back through the compiler's operator delete to free().
#include <kyr/core/KyrPlatform.h>

#include <kyr/crash/out_of_memory_p.h>

#include <cstdlib>
#include <new>

namespace Kyr {

namespace {

/// Asks the process's handler to release memory.
/// \throws std::bad_alloc where there is no handler, and as the handler does
void findMemory(std::size_t size) {
  const std::new_handler handler = std::get_new_handler();
  if (!handler) {
    throw std::bad_alloc();
  }
  try {
    handler();
  } catch (OutOfMemory& failure) {
    failure.setBytes(size);
    throw;
  }
}

}  // namespace

}  // namespace Kyr

// NOLINTNEXTLINE(misc-new-delete-overloads): see the top of the file
KYR_EXPORT void* operator new(std::size_t size) {
  const std::size_t needed = size > 0 ? size : 1;
  void* block = std::malloc(needed);
  while (!block) {
    Kyr::findMemory(size);
    block = std::malloc(needed);
  }
  return block;
}

// NOLINTNEXTLINE(misc-new-delete-overloads): see the top of the file
KYR_EXPORT void* operator new[](std::size_t size) {
  return operator new(size);
}

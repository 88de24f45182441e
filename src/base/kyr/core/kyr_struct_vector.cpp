#include <kyr/core/KyrStructVector.h>

#include <cstdlib>

namespace Kyr {

void* reallocateStorage(void* block, std::size_t bytes) {
  if (bytes == 0) {
    std::free(block);
    return nullptr;
  }
  for (;;) {
    if (void* const moved = std::realloc(block, bytes)) {
      return moved;
    }
    const std::new_handler handler = std::get_new_handler();
    if (!handler) {
      throw std::bad_alloc();
    }
    handler();
  }
}

}  // namespace Kyr

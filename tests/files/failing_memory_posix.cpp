// Takes the place of operator new in the whole program, libraries included.
#include "files/FailingMemory.h"

#include <atomic>
#include <cstdlib>
#include <new>

namespace {

std::atomic<long> left{-1};
std::atomic<bool> failed{false};

}  // namespace

void KyrTest::failAfter(long calls) {
  failed = false;
  left = calls;
}

bool KyrTest::hasFailed() {
  return failed;
}

void* operator new(std::size_t size) {
  failed = failed || left == 0;
  left -= left > 0 ? 1 : 0;
  void* const memory = failed ? nullptr : std::malloc(size);
  if (!memory) {
    throw std::bad_alloc();
  }
  return memory;
}

void operator delete(void* memory) noexcept {
  std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept {
  std::free(memory);
}

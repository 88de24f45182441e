#include "Threads.h"

#include <cerrno>

#include <dlfcn.h>
#include <pthread.h>

std::atomic<bool> KyrTest::threadsAreOut{false};

/// Stands in front of the system's function of this name, for threads of everybody.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): theirs are reserved
extern "C" [[gnu::visibility("default")]] int pthread_create(pthread_t* thread,
                                                             const pthread_attr_t* attributes,
                                                             void* (*function)(void*),
                                                             void* argument) noexcept {
  static const auto create =
      reinterpret_cast<decltype(&pthread_create)>(::dlsym(RTLD_NEXT, "pthread_create"));
  return KyrTest::threadsAreOut ? EAGAIN : create(thread, attributes, function, argument);
}

#include <kyr/core/KyrPlatform.h>
#include <kyr/crash/crash_posix_p.h>
#include <kyr/sync/thread_start_p.h>

#include <new>

#include <dlfcn.h>
#include <pthread.h>
#include <sys/mman.h>

namespace Kyr {

namespace {

/// Bytes behind a stack for signals, for the mark.
constexpr std::size_t markSize = 64;
/// Bytes of a stack for signals; the application's fatal-error hook runs on it, too.
constexpr std::size_t stackSize = (std::size_t{256} << 10) - markSize;
constexpr std::size_t guardSize = 4096;
constexpr std::size_t wholeSize = guardSize + stackSize + markSize;

std::atomic<bool> prepared{false};

/// Stands behind the end of a stack for signals, and tells where its thread runs otherwise.
struct Mark {
  std::uintptr_t signalStack;
  std::uintptr_t inOwnStack;  ///< an address in the thread's own stack
};

std::uintptr_t numberOf(const void* address) noexcept {
  return reinterpret_cast<std::uintptr_t>(address);
}

/// Gives the thread a stack for signals, unless the application has given it one.
/// \return null where there is none to be had
void* makeStack() noexcept {
  stack_t present = {};
  if (::sigaltstack(nullptr, &present) != 0 || (present.ss_flags & SS_DISABLE) == 0) {
    return nullptr;
  }
  void* const memory = ::mmap(nullptr, wholeSize, PROT_READ | PROT_WRITE,
                              MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  if (memory == MAP_FAILED) {
    return nullptr;
  }
  char* const begin = static_cast<char*>(memory);
  ::mprotect(begin, guardSize, PROT_NONE);
  stack_t own = {};
  own.ss_sp = begin + guardSize;
  own.ss_size = stackSize;
  const Mark mark{numberOf(own.ss_sp), numberOf(__builtin_frame_address(0))};
  std::memcpy(begin + guardSize + stackSize, &mark, sizeof mark);
  ::sigaltstack(&own, nullptr);
  return memory;
}

void removeStack(void* memory) noexcept {
  stack_t present = {};
  if (::sigaltstack(nullptr, &present) == 0 &&
      present.ss_sp == static_cast<char*>(memory) + guardSize) {
    stack_t none = {};
    none.ss_flags = SS_DISABLE;
    ::sigaltstack(&none, nullptr);
  }
  ::munmap(memory, wholeSize);
}

/// Removes the stack of a thread at its end. A variable of the thread with a destructor would need
/// memory when it begins, and without memory the C library ends the process.
struct StackKey {
  StackKey() noexcept : isMade(::pthread_key_create(&key, &removeStack) == 0) {}
  pthread_key_t key = 0;
  bool isMade;
};

void prepareThisThread() noexcept {
  static const StackKey stack;
  if (stack.isMade && ::pthread_getspecific(stack.key) == nullptr) {
    if (void* const memory = makeStack()) {
      ::pthread_setspecific(stack.key, memory);
    }
  }
}

void prepareThreadOfSuite() {
  prepareThisThread();
  Crash::watchThrows();
}

/// The function that a thread is started for, and its argument.
struct Task {
  void* (*function)(void*);
  void* argument;
};

void* runPrepared(void* given) {
  const Task task = *static_cast<Task*>(given);
  delete static_cast<Task*>(given);
  prepareThisThread();
  return task.function(task.argument);
}

}  // namespace

void Crash::prepareStacks() noexcept {
  prepareThisThread();
  setThreadStartHook(&prepareThreadOfSuite);
  prepared = true;
}

bool Crash::findStack(const ucontext_t& context, const Memory& memory, Mapping& stack) noexcept {
  const std::uintptr_t begin = numberOf(context.uc_stack.ss_sp);
  Mark mark{};
  return memory.read(begin + context.uc_stack.ss_size, &mark, sizeof mark) &&
         mark.signalStack == begin && memory.find(mark.inOwnStack, stack) &&
         stack.begin <= mark.inOwnStack;
}

}  // namespace Kyr

/// Stands in front of the C library's function of this name, and gives each thread a stack for
/// signals: without that, an overflow of the thread's own stack cannot be reported. Other libraries
/// start threads as well.
// NOLINTNEXTLINE(readability-inconsistent-declaration-parameter-name): theirs are reserved
extern "C" KYR_EXPORT int pthread_create(pthread_t* thread, const pthread_attr_t* attributes,
                                         void* (*function)(void*), void* argument) noexcept {
  static const auto create =
      reinterpret_cast<decltype(&pthread_create)>(::dlsym(RTLD_NEXT, "pthread_create"));
  auto* task = Kyr::prepared ? new (std::nothrow) Kyr::Task{function, argument} : nullptr;
  if (!task) {
    return create(thread, attributes, function, argument);
  }
  const int result = create(thread, attributes, &Kyr::runPrepared, task);
  if (result != 0) {
    delete task;
  }
  return result;
}

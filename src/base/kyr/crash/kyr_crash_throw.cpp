// Remembers where exceptions were thrown. On Linux that is done in threads of the suite: Qt catches
// whatever leaves run() and ends the process only then, when the stack of the throw is gone, unlike
// in other threads. On Windows it is done in all of them, as frames of the C++ library stand
// between the throw and the end that, with 32 bits, only its unwind tables lead through.
#include <kyr/core/KyrPlatform.h>
#include <kyr/crash/crash_throw_p.h>

#include <atomic>
#include <cstring>
#include <exception>
#include <typeinfo>

#include <unwind.h>

namespace Kyr {

namespace {

/// The last throw of a thread.
struct Throw {
  bool watched = false;
  const void* object = nullptr;
  Crash::CallChain chain{};
};

thread_local Throw lastThrow;
std::atomic<bool> areAllWatched{false};

_Unwind_Reason_Code addCaller(_Unwind_Context* context, void* given) {
  auto& chain = *static_cast<Crash::CallChain*>(given);
  const std::uint64_t address = _Unwind_GetIP(context);
  if (chain.count == chain.addresses.size() || address == 0) {
    return _URC_END_OF_STACK;
  }
  chain.addresses[chain.count++] = address;
  return _URC_NO_REASON;
}

/// The object that was thrown, which is all that the standard library's pointer holds.
const void* currentObject() noexcept {
  const std::exception_ptr current = std::current_exception();
  static_assert(sizeof current == sizeof(void*));
  const void* object = nullptr;
  // NOLINTNEXTLINE(bugprone-undefined-memory-manipulation): the pointer is only read
  std::memcpy(&object, &current, sizeof object);
  return object;
}

}  // namespace

void Crash::watchThrows() noexcept {
  lastThrow.watched = true;
}

void Crash::watchAllThrows() noexcept {
  areAllWatched = true;
}

bool Crash::findThrow(CallChain& chain) noexcept {
  if (!lastThrow.object || currentObject() != lastThrow.object) {
    return false;
  }
  chain = lastThrow.chain;
  return true;
}

}  // namespace Kyr

/// Stands in front of the compiler's function of this name, and remembers the throw.
extern "C" KYR_EXPORT void __cxa_throw(void* object, std::type_info* type,
                                       void (*destructor)(void*)) {
  using Function = void (*)(void*, std::type_info*, void (*)(void*));
  static const auto next = reinterpret_cast<Function>(Kyr::Crash::findThrowFunction());
  Kyr::Throw& last = Kyr::lastThrow;
  if (last.watched || Kyr::areAllWatched) {
    last.object = object;
    last.chain.count = 0;
    _Unwind_Backtrace(&Kyr::addCaller, &last.chain);
  }
  next(object, type, destructor);
  __builtin_unreachable();
}

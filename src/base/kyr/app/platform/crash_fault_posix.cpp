#include <kyr/app/crash_posix_p.h>

#include <algorithm>

namespace Kyr {

namespace {

using Crash::Fault;
using Crash::Mapping;
using Crash::Memory;

/// The processor pushes, and functions address, this near to the stack pointer in most frames.
constexpr std::uint64_t usualFrame = 64U << 10;
/// Where even the stack pointer has left the stack, one frame may reach so far.
constexpr std::uint64_t biggestFrame = 8U << 20;

constexpr Fault named(const char* name) noexcept {
  return {name, 0, false, false, 0};
}

constexpr Fault numbered(std::uint32_t code) noexcept {
  return {nullptr, code, false, false, 0};
}

constexpr Fault access(bool write, std::uint64_t address) noexcept {
  return {"EXCEPTION_ACCESS_VIOLATION", 0, true, write, address};
}

/// Whether an address around the stack pointer has no memory because the stack ends above it.
bool isStackOverflow(std::uint64_t address, std::uint64_t stack, const Memory& memory) noexcept {
  Mapping above{};
  const bool isOutside = !memory.find(stack, above) || stack < above.begin;
  const std::uint64_t reach = isOutside ? biggestFrame : usualFrame;
  const std::uint64_t distance = address > stack ? address - stack : stack - address;
  return distance <= reach && memory.find(address, above) && address < above.begin &&
         above.begin - std::min(address, stack) <= biggestFrame;
}

/// The processor refuses privileged instructions and addresses that cannot exist in the same
/// way, and names no address; other systems show the highest one.
Fault protectionFault(const ucontext_t& context, const Memory& memory) noexcept {
  std::array<unsigned char, 2> code{};
  if (memory.read(Crash::instructionPointer(context), code.data(), code.size()) &&
      Crash::isPrivileged(code)) {
    return named("EXCEPTION_PRIV_INSTRUCTION");
  }
  return access(false, ~std::uint64_t{0});
}

Fault segmentFault(const siginfo_t& signal, const ucontext_t& context,
                   const Memory& memory) noexcept {
  if (Crash::isProtectionFault(context)) {
    return protectionFault(context, memory);
  }
  const auto address = static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(signal.si_addr));
  if (isStackOverflow(address, Crash::stackPointer(context), memory)) {
    return named("EXCEPTION_STACK_OVERFLOW");
  }
  return access(Crash::isWrite(context), address);
}

Fault arithmeticFault(int code, const ucontext_t& context) noexcept {
  switch (code) {
    case FPE_INTDIV:
      return named("EXCEPTION_INT_DIVIDE_BY_ZERO");
    case FPE_INTOVF:
      return named("EXCEPTION_INT_OVERFLOW");
    case FPE_FLTDIV:
      return named("EXCEPTION_FLT_DIVIDE_BY_ZERO");
    case FPE_FLTOVF:
      return named("EXCEPTION_FLT_OVERFLOW");
    case FPE_FLTUND:
      return named(Crash::isDenormalOperand(context) ? "EXCEPTION_FLT_DENORMAL_OPERAND"
                                                     : "EXCEPTION_FLT_UNDERFLOW");
    case FPE_FLTRES:
      return named("EXCEPTION_FLT_INEXACT_RESULT");
    case FPE_FLTINV:
      return named(Crash::isFloatStackFault(context) ? "EXCEPTION_FLT_STACK_CHECK"
                                                     : "EXCEPTION_FLT_INVALID_OPERATION");
    case FPE_FLTSUB:
      return named("EXCEPTION_ARRAY_BOUNDS_EXCEEDED");
    default:
      return numbered(SIGFPE);
  }
}

}  // namespace

Crash::Fault Crash::classify(const siginfo_t& signal, const ucontext_t& context,
                             const Memory& memory) noexcept {
  if (signal.si_signo == SIGABRT) {
    return numbered(abortCode);
  }
  // Somebody sent it: nothing is known of any access or instruction.
  if (signal.si_code <= 0) {
    return numbered(static_cast<std::uint32_t>(signal.si_signo));
  }
  switch (signal.si_signo) {
    case SIGSEGV:
      return segmentFault(signal, context, memory);
    case SIGBUS:
      return named(signal.si_code == BUS_ADRALN ? "EXCEPTION_DATATYPE_MISALIGNMENT"
                                                : "EXCEPTION_IN_PAGE_ERROR");
    case SIGFPE:
      return arithmeticFault(signal.si_code, context);
    case SIGILL:
      return named(signal.si_code == ILL_PRVOPC || signal.si_code == ILL_PRVREG
                       ? "EXCEPTION_PRIV_INSTRUCTION"
                       : "EXCEPTION_ILLEGAL_INSTRUCTION");
    case SIGTRAP:
      return named(signal.si_code == TRAP_TRACE ? "EXCEPTION_SINGLE_STEP" : "EXCEPTION_BREAKPOINT");
    default:
      return numbered(static_cast<std::uint32_t>(signal.si_signo));
  }
}

}  // namespace Kyr

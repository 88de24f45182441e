#include <kyr/crash/crash_posix_p.h>

#include <algorithm>
#include <cstring>

#include <unistd.h>

namespace Kyr {

namespace {

using Crash::Fault;
using Crash::Mapping;
using Crash::Memory;
using Crash::Text;

/// In most frames the processor pushes, and functions address, within so many bytes of the stack
/// pointer.
constexpr std::uint64_t usualFrame = 64U << 10;
/// Where even the stack pointer has left a stack, one frame may reach so far: a bigger one is taken
/// for a stack pointer that was overwritten.
constexpr std::uint64_t biggestFrame = 8U << 20;
/// How far one frame may reach below the thread's own stack, whose place is known: as far as one
/// instruction can take it.
constexpr std::uint64_t biggestOwnFrame = std::uint64_t{2} << 30;

constexpr Fault named(const char* name) noexcept {
  return {name, 0, false, false, 0};
}

constexpr Fault numbered(std::uint32_t code) noexcept {
  return {nullptr, code, false, false, 0};
}

constexpr Fault access(bool write, std::uint64_t address) noexcept {
  return {"EXCEPTION_ACCESS_VIOLATION", 0, true, write, address};
}

/// Whether an address without memory belongs to a frame for which the thread's stack has no room.
/// The stack pointer may be anywhere below then, also where other memory happens to be.
bool isBelow(const Mapping& stack, std::uint64_t address, std::uint64_t top) noexcept {
  const std::uint64_t lowest = std::max(top, usualFrame) - usualFrame;
  return top < stack.end && address >= lowest && address < stack.begin &&
         stack.begin - address <= biggestOwnFrame;
}

/// Whether an address around the stack pointer has no memory because some stack ends above it.
bool isBelowAnyStack(std::uint64_t address, std::uint64_t stack, const Memory& memory) noexcept {
  Mapping above{};
  const bool isOutside = !memory.find(stack, above) || stack < above.begin;
  const std::uint64_t reach = isOutside ? biggestFrame : usualFrame;
  const std::uint64_t distance = address > stack ? address - stack : stack - address;
  return distance <= reach && memory.find(address, above) && address < above.begin &&
         above.begin - std::min(address, stack) <= biggestFrame;
}

bool isStackOverflow(std::uint64_t address, const ucontext_t& context,
                     const Memory& memory) noexcept {
  const std::uint64_t top = Crash::stackPointer(context);
  Mapping own{};
  Mapping above{};
  const bool isFree = memory.find(address, above) && address < above.begin;
  return (isFree && Crash::findStack(context, memory, own) && isBelow(own, address, top)) ||
         isBelowAnyStack(address, top, memory);
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
  if (isStackOverflow(address, context, memory)) {
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

/// Whether somebody sent the signal: it has no cause in an access or an instruction.
bool isSent(const siginfo_t& signal) noexcept {
  return signal.si_code <= 0;
}

/// Whether the system says which process sent it.
bool hasSender(const siginfo_t& signal) noexcept {
  return signal.si_code == SI_USER || signal.si_code == SI_TKILL || signal.si_code == SI_QUEUE;
}

/// Appends the system's name of a process; nothing when that has ended already.
void appendProcessName(Text& text, pid_t process) noexcept {
  Text path;
  path << "/proc/";
  path.decimal(process) << "/comm";
  std::array<char, 64> name{};
  const std::size_t length = Crash::readSystemFile(path.data(), name.data(), name.size());
  // The name ends with a line feed, and may hold others: any process may call itself as it likes.
  const auto* const end = std::find_if(name.data(), name.data() + length, [](char character) {
    return static_cast<unsigned char>(character) < ' ';
  });
  if (end != name.data()) {
    text << " \"";
    text.append(name.data(), static_cast<std::size_t>(end - name.data())) << "\"";
  }
}

void appendSender(Text& text, const siginfo_t& signal) noexcept {
  if (!hasSender(signal)) {
    text << "a timer or a queue";
  } else if (signal.si_pid == ::getpid()) {
    text << "this process itself";
  } else if (signal.si_pid == 0) {
    text << "a process that cannot be seen from here";
  } else {
    text << "process ";
    text.decimal(signal.si_pid);
    appendProcessName(text, signal.si_pid);
  }
}

}  // namespace

void Crash::appendOrigin(Text& text, const siginfo_t& signal) noexcept {
  const bool isOwn = hasSender(signal) && signal.si_pid == ::getpid();
  if (signal.si_signo == SIGABRT && isOwn) {
    text << abortWords;
  } else if (isSent(signal)) {
    const char* const name = ::sigabbrev_np(signal.si_signo);
    text << " (SIG" << (name ? name : "NAL") << " sent by ";
    appendSender(text, signal);
    text << ")";
  }
}

Crash::Fault Crash::classify(const siginfo_t& signal, const ucontext_t& context,
                             const Memory& memory) noexcept {
  if (signal.si_signo == SIGABRT) {
    return numbered(abortCode);
  }
  if (isSent(signal)) {
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

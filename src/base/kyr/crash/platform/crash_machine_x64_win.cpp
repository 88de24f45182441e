// All that is peculiar to the 64-bit processor; crash_machine_x86_win.cpp is its twin.
#include <kyr/core/prog_error_p.h>
#include <kyr/crash/crash_win_p.h>

#include <windows.h>

#include <dbghelp.h>

/// Called by the system for a fault in what callGuarded() calls, where nobody inside handles it.
extern "C" EXCEPTION_DISPOSITION kyrEndAtFault(EXCEPTION_RECORD* /*fault*/, void* /*frame*/,
                                               CONTEXT* /*context*/, void* /*dispatcher*/) {
  Kyr::Fatal::endProcess(1);
}

namespace Kyr {

Crash::Position Crash::positionIn(const _CONTEXT& registers) noexcept {
  return {registers.Rip, registers.Rsp, registers.Rbp};
}

void Crash::setPosition(_CONTEXT& registers, const Position& position) noexcept {
  registers.Rip = position.instruction;
  registers.Rsp = position.stack;
  registers.Rbp = position.base;
}

// Functions need no base, and the library tells it in its own way: it is read where the stack
// pointer says that the registers are those of the frame, and not of its caller.
Crash::Position Crash::positionIn(const _tagSTACKFRAME64& frame, const _CONTEXT& before,
                                  const _CONTEXT& after) noexcept {
  const bool isCaller = after.Rsp != frame.AddrStack.Offset;
  return {frame.AddrPC.Offset, frame.AddrStack.Offset, isCaller ? before.Rbp : after.Rbp};
}

unsigned long Crash::processorNumber() noexcept {
  return IMAGE_FILE_MACHINE_AMD64;
}

// The system finds handlers in the tables for unwinding. The last statement keeps the call from
// becoming a jump, which would take this function from the stack.
__attribute__((noinline)) void Crash::callGuarded(void (*function)(void*), void* given) {
  asm volatile(".seh_handler kyrEndAtFault, @except");
  function(given);
  asm volatile("");
}

}  // namespace Kyr

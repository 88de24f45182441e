// All that is peculiar to the 32-bit processor; crash_machine_x64_win.cpp is its twin.
#include <kyr/core/prog_error_p.h>
#include <kyr/crash/crash_win_p.h>

#include <windows.h>

#include <dbghelp.h>

namespace Kyr {

namespace {

/// The block that the system keeps for a thread. The compiler warns of the header's own way to it.
NT_TIB* threadBlock() noexcept {
  NT_TIB* block = nullptr;
  asm("movl %%fs:0x18, %0" : "=r"(block));
  return block;
}

/// Ends the process, as long as this object lives, at a fault that nobody handles.
class FaultGuard {
 public:
  FaultGuard() noexcept : _record() {
    _record.Next = _chain;
    _record.Handler = &endProcess;
    _chain = &_record;
  }
  ~FaultGuard() { _chain = _record.Next; }
  FaultGuard(const FaultGuard&) = delete;
  FaultGuard& operator=(const FaultGuard&) = delete;

 private:
  static EXCEPTION_DISPOSITION NTAPI endProcess(EXCEPTION_RECORD* /*fault*/, void* /*record*/,
                                                CONTEXT* /*context*/, void* /*dispatcher*/) {
    Fatal::endProcess(1);
  }

  EXCEPTION_REGISTRATION_RECORD _record;
  /// Where the system finds the handlers of the thread, the innermost first.
  EXCEPTION_REGISTRATION_RECORD*& _chain = threadBlock()->ExceptionList;
};

}  // namespace

Crash::Position Crash::positionIn(const _CONTEXT& registers) noexcept {
  return {registers.Eip, registers.Esp, registers.Ebp};
}

void Crash::setPosition(_CONTEXT& registers, const Position& position) noexcept {
  registers.Eip = position.instruction;
  registers.Esp = position.stack;
  registers.Ebp = position.base;
}

Crash::Position Crash::positionIn(const _tagSTACKFRAME64& frame, const _CONTEXT& /*before*/,
                                  const _CONTEXT& /*after*/) noexcept {
  return {static_cast<std::uintptr_t>(frame.AddrPC.Offset),
          static_cast<std::uintptr_t>(frame.AddrStack.Offset),
          static_cast<std::uintptr_t>(frame.AddrFrame.Offset)};
}

unsigned long Crash::processorNumber() noexcept {
  return IMAGE_FILE_MACHINE_I386;
}

void Crash::callGuarded(void (*function)(void*), void* given) {
  const FaultGuard guard;
  function(given);
}

}  // namespace Kyr

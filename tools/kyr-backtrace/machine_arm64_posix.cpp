#include "machine_p.h"

#include <elfutils/libdwfl.h>

namespace KyrBacktrace {

namespace {

constexpr unsigned link = 30;  // the register that holds where a function returns to

}  // namespace

const unsigned stackPointer = 31;
const unsigned instructionPointer = 32;

bool setRegisters(Dwfl_Thread* thread, const Kyr::Crash::Registers& registers) {
  dwfl_thread_state_register_pc(thread, registers[instructionPointer]);
  return dwfl_thread_state_registers(thread, 0, instructionPointer, registers.data());
}

bool leaveCall(Kyr::Crash::Registers& registers, const ReadWord& /*read*/) {
  registers[instructionPointer] = registers[link];
  return true;
}

}  // namespace KyrBacktrace

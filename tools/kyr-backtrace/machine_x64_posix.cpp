#include "machine_p.h"

#include <elfutils/libdwfl.h>

namespace KyrBacktrace {

const unsigned stackPointer = 7;
const unsigned instructionPointer = 16;

bool setRegisters(Dwfl_Thread* thread, const Kyr::Crash::Registers& registers) {
  return dwfl_thread_state_registers(thread, 0, instructionPointer + 1, registers.data());
}

bool leaveCall(Kyr::Crash::Registers& registers, const ReadWord& read) {
  std::uint64_t address = 0;
  if (!read(registers[stackPointer], &address)) {
    return false;
  }
  registers[instructionPointer] = address;
  registers[stackPointer] += sizeof address;
  return true;
}

}  // namespace KyrBacktrace

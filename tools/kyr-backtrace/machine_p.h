/// \file
/// What kyr-backtrace knows of the processor; machine_x64_posix.cpp and machine_arm64_posix.cpp.
#pragma once

#include <kyr/crash/backtrace_request_p.h>

#include <cstdint>
#include <functional>

struct Dwfl_Thread;  // of elfutils

namespace KyrBacktrace {

/// Where the registers hold these two.
extern const unsigned stackPointer;
extern const unsigned instructionPointer;

/// Hands the registers to the unwinder.
bool setRegisters(Dwfl_Thread* thread, const Kyr::Crash::Registers& registers);

/// Reads a word of the broken process.
using ReadWord = std::function<bool(std::uint64_t address, std::uint64_t* word)>;
/// Makes the registers those of the caller, where a function was called and has not begun.
bool leaveCall(Kyr::Crash::Registers& registers, const ReadWord& read);

}  // namespace KyrBacktrace

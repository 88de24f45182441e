// All that is peculiar to 64-bit ARM; the twin of crash_machine_x64_posix.cpp.
#include <kyr/crash/crash_posix_p.h>

#include <cstring>

#include <asm/sigcontext.h>
#include <sys/auxv.h>
#include <ucontext.h>

namespace Kyr {

namespace {

/// Kinds of exceptions in the syndrome register: accesses of this program to memory, and the bit
/// that tells writes.
enum Syndrome_t : std::uint64_t { DataAbort = 0x24, KindShift = 26, Write = 1U << 6 };
enum FloatState_t : unsigned { Underflow = 0x08, Denormal = 0x80 };

/// Where dumps keep the registers, after the numbers of winnt.h.
namespace place {
constexpr std::size_t Flags = 0, State = 0x04, Integers = 0x08, StackPointer = 0x100,
                      InstructionPointer = 0x108, Vectors = 0x110, FloatControl = 0x310,
                      FloatStatus = 0x314, Size = 0x390;
}  // namespace place

/// Control registers, integers and floating point of an ARM64 processor.
constexpr std::uint32_t dumpedParts = 0x0040'0007;

template <typename Value>
void put(Crash::DumpContext& dump, std::size_t offset, const Value& value) noexcept {
  static_assert(place::Size <= std::tuple_size_v<Crash::DumpContext>);
  std::memcpy(dump.data() + offset, &value, sizeof value);
}

/// The system's records behind the registers, each with its kind and size; the last has none.
/// \return false without a record of that kind
template <typename Record>
bool findRecord(const ucontext_t& context, std::uint32_t kind, Record& record) noexcept {
  const auto& room = context.uc_mcontext.__reserved;
  _aarch64_ctx head{};
  for (std::size_t at = 0; at + sizeof head <= sizeof room; at += head.size) {
    std::memcpy(&head, room + at, sizeof head);
    if (head.magic == kind && head.size >= sizeof record && at + sizeof record <= sizeof room) {
      std::memcpy(&record, room + at, sizeof record);
      return true;
    }
    if (head.size < sizeof head) {
      return false;
    }
  }
  return false;
}

}  // namespace

std::uint64_t Crash::instructionPointer(const ucontext_t& context) noexcept {
  return context.uc_mcontext.pc;
}

std::uint64_t Crash::stackPointer(const ucontext_t& context) noexcept {
  return context.uc_mcontext.sp;
}

Crash::Registers Crash::registersOf(const ucontext_t& context) noexcept {
  Registers registers{};
  const auto& integers = context.uc_mcontext.regs;
  std::memcpy(registers.data(), integers, sizeof integers);
  constexpr std::size_t count = sizeof integers / sizeof integers[0];
  registers[count] = context.uc_mcontext.sp;
  registers[count + 1] = context.uc_mcontext.pc;
  return registers;
}

std::size_t Crash::fillDumpContext(const ucontext_t& context, DumpContext& dump) noexcept {
  dump.fill(0);
  put(dump, place::Flags, dumpedParts);
  put(dump, place::State, static_cast<std::uint32_t>(context.uc_mcontext.pstate));
  put(dump, place::Integers, context.uc_mcontext.regs);
  put(dump, place::StackPointer, context.uc_mcontext.sp);
  put(dump, place::InstructionPointer, context.uc_mcontext.pc);
  fpsimd_context floats{};
  if (findRecord(context, FPSIMD_MAGIC, floats)) {
    put(dump, place::Vectors, floats.vregs);
    put(dump, place::FloatControl, floats.fpcr);
    put(dump, place::FloatStatus, floats.fpsr);
  }
  return place::Size;
}

bool Crash::isWrite(const ucontext_t& context) noexcept {
  esr_context syndrome{};
  return findRecord(context, ESR_MAGIC, syndrome) && (syndrome.esr & Write) != 0 &&
         (syndrome.esr >> KindShift) == DataAbort;
}

// This processor names every address that it refuses, and calls privileged instructions illegal.
bool Crash::isProtectionFault(const ucontext_t& /*context*/) noexcept {
  return false;
}

bool Crash::isPrivileged(const std::array<unsigned char, 2>& /*code*/) noexcept {
  return false;
}

bool Crash::isDenormalOperand(const ucontext_t& context) noexcept {
  fpsimd_context floats{};
  return findRecord(context, FPSIMD_MAGIC, floats) &&
         (floats.fpsr & (Denormal | Underflow)) == Denormal;
}

// It has no floating-point stack.
bool Crash::isFloatStackFault(const ucontext_t& /*context*/) noexcept {
  return false;
}

Crash::Processor Crash::processor() noexcept {
  Processor processor{};
  processor.architecture = 12;
  processor.level = 8;  // of the architecture
  const std::array<std::uint64_t, 2> features = {::getauxval(AT_HWCAP), ::getauxval(AT_HWCAP2)};
  static_assert(sizeof features <= sizeof processor.identity);
  std::memcpy(processor.identity.data(), features.data(), sizeof features);
  return processor;
}

}  // namespace Kyr

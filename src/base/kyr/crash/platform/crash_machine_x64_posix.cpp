// All that is peculiar to x86-64. Another processor needs a twin of this file only.
#include <kyr/crash/crash_posix_p.h>

#include <cpuid.h>
#include <ucontext.h>

namespace Kyr {

namespace {

enum Trap_t : long long { GeneralProtection = 13 };
enum PageFault_t : long long { WriteAccess = 2 };
enum FloatState_t : unsigned { Denormal = 0x02, Underflow = 0x10, StackFault = 0x40 };

/// Where dumps keep the registers, after the numbers of winnt.h.
namespace place {
constexpr std::size_t Flags = 0x30, Mxcsr = 0x34, Segments = 0x38, EFlags = 0x44, Integers = 0x78,
                      FloatSave = 0x100;
constexpr std::size_t FloatSaveSize = 512;
}  // namespace place

/// Control registers, integers, segments and floating point of an AMD64 processor.
constexpr std::uint32_t dumpedParts = 0x0010'000f;

template <typename Number>
void put(Crash::DumpContext& dump, std::size_t offset, Number number) noexcept {
  std::memcpy(dump.data() + offset, &number, sizeof number);
}

std::uint64_t value(const ucontext_t& context, int index) noexcept {
  return static_cast<std::uint64_t>(context.uc_mcontext.gregs[index]);
}

unsigned floatState(const ucontext_t& context) noexcept {
  const auto* state = context.uc_mcontext.fpregs;
  return state ? state->swd | state->mxcsr : 0U;
}

}  // namespace

std::uint64_t Crash::instructionPointer(const ucontext_t& context) noexcept {
  return value(context, REG_RIP);
}

std::uint64_t Crash::stackPointer(const ucontext_t& context) noexcept {
  return value(context, REG_RSP);
}

Crash::Registers Crash::registersOf(const ucontext_t& context) noexcept {
  constexpr std::array<int, 17> order = {REG_RAX, REG_RDX, REG_RCX, REG_RBX, REG_RSI, REG_RDI,
                                         REG_RBP, REG_RSP, REG_R8,  REG_R9,  REG_R10, REG_R11,
                                         REG_R12, REG_R13, REG_R14, REG_R15, REG_RIP};
  Registers registers{};
  for (std::size_t i = 0; i < order.size(); ++i) {
    registers[i] = value(context, order[i]);
  }
  return registers;
}

std::size_t Crash::fillDumpContext(const ucontext_t& context, DumpContext& dump) noexcept {
  constexpr std::array<int, 17> order = {REG_RAX, REG_RCX, REG_RDX, REG_RBX, REG_RSP, REG_RBP,
                                         REG_RSI, REG_RDI, REG_R8,  REG_R9,  REG_R10, REG_R11,
                                         REG_R12, REG_R13, REG_R14, REG_R15, REG_RIP};
  dump.fill(0);
  put(dump, place::Flags, dumpedParts);
  put(dump, place::Segments, static_cast<std::uint16_t>(value(context, REG_CSGSFS)));
  put(dump, place::EFlags, static_cast<std::uint32_t>(value(context, REG_EFL)));
  for (std::size_t i = 0; i < order.size(); ++i) {
    put(dump, place::Integers + i * sizeof(std::uint64_t), value(context, order[i]));
  }
  if (const auto* state = context.uc_mcontext.fpregs) {
    put(dump, place::Mxcsr, state->mxcsr);
    std::memcpy(dump.data() + place::FloatSave, state, place::FloatSaveSize);
  }
  return dump.size();
}

bool Crash::isWrite(const ucontext_t& context) noexcept {
  return (context.uc_mcontext.gregs[REG_ERR] & WriteAccess) != 0;
}

bool Crash::isProtectionFault(const ucontext_t& context) noexcept {
  return context.uc_mcontext.gregs[REG_TRAPNO] == GeneralProtection;
}

bool Crash::isPrivileged(const std::array<unsigned char, 2>& code) noexcept {
  constexpr std::array<unsigned char, 15> single = {0x6c, 0x6d, 0x6e, 0x6f, 0xe4, 0xe5, 0xe6, 0xe7,
                                                    0xec, 0xed, 0xee, 0xef, 0xf4, 0xfa, 0xfb};
  constexpr std::array<unsigned char, 9> afterEscape = {0x00, 0x01, 0x06, 0x08, 0x09,
                                                        0x20, 0x22, 0x30, 0x32};
  const bool escaped = code[0] == 0x0f;
  const unsigned char* first = escaped ? afterEscape.data() : single.data();
  const std::size_t count = escaped ? afterEscape.size() : single.size();
  return std::memchr(first, escaped ? code[1] : code[0], count) != nullptr;
}

bool Crash::isDenormalOperand(const ucontext_t& context) noexcept {
  return (floatState(context) & (Denormal | Underflow)) == Denormal;
}

bool Crash::isFloatStackFault(const ucontext_t& context) noexcept {
  const auto* state = context.uc_mcontext.fpregs;
  return state && (state->swd & StackFault) != 0;
}

Crash::Processor Crash::processor() noexcept {
  Processor processor{};
  processor.architecture = 9;
  unsigned most = 0;
  unsigned features = 0;
  auto& identity = processor.identity;
  __get_cpuid(0, &most, identity.data(), identity.data() + 2, identity.data() + 1);
  __get_cpuid(1, identity.data() + 3, &most, &features, identity.data() + 4);
  const unsigned version = identity[3];
  const unsigned family = (version >> 8) & 15U;
  const unsigned model = ((version >> 4) & 15U) | ((version >> 12) & 0xf0U);
  processor.level =
      static_cast<std::uint16_t>(family == 15 ? 15 + ((version >> 20) & 255U) : family);
  processor.revision = static_cast<std::uint16_t>((model << 8) | (version & 15U));
  return processor;
}

}  // namespace Kyr

#include "faults.h"

#include <kyr/core/KyrException.h>
#include <kyr/core/KyrProgError.h>

#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <memory>

namespace Crash {

namespace {

// The null pointer is read at run time: one that the optimiser can see becomes a trap.
int* volatile nowhere = nullptr;
void (*volatile noFunction)() = nullptr;
int data = 0;
void (*volatile dataAsFunction)() = reinterpret_cast<void (*)()>(&data);
volatile std::size_t tooMuch = SIZE_MAX / 2;
volatile int zero = 0;
volatile int sink = 0;

[[gnu::noinline]] void readNull() {
  sink = *nowhere;
}

[[gnu::noinline]] void writeNull() {
  *nowhere = 1;
}

// The compiler merges these three into one function; a report names each of them.
[[gnu::always_inline]] inline void storeThrough(int* target) {
  *target = 2;
}

[[gnu::always_inline]] inline void measureInto(int* target) {
  sink = 1;
  storeThrough(target);
}

[[gnu::noinline]] void writeInlined() {
  measureInto(nowhere);
}

[[gnu::noinline]] void executeNull() {
  noFunction();
  sink = 1;
}

[[gnu::noinline]] void executeData() {
  dataAsFunction();
  sink = 1;
}

[[gnu::noinline]] void divideByZero() {
  sink = 100 / zero;
}

[[gnu::noinline]] void executeIllegal() {
  sink = 1;  // one address, one line
  __builtin_trap();
}

/// Each call takes a piece of the stack; the sum behind the call keeps it from becoming a loop.
[[gnu::noinline]] int overflowStack(int depth) {
  volatile int piece[64] = {};
  piece[depth % 64] = depth;
  return zero != 0 ? 0 : overflowStack(depth + 1) + piece[zero];
}

[[gnu::noinline]] void overflow() {
  sink = overflowStack(0);
}

/// One call takes more than the whole stack.
[[gnu::noinline]] void takeBigFrame() {
  volatile int frame[16U << 20U];
  frame[zero] = 1;
  sink = frame[zero];
}

[[gnu::noinline]] void abortProcess() {
  std::abort();
}

[[gnu::noinline]] void throwUncaught() {
  throw Kyr::Exception("the measurement is gone");
}

[[gnu::noinline]] void throwNumber() {
  throw 42;  // NOLINT(misc-throw-by-value-catch-by-reference): shows a throw without a text
}

[[gnu::noinline]] void askForTooMuch() {
  const std::unique_ptr<unsigned char[]> block(new unsigned char[tooMuch]);
  sink = block[0];
}

[[gnu::noinline]] void raiseProgError() {
  throw Kyr::ProgError("Crash::raiseProgError", "faults", 94, "raised on purpose");
}

[[gnu::noinline]] void raiseSignal() {
  std::raise(SIGSEGV);
  sink = 1;
}

const Fault faults[] = {
    {"null-read", &readNull, "reads from address 0"},
    {"null-write", &writeNull, "writes to address 0"},
    {"inlined", &writeInlined, "writes to address 0 in functions merged into one"},
    {"execute", &executeNull, "calls a function at address 0"},
    {"execute-data", &executeData, "calls what is no function"},
    {"divide", &divideByZero, "divides an integer by zero"},
    {"illegal", &executeIllegal, "executes what is no instruction"},
    {"overflow", &overflow, "calls itself until the stack is used up"},
    {"big-frame", &takeBigFrame, "calls a function with more variables than the stack has room"},
    {"abort", &abortProcess, "calls abort()"},
    {"exception", &throwUncaught, "throws an exception that nobody catches"},
    {"exception-number", &throwNumber, "throws a number that nobody catches"},
    {"memory", &askForTooMuch, "asks for more memory than there is"},
    {"prog-error", &raiseProgError, "raises an internal program error"},
    {"signal", &raiseSignal, "sends itself the signal of a fault"},
};

}  // namespace

const Fault* findFault(const QString& kind) {
  for (const Fault& fault : faults) {
    if (kind == fault.kind) {
      return &fault;
    }
  }
  return nullptr;
}

QString listOfFaults() {
  QString list;
  for (const Fault& fault : faults) {
    list += "  " + QString(fault.kind).leftJustified(18) + fault.what + "\n";
  }
  return list;
}

}  // namespace Crash

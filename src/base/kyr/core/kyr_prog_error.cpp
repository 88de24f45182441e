#include <kyr/core/KyrProgError.h>
#include <kyr/core/prog_error_p.h>

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace Kyr {

namespace ProgErrorNS {
// Its spelling is given (docs/decisions/0006).
const char* const FPU_EXCEPTION_STRING = "floating point exception occured";
}  // namespace ProgErrorNS

namespace {

std::atomic<FatalErrorHook> fatalHook{nullptr};
std::atomic<void (*)()> sharedMemoryRelease{nullptr};

void writePiece(const char* text) {
  if (text) {
    Fatal::writeToStandardError(text, std::strlen(text));
  }
}

/// Writes a message and never throws: a caller that catches std::bad_alloc must not outlive the
/// report.
void writeMessage(const QString& message) {
  try {
    const QByteArray bytes = message.toLocal8Bit();
    Fatal::writeToStandardError(bytes.constData(), static_cast<std::size_t>(bytes.size()));
  } catch (...) {
    // The heap is out: what needs no conversion still comes out.
    for (const QChar character : message) {
      const char byte = character.unicode() < 128 ? character.toLatin1() : '?';
      Fatal::writeToStandardError(&byte, 1);
    }
  }
}

void beginReport() {
  Fatal::releaseSharedMemory();
  Fatal::callHook();
  writePiece("\nInternal program error: ");
}

// The line is a signed number in reports: one above INT_MAX shows a minus.
void writeSite(const char* function, const char* file, unsigned line) {
  char number[100];
  std::snprintf(number, sizeof number, "%d", static_cast<int>(line));
  writePiece("\nin function ");
  writePiece(function);
  writePiece("\nin file ");
  writePiece(file);
  writePiece(" line ");
  writePiece(number);
}

void endReport() {
  writePiece("\n\n");
}

}  // namespace

void Fatal::setSharedMemoryRelease(void (*release)()) noexcept {
  sharedMemoryRelease = release;
}

void Fatal::releaseSharedMemory() noexcept {
  if (const auto release = sharedMemoryRelease.load()) {
    release();
  }
}

void Fatal::callHook() noexcept {
  const FatalErrorHook hook = fatalHook.load();
  if (!hook || isInsideHook()) {
    return;
  }
  setInsideHook(true);
  try {
    hook();
  } catch (...) {
    // Whatever went wrong in the hook, the report must still come out.
  }
  setInsideHook(false);
}

FatalErrorHook setFatalErrorHook(FatalErrorHook hook) noexcept {
  return fatalHook.exchange(hook);
}

ProgError::ProgError() {
  beginReport();
  writePiece("Unknown error");
  endReport();
  CallDebugger();
}

ProgError::ProgError(const QString& message) {
  beginReport();
  // Converted only now: it allocates, and the steps before must not depend on the heap.
  writeMessage(message);
  endReport();
  CallDebugger();
}

ProgError::ProgError(const char* message, bool callDebugger) {
  beginReport();
  writePiece(message);
  endReport();
  if (!callDebugger) {
    Fatal::endProcess(1);
  }
  CallDebugger();
}

ProgError::ProgError(const char* function, const char* file, unsigned line, const char* message) {
  beginReport();
  writePiece(message);
  writeSite(function, file, line);
  endReport();
  CallDebugger();
}

// A null pointer that the optimiser can see becomes a trap, which is another fault than the
// one that the crash handler describes; hence the pointer is read at run time.
KYR_NO_NULL_CHECK void ProgError::CallDebugger() {
  static std::int32_t* volatile nowhere = nullptr;
  // NOLINTNEXTLINE(clang-analyzer-core.NullDereference): the fault is the purpose
  *static_cast<volatile std::int32_t*>(nowhere) = 0;
  Fatal::endProcess(1);
}

}  // namespace Kyr

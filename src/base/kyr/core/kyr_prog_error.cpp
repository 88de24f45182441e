#include <kyr/core/KyrProgError.h>
#include <kyr/core/prog_error_p.h>

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace Kyr {

namespace ProgErrorNS {
const char* const FPU_EXCEPTION_STRING = "floating point exception occured";
}

namespace {

std::atomic<FatalErrorHook> fatalHook{nullptr};
std::atomic<void (*)()> sharedMemoryRelease{nullptr};
thread_local bool insideHook = false;

void writePiece(const char* text) {
  if (text) {
    Fatal::writeToStandardError(text, std::strlen(text));
  }
}

void beginReport(const char* message) {
  if (const auto release = sharedMemoryRelease.load()) {
    release();
  }
  Fatal::callHook();
  writePiece("\nInternal program error: ");
  writePiece(message);
}

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

void Fatal::callHook() {
  const FatalErrorHook hook = fatalHook.load();
  if (hook && !insideHook) {
    insideHook = true;
    hook();
    insideHook = false;
  }
}

FatalErrorHook setFatalErrorHook(FatalErrorHook hook) noexcept {
  return fatalHook.exchange(hook);
}

ProgError::ProgError() {
  beginReport("Unknown error");
  endReport();
  CallDebugger();
}

ProgError::ProgError(const QString& message) {
  beginReport(message.toLocal8Bit().constData());
  endReport();
  CallDebugger();
}

ProgError::ProgError(const char* message, bool callDebugger) {
  beginReport(message);
  endReport();
  if (callDebugger) {
    CallDebugger();
  }
  Fatal::endProcess(1);
}

ProgError::ProgError(const char* function, const char* file, unsigned line, const char* message) {
  beginReport(message);
  writeSite(function, file, line);
  endReport();
  CallDebugger();
}

// A null pointer that the optimiser can see becomes a trap, which is another fault than the
// one that the crash handler describes; hence the pointer is read at run time.
KYR_NO_NULL_CHECK void ProgError::CallDebugger() {
  static std::int32_t* volatile nowhere = nullptr;
  *static_cast<volatile std::int32_t*>(nowhere) = 0;
  Fatal::endProcess(1);
}

}  // namespace Kyr

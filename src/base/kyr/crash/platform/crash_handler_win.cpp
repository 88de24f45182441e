#include <kyr/crash/crash_exception_p.h>
#include <kyr/crash/crash_handler_p.h>
#include <kyr/crash/crash_recorder_p.h>
#include <kyr/crash/crash_win_p.h>
#include <kyr/log/journals_p.h>

#include <array>
#include <atomic>
#include <csignal>

#include <windows.h>

namespace Kyr {

namespace {

using namespace Crash;

/// After this time a report that does not come to its end is given up, and so is the hook.
constexpr DWORD patience = 60'000;  // milliseconds
constexpr DWORD pulse = 500;
constexpr SIZE_T helperStack = std::size_t{1} << 20;

std::atomic<bool> consoleAllocated{false};

/// The thread that reports; 0 until one does.
std::atomic<DWORD> reporter{0};
/// The thread that watches or reports for another; 0 if there is none.
DWORD helper = 0;
/// Whether a report or the hook runs against patience, and since when, in milliseconds.
std::atomic<bool> isTimed{false};
std::atomic<DWORD> timedSince{0};

/// The thread that ends because of an exception, whose text is in uncaught.
std::atomic<DWORD> thrower{0};
Text uncaught;
/// Where that exception was thrown; empty if nobody knows.
CallChain thrown{};
Text headline;

// ---- the report -------------------------------------------------------------------------------

void limitTime() noexcept {
  timedSince = ::GetTickCount();
  isTimed = true;
}

/// Ends the process a little later, whatever its other threads wait for.
DWORD WINAPI endSoon(void* /*unused*/) {
  constexpr DWORD patienceAtEnd = 5'000;  // milliseconds
  ::Sleep(patienceAtEnd);
  Fatal::endProcess(1);
}

/// Ends the process when a report takes too long.
DWORD WINAPI watch(void* /*unused*/) {
  while (true) {
    ::Sleep(pulse);
    if (isTimed && ::GetTickCount() - timedSince > patience) {
      // Who reads the notice may not do so for ever, as of a console in which a text is selected.
      ::CreateThread(nullptr, 0, &endSoon, nullptr, 0, nullptr);
      showNotice();
      Fatal::endProcess(1);
    }
  }
}

void makeReport(void* given) {
  const auto& broken = *static_cast<const Break*>(given);
  reporter = ::GetCurrentThreadId();
  if (isCollecting()) {
    collectOutput(nullptr);  // the thread broke while it told where the others stand
  }
  openReportFile();
  describe(*broken.fault->ExceptionRecord, thrower == broken.thread ? uncaught.data() : nullptr,
           headline);
  Journals::flushForEnd();
  loadDebugHelp();
  writeDump(broken);
  printBacktraces(broken, helper);
  printAbout(headline);
  printRecorder([](const char* bytes, std::size_t length) { write(bytes, length); });
  showNotice();
  removeOldDumps();
  if (consoleAllocated) {
    isTimed = false;
    waitForSpace();
    limitTime();
  }
  Fatal::releaseSharedMemory();
  Fatal::callHook();
  Journals::flushForEnd();  // what threads added meanwhile
  Fatal::endProcess(1);
}

DWORD WINAPI report(void* broken) {
  callGuarded(&makeReport, broken);
  return 1;
}

/// Lets one thread go on to the report and holds all others. A second fault of that thread ends the
/// process.
void becomeReporter() noexcept {
  DWORD first = 0;
  if (reporter.compare_exchange_strong(first, ::GetCurrentThreadId())) {
    return;
  }
  if (first == ::GetCurrentThreadId()) {
    Fatal::endProcess(1);
  }
  ::Sleep(INFINITE);
}

bool startHelper(LPTHREAD_START_ROUTINE function, Break* broken) noexcept {
  const HANDLE thread = ::CreateThread(nullptr, helperStack, function, broken,
                                       STACK_SIZE_PARAM_IS_A_RESERVATION, &helper);
  return thread != nullptr;
}

/// Makes the report on the crashing thread, as another thread could wait for ever for a lock that
/// this one holds. A thread whose stack is used up has another one report, and watches it.
[[noreturn]] void reportAndEnd(EXCEPTION_POINTERS* fault) noexcept {
  becomeReporter();
  ::SetErrorMode(SEM_FAILCRITICALERRORS | SEM_NOGPFAULTERRORBOX | SEM_NOOPENFILEERRORBOX);
  limitTime();
  Break broken{fault, ::GetCurrentThreadId(), &thrown};
  const bool isOverflow = fault->ExceptionRecord->ExceptionCode == EXCEPTION_STACK_OVERFLOW;
  if (startHelper(isOverflow ? &report : &watch, &broken) && isOverflow) {
    watch(nullptr);
  }
  report(&broken);
  Fatal::endProcess(1);
}

/// Whether it is a throw of C++ that finds nobody to catch it: 64-bit programs throw by exceptions
/// of the system. The throw goes on behind it, to std::terminate().
bool isThrow(const EXCEPTION_RECORD& record) noexcept {
  return record.ExceptionCode == uncaughtExceptionCode &&
         (record.ExceptionFlags & EXCEPTION_NONCONTINUABLE) == 0;
}

LONG WINAPI onFault(EXCEPTION_POINTERS* fault) {
  if (isThrow(*fault->ExceptionRecord)) {
    return EXCEPTION_CONTINUE_EXECUTION;
  }
  reportAndEnd(fault);
}

// ---- ends that are no faults ------------------------------------------------------------------

/// Its address marks exceptions that are raised here.
const ULONG_PTR ownMark = 0;

/// Raises an exception for an end that is no fault, so that its registers are known.
[[noreturn]] void raiseOwn(DWORD code) noexcept {
  const std::array<ULONG_PTR, 1> parameters = {reinterpret_cast<ULONG_PTR>(&ownMark)};
  ::RaiseException(code, EXCEPTION_NONCONTINUABLE, DWORD{parameters.size()}, parameters.data());
  Fatal::endProcess(1);
}

/// Comes before every handler of the application, which must not catch them.
LONG CALLBACK onOwnException(EXCEPTION_POINTERS* fault) {
  const EXCEPTION_RECORD& record = *fault->ExceptionRecord;
  if (record.NumberParameters == 1 &&
      record.ExceptionInformation[0] == reinterpret_cast<ULONG_PTR>(&ownMark)) {
    reportAndEnd(fault);
  }
  return EXCEPTION_CONTINUE_SEARCH;
}

[[noreturn]] void onTerminate() {
  DWORD nobody = 0;
  const bool isThrown = std::current_exception() != nullptr;
  if (thrower.compare_exchange_strong(nobody, ::GetCurrentThreadId())) {
    if (isThrown) {
      appendCurrentException(uncaught);
      findThrow(thrown);
    } else {
      uncaught.hexadecimal(abortCode) << " (terminated without an exception)";
    }
  }
  raiseOwn(isThrown ? uncaughtExceptionCode : abortCode);
}

void onAbort(int /*signal*/) {
  raiseOwn(abortCode);
}

void onInvalidParameter(const wchar_t* /*expression*/, const wchar_t* /*function*/,
                        const wchar_t* /*file*/, unsigned /*line*/, std::uintptr_t /*reserved*/) {
  raiseOwn(STATUS_INVALID_CRUNTIME_PARAMETER);
}

/// Calls a function of a C runtime, if that one has it.
template <class... Parameters>
void callByName(HMODULE runtime, const char* name, Parameters... parameters) noexcept {
  using Function = void*(__cdecl*)(Parameters...);
  void* const address = reinterpret_cast<void*>(::GetProcAddress(runtime, name));
  if (address) {
    reinterpret_cast<Function>(address)(parameters...);
  }
}

/// Installs the handlers in the library's own runtime, and in the one that parts of the application
/// may have been built for.
void installInRuntimes() noexcept {
  constexpr unsigned message = 1;
  constexpr unsigned systemReport = 4;
  for (const wchar_t* const name : {L"msvcrt.dll", L"ucrtbase.dll"}) {
    if (const HMODULE runtime = ::GetModuleHandleW(name)) {
      callByName(runtime, "_set_invalid_parameter_handler", &onInvalidParameter);
      callByName(runtime, "_set_abort_behavior", 0U, message | systemReport);
      callByName(runtime, "signal", SIGABRT, &onAbort);
    }
  }
}

}  // namespace

void Crash::install(const char* dumpFile) noexcept {
  setDumpFile(dumpFile);
  noteLineEnds();
  static std::atomic<bool> installed{false};
  if (installed.exchange(true)) {
    return;
  }
  prepareStacks();
  watchAllThrows();
  ::SetUnhandledExceptionFilter(&onFault);
  ::AddVectoredExceptionHandler(1, &onOwnException);
  installInRuntimes();
  std::set_terminate(&onTerminate);
}

void Crash::setConsoleAllocated(bool allocated) noexcept {
  consoleAllocated = allocated;
}

}  // namespace Kyr

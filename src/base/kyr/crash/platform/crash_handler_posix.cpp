#include <kyr/crash/crash_handler_p.h>
#include <kyr/crash/crash_posix_p.h>
#include <kyr/crash/crash_recorder_p.h>
#include <kyr/log/journals_p.h>

#include <cstdlib>
#include <exception>

#include <dlfcn.h>
#include <unistd.h>

namespace Kyr {

namespace {

using namespace Crash;

constexpr std::array<int, 6> faultSignals = {SIGSEGV, SIGBUS, SIGFPE, SIGILL, SIGABRT, SIGTRAP};

/// After this time a report that does not come to its end is given up, and so is the hook.
constexpr unsigned patienceInSeconds = 60;

// Static memory, as the handler's stack is small; there is one report in the life of a process.
Memory memory;
Threads threads;
Text uncaught;
CallChain thrown;
Text headline;
MetModules met;
std::atomic<const char*> dump{""};

/// The thread that reports; 0 until one does.
std::atomic<int> reporter{0};
/// The thread that ends because of an exception, whose text is in uncaught.
std::atomic<int> thrower{0};

/// Ends the numbers of shared memory, whatever became of the report: other processes must not find
/// the memory of a dead one.
void releaseSharedMemory() noexcept {
  static std::atomic<bool> released{false};
  if (!released.exchange(true)) {
    Fatal::releaseSharedMemory();
  }
}

[[noreturn]] void endProcess() noexcept {
  releaseSharedMemory();
  closeReportFile();
  showNotice(dump);
  Fatal::endProcess(1);
}

/// Holds a thread that broke while another one reports, until the process ends.
[[noreturn]] void waitForEnd() noexcept {
  while (true) {
    ::pause();
  }
}

/// Lets one thread go on to the report and holds all others. A second fault of that thread ends the
/// process.
void becomeReporter() noexcept {
  const int own = ::gettid();
  int first = 0;
  if (reporter.compare_exchange_strong(first, own)) {
    return;
  }
  if (first == own) {
    endProcess();
  }
  waitForEnd();
}

/// What there is to do at the end may hang, too: at the second time nothing of it is tried.
void giveUp(int) {
  constexpr unsigned patienceAtEnd = 5;  // seconds
  static std::atomic<bool> hasGivenUp{false};
  if (hasGivenUp.exchange(true)) {
    Fatal::endProcess(1);
  }
  ::alarm(patienceAtEnd);
  endProcess();
}

void limitTime() noexcept {
  struct sigaction action = {};
  action.sa_handler = giveUp;
  action.sa_flags = SA_NODEFER;
  ::sigaction(SIGALRM, &action, nullptr);
  sigset_t alarm;
  sigemptyset(&alarm);
  sigaddset(&alarm, SIGALRM);
  ::pthread_sigmask(SIG_UNBLOCK, &alarm, nullptr);
  ::alarm(patienceInSeconds);
}

void describe(const siginfo_t& signal, const ucontext_t& context) noexcept {
  const bool isUncaught = signal.si_signo == SIGABRT && thrower == ::gettid();
  const Fault fault = classify(signal, context, memory);
  if (isUncaught) {
    headline << uncaught.data();
  } else if (fault.name) {
    headline << fault.name;
  } else {
    headline.hexadecimal(fault.code);
    appendOrigin(headline, signal);
  }
  if (fault.hasAddress) {
    headline << (fault.write ? " (write to" : " (read from") << " address ";
    headline.hexadecimal(fault.address) << ")";
  }
  Text text;
  text << "caught exception: " << headline.data() << "\nat address ";
  text.hexadecimal(instructionPointer(context)) << "\n";
  text.print();
}

void onFault(int, siginfo_t* signal, void* given) {
  const auto& context = *static_cast<const ucontext_t*>(given);
  becomeReporter();
  limitTime();
  if (outputOfThread() >= 0) {
    collectOutput(-1);  // the thread broke while it told where the others stand
  }
  memory.load();
  openReportFile();
  describe(*signal, context);
  Journals::flushForEnd();  // may wait for a thread that is writing
  threads.stop(context);
  dump = writeDump(*signal, threads, memory);
  printBacktraces(threads, memory, thrown, met);
  printAbout(headline, dump, threads, memory, met);
  printRecorder(&Fatal::writeToStandardError);
  // The threads run on: what follows may need a lock that one of them holds.
  threads.release();
  limitTime();
  releaseSharedMemory();
  closeReportFile();
  showNotice(dump);
  Fatal::callHook();
  Journals::flushForEnd();  // what threads added meanwhile
  Fatal::endProcess(1);
}

void installSignals() noexcept {
  struct sigaction action = {};
  action.sa_flags = SA_SIGINFO | SA_ONSTACK | SA_NODEFER;
  action.sa_sigaction = onFault;
  // No signal interrupts the report or ends it: no timer, no full disk, no reader that has gone.
  sigfillset(&action.sa_mask);
  sigdelset(&action.sa_mask, SIGALRM);
  sigdelset(&action.sa_mask, stopSignal());
  for (const int signal : faultSignals) {
    sigdelset(&action.sa_mask, signal);
  }
  for (const int signal : faultSignals) {
    ::sigaction(signal, &action, nullptr);
  }
}

// ---- exceptions that nobody catches -----------------------------------------------------------

/// Keeps the text of an exception that nobody catches, and calls abort(): the report is made in the
/// handler of the signal that this raises.
[[noreturn]] void onTerminate() {
  int nobody = 0;
  if (thrower.compare_exchange_strong(nobody, ::gettid())) {
    if (std::current_exception()) {
      appendCurrentException(uncaught);
      findThrow(thrown);
    } else {
      uncaught.hexadecimal(abortCode) << " (terminated without an exception)";
    }
  }
  std::abort();
}

/// Whether a sanitizer runs: it reports faults itself, in more detail, and owns the signals and
/// their stacks.
bool isSanitized() noexcept {
  return ::dlsym(RTLD_DEFAULT, "__asan_init") || ::dlsym(RTLD_DEFAULT, "__tsan_init");
}

}  // namespace

void Crash::install(const char* dumpFile) noexcept {
  setDumpFile(dumpFile);
  static std::atomic<bool> installed{false};
  if (isSanitized() || installed.exchange(true)) {
    return;
  }
  findBacktraceProgram();
  prepareStacks();
  installSignals();
  std::set_terminate(&onTerminate);
}

// Nothing is to be done: a terminal stays open when a program in it ends.
void Crash::setConsoleAllocated(bool) noexcept {}

}  // namespace Kyr

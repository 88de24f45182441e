#include <kyr/crash/crash_posix_p.h>

#include <algorithm>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <ctime>

#include <dlfcn.h>
#include <fcntl.h>
#include <poll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

namespace Kyr {

namespace {

using Crash::BacktraceRequest;
using Crash::Memory;
using Crash::Text;

constexpr std::time_t patienceInSeconds = 20;  // for the backtrace of one thread

/// For the backtraces of all threads that live on. Stopping them, and the end of kyr-backtrace, may
/// take two seconds each besides.
constexpr std::time_t patienceOfLiving = 15;  // seconds

/// How long kyr-backtrace may take to end, once unasked and once by force.
constexpr unsigned patienceAtEnd = 1000;  // milliseconds

std::array<char, PATH_MAX> programPath;

std::time_t secondsNow() noexcept {
  timespec time{};
  ::clock_gettime(CLOCK_MONOTONIC, &time);
  return time.tv_sec;
}

/// The conversation with kyr-backtrace, a process with a heap and locks that are not broken.
class BacktraceProgram {
 public:
  /// \param met gets the modules that printed frames lie in
  BacktraceProgram(const Memory& memory, Crash::MetModules& met) noexcept
      : _memory(memory), _met(met) {
    start(memory);
  }
  ~BacktraceProgram() { end(false); }
  BacktraceProgram(const BacktraceProgram&) = delete;
  BacktraceProgram& operator=(const BacktraceProgram&) = delete;

  /// Waits for no answer longer than up to this moment of secondsNow().
  void endAt(std::time_t moment) noexcept { _end = moment; }

  /// Has kyr-backtrace print the backtrace of a thread.
  /// \return false when it could not; then it is not asked again
  bool print(const ucontext_t& context) noexcept {
    BacktraceRequest request;
    request.numbers = Crash::registersOf(context);
    return ask(request);
  }

  /// Has kyr-backtrace print the functions that these calls return to.
  bool print(const Crash::CallChain& chain) noexcept {
    static_assert(sizeof(Crash::CallChain::addresses) <= sizeof(Crash::Registers));
    BacktraceRequest request;
    request.calls = chain.count;
    std::memcpy(request.numbers.data(), chain.addresses.data(), sizeof chain.addresses);
    return ask(request);
  }

 private:
  bool ask(const BacktraceRequest& request) noexcept {
    if (_socket < 0) {
      return false;
    }
    Crash::BacktraceAnswer answer;
    pollfd waiting = {_socket, POLLIN, 0};
    if (::send(_socket, &request, sizeof request, MSG_NOSIGNAL) == sizeof request &&
        ::poll(&waiting, 1, patience()) == 1 &&
        ::recv(_socket, &answer, sizeof answer, MSG_WAITALL) == sizeof answer) {
      note(answer);
      return true;
    }
    Crash::print("error: kyr-backtrace gave up\n");
    end(true);
    return false;
  }

  /// In milliseconds.
  int patience() const noexcept {
    const std::time_t left = std::max<std::time_t>(_end - secondsNow(), 0);
    return static_cast<int>(_end == 0 ? patienceInSeconds : std::min(left, patienceInSeconds)) *
           1000;
  }

  void note(const Crash::BacktraceAnswer& answer) noexcept {
    for (std::size_t i = 0; i < answer.count && i < answer.addresses.size(); ++i) {
      Crash::LoadedModule module{};
      if (Crash::findModule(_memory, answer.addresses[i], module)) {
        _met.add(module.begin);
      }
    }
  }

  void start(const Memory& memory) noexcept {
    std::array<int, 2> ends{};
    // NOLINTBEGIN(android-cloexec-open): kyr-backtrace inherits them
    const int maps = ::open("/proc/self/maps", O_RDONLY);
    const int program = ::open("/proc/self/exe", O_RDONLY);
    // NOLINTEND(android-cloexec-open)
    if (::access(programPath.data(), X_OK) != 0 ||
        ::socketpair(AF_UNIX, SOCK_STREAM, 0, ends.data()) != 0) {
      Crash::printSystemError("error starting kyr-backtrace", errno);
      ::close(maps);
      ::close(program);
      return;
    }
    const int output = Crash::outputOfThread();
    // Unlike fork(), _Fork() runs nobody's handlers and takes no lock of the heap.
    _process = ::_Fork();
    if (_process == 0) {
      ::close(ends[0]);
      become({ends[1], memory.descriptor(), maps, program}, output);
    }
    ::close(maps);
    ::close(program);
    ::close(ends[1]);
    if (_process < 0) {
      Crash::printSystemError("error starting kyr-backtrace", errno);
      ::close(ends[0]);
      return;
    }
    _socket = ends[0];
  }

  /// The descriptors that kyr-backtrace gets, in the order of its arguments.
  using Descriptors = std::array<int, 4>;

  [[noreturn]] static void become(const Descriptors& descriptors, int output) noexcept {
    if (output >= 0) {
      ::dup2(output, STDERR_FILENO);
    }
    sigset_t none;
    sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
    std::array<Text, std::tuple_size_v<Descriptors>> numbers;
    std::array<const char*, numbers.size() + 2> arguments = {"kyr-backtrace"};
    for (std::size_t i = 0; i < descriptors.size(); ++i) {
      arguments[i + 1] = numbers[i].decimal(descriptors[i]).data();
    }
    // kyr-backtrace does not get the application's environment, which could push libraries under it
    // or name servers to be asked.
    char* const environment[] = {nullptr};
    ::execve(programPath.data(), const_cast<char* const*>(arguments.data()), environment);
    ::_exit(127);
  }

  /// Does not wait for ever, as other threads stand still meanwhile. Nothing of kyr-backtrace is
  /// lost by force: what it has answered for is written.
  void end(bool byForce) noexcept {
    if (_socket < 0) {
      return;
    }
    // A process that a thread has just started may have the socket, too.
    ::shutdown(_socket, SHUT_RDWR);
    ::close(_socket);
    _socket = -1;
    if (byForce || !hasEnded()) {
      ::kill(_process, SIGKILL);
      hasEnded();
    }
  }

  bool hasEnded() const noexcept {
    for (unsigned waited = 0; ::waitpid(_process, nullptr, WNOHANG) == 0; ++waited) {
      if (waited == patienceAtEnd) {
        return false;
      }
      const timespec millisecond{0, 1'000'000};
      ::nanosleep(&millisecond, nullptr);
    }
    return true;
  }

  const Memory& _memory;
  Crash::MetModules& _met;
  int _socket = -1;
  pid_t _process = 0;
  std::time_t _end = 0;  ///< 0 for none
};

/// Prints what can be said without debug information: the module and how far into it.
void printPlace(const ucontext_t& context, const Memory& memory, Crash::MetModules& met) noexcept {
  const std::uint64_t address = Crash::instructionPointer(context);
  Text text;
  text << "#0  ";
  text.hexadecimal(address) << " ";
  Crash::LoadedModule module{};
  if (Crash::findModule(memory, address, module)) {
    const char* end = module.path + module.pathLength;
    const void* slash = ::memrchr(module.path, '/', module.pathLength);
    const char* name = slash ? static_cast<const char*>(slash) + 1 : module.path;
    text.append(name, static_cast<std::size_t>(end - name)) << "+";
    text.hexadecimal(address - module.begin) << "\n";
    met.add(module.begin);
  } else {
    text << "?\n";
  }
  text.print();
}

/// \param what kind of thread comes first; null for another one
void printHeading(const Crash::FoundThread& thread, const char* what) noexcept {
  Text heading;
  const auto id = static_cast<std::uint64_t>(thread.id);
  if (what) {
    heading << "\nbacktrace of the " << what << " thread ";
    heading.hexadecimal(id) << ":\n";
  } else {
    heading << "\n\nnext thread: ";
    heading.hexadecimal(id) << ", priority ";
    heading.decimal(thread.priority) << "\n";
  }
  heading.print();
}

void printStack(BacktraceProgram& program, const Crash::FoundThread& thread, const Memory& memory,
                Crash::MetModules& met) noexcept {
  const ucontext_t* context = thread.context;
  if (!context) {
    Crash::print("error getting the thread context\n");
  } else if (!program.print(*context)) {
    printPlace(*context, memory, met);
  }
}

}  // namespace

// kyr-backtrace lies in a folder of its own beside the library, in every installation and in the
// build.
void Crash::findBacktraceProgram() noexcept {
  if (programPath[0] != '\0') {
    return;
  }
  Dl_info library = {};
  std::array<char, PATH_MAX> path{};
  if (::dladdr(reinterpret_cast<void*>(&Crash::findBacktraceProgram), &library) == 0 ||
      !::realpath(library.dli_fname, path.data())) {
    return;
  }
  Text program;
  const char* slash = std::strrchr(path.data(), '/');
  program.append(path.data(), static_cast<std::size_t>(slash - path.data()));
  program << "/" KYR_FOLDER "/kyr-backtrace";
  std::memcpy(programPath.data(), program.data(), program.length() + 1);
}

void Crash::printBacktraces(const Threads& threads, const Memory& memory, const CallChain& thrown,
                            MetModules& met) noexcept {
  BacktraceProgram program(memory, met);
  for (const FoundThread& thread : threads) {
    if (thread.id == 0) {
      continue;
    }
    printHeading(thread, &thread == threads.begin() ? "crashing" : nullptr);
    printStack(program, thread, memory, met);
    if (&thread == threads.begin() && thrown.count > 0) {
      Crash::print("the exception was thrown by:\n");
      program.print(thrown);
    }
  }
  if (!threads.complete()) {
    Crash::print("\nerror while enumerating threads\n");
  }
}

// Threads of an application that lives on do not stand still for ever.
void Crash::printLivingBacktraces(const Threads& threads, const Memory& memory,
                                  std::uint64_t hanging, bool alone, MetModules& met) noexcept {
  const std::time_t end = secondsNow() + patienceOfLiving;
  const auto isFirst = [hanging](const FoundThread& thread) {
    return static_cast<std::uint64_t>(thread.id) == hanging;
  };
  BacktraceProgram program(memory, met);
  program.endAt(end);
  for (const bool first : {true, false}) {
    for (const FoundThread& thread : threads) {
      if (thread.id == 0 || &thread == &threads.crashing() || isFirst(thread) != first ||
          (alone && !first)) {
        continue;
      }
      if (secondsNow() > end) {
        Crash::print("\n\nfurther threads are left out\n");
        return;
      }
      printHeading(thread, first ? "hanging" : nullptr);
      printStack(program, thread, memory, met);
    }
  }
  if (!threads.complete()) {
    Crash::print("\nerror while enumerating threads\n");
  }
}

}  // namespace Kyr

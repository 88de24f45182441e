/// \file
/// How the parts of the crash handler work together where a fault arrives as a signal.
///
/// All of them run in a process that has just broken. Between the fault and the end nothing
/// allocates, takes a lock or calls what might.
#pragma once

#include <kyr/crash/backtrace_request_p.h>
#include <kyr/crash/crash_about_p.h>
#include <kyr/crash/crash_exception_p.h>
#include <kyr/crash/crash_text_p.h>
#include <kyr/crash/crash_throw_p.h>

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

#include <signal.h>

namespace Kyr::Crash {

// ---- the processor: platform/crash_machine_x64_posix.cpp and its twins ------------------------

/// Room for the registers as dumps hold them.
using DumpContext = std::array<unsigned char, 1232>;

std::uint64_t instructionPointer(const ucontext_t& context) noexcept;
std::uint64_t stackPointer(const ucontext_t& context) noexcept;
/// Bytes below the stack pointer that belong to the running function.
constexpr std::uint64_t redZone = 128;
Registers registersOf(const ucontext_t& context) noexcept;
/// \return how many bytes of the room a dump holds
std::size_t fillDumpContext(const ucontext_t& context, DumpContext& dump) noexcept;
/// Whether the faulting access was a write; fetching an instruction is a read.
bool isWrite(const ucontext_t& context) noexcept;
/// Whether the processor refused an instruction without naming an address.
bool isProtectionFault(const ucontext_t& context) noexcept;
/// Whether these bytes begin an instruction that only the system may execute.
bool isPrivileged(const std::array<unsigned char, 2>& code) noexcept;
/// Whether the floating-point unit met a number too small to be normal, and no underflow.
bool isDenormalOperand(const ucontext_t& context) noexcept;
/// Whether the floating-point unit's own stack ran over or dry.
bool isFloatStackFault(const ucontext_t& context) noexcept;

/// What a dump says of the processor.
struct Processor {
  std::uint16_t architecture;
  std::uint16_t level;
  std::uint16_t revision;
  std::array<std::uint32_t, 6> identity;
};
Processor processor() noexcept;

// ---- memory: platform/crash_memory_posix.cpp --------------------------------------------------

/// A range of addresses with one content.
struct Mapping {
  std::uint64_t begin;
  std::uint64_t end;
  std::uint64_t offset;  ///< of its first byte in the file
  bool readable;
  bool executable;
  const char* path;  ///< not ended by a zero character
  std::size_t pathLength;
};

/// The memory of this process, read so that a wrong address is a failure and no second fault.
class Memory {
 public:
  /// Takes down what is mapped where. Ranges that come later are not known.
  void load() noexcept;
  /// Gives back what load() took of the system.
  void unload() noexcept;

  /// The next mapping in the order of addresses.
  /// \param position 0 at first; moved on
  /// \return false behind the last
  bool next(std::size_t& position, Mapping& mapping) const noexcept;

  /// The readable mapping that holds an address or, where there is none, the next above.
  bool find(std::uint64_t address, Mapping& mapping) const noexcept;

  /// \return false when not all of it can be read
  bool read(std::uint64_t address, void* target, std::size_t size) const noexcept;

  /// A descriptor on which an offset is an address; another program can use it, too.
  int descriptor() const noexcept { return _descriptor; }
  /// The system's list of mappings, as text.
  const char* list() const noexcept { return _list.data(); }
  std::size_t listLength() const noexcept { return _length; }

 private:
  int _descriptor = 0;
  std::size_t _length = 0;
  std::array<char, std::size_t{1} << 20> _list{};
};

/// Reads a file of the system from its beginning.
/// \return the number of bytes, at most \a size; 0 on failure
std::size_t readSystemFile(const char* name, char* target, std::size_t size) noexcept;

// ---- modules: platform/crash_modules_posix.cpp ------------------------------------------------

/// A program or library in memory.
struct LoadedModule {
  std::uint64_t begin;
  std::uint64_t end;
  const char* path;  ///< not ended by a zero character
  std::size_t pathLength;
};

/// The next module in the order of addresses.
/// \param position 0 at first; moved on
/// \return false behind the last
bool nextModule(const Memory& memory, std::size_t& position, LoadedModule& module) noexcept;

/// The module that holds an address.
/// \return false when none does
bool findModule(const Memory& memory, std::uint64_t address, LoadedModule& module) noexcept;

/// What tells a build from all others.
using BuildId = std::array<unsigned char, 64>;

/// Reads the build id of the module that begins at an address.
/// \return its length; 0 when there is none
std::size_t readBuildId(const Memory& memory, std::uint64_t base, BuildId& id) noexcept;

// ---- threads: platform/crash_threads_posix.cpp ------------------------------------------------

/// The signal that stops a thread: one that applications leave alone. It is taken only once the
/// process is broken, or a thread of it hangs.
int stopSignal() noexcept;

/// A thread as the report found it.
struct FoundThread {
  int id;        ///< 0 when it ended before it could stop
  int priority;  ///< nice value: 0 is ordinary, less is more urgent
  /// Its registers, which lie on its own stack; null when it did not answer in time.
  std::atomic<const ucontext_t*> context;
};

/// The threads of this process, of which all but the crashing one stand still.
class Threads {
 public:
  /// Stops every other thread; waits two seconds at most. Once they are released, they can be
  /// stopped again.
  /// \param own where the crashing thread was when it broke
  void stop(const ucontext_t& own) noexcept;
  /// Lets the stopped threads run on.
  void release() noexcept;

  /// All threads that were found; the crashing one comes first.
  const FoundThread* begin() const noexcept { return _found.data(); }
  const FoundThread* end() const noexcept { return _found.data() + _count; }
  const FoundThread& crashing() const noexcept { return _found[0]; }
  /// Whether all threads could be listed.
  bool complete() const noexcept { return _complete; }

  /// Called on each stopped thread.
  void standStill(const ucontext_t& context) noexcept;

 private:
  bool isKnown(int id) const noexcept;
  /// \return how many threads were not known before
  unsigned signalNewThreads() noexcept;
  bool add(int id) noexcept;
  /// Whether every thread has answered or ended.
  bool allStand() noexcept;

  bool _complete = false;
  std::atomic<unsigned> _count{0};
  std::atomic<int> _round{0};     ///< how often threads were stopped
  std::atomic<int> _released{0};  ///< the last round that has come to its end
  std::array<FoundThread, 4096> _found{};
};

// ---- fault: platform/crash_fault_posix.cpp ----------------------------------------------------

/// What went wrong, in the words that reports have on every platform.
struct Fault {
  const char* name;    ///< null for a fault that has only a number
  std::uint32_t code;  ///< used when there is no name
  bool hasAddress;     ///< whether it is an access to an address
  bool write;
  std::uint64_t address;
};

Fault classify(const siginfo_t& signal, const ucontext_t& context, const Memory& memory) noexcept;

/// Appends where a signal came from that is no fault: abort(), or the process that sent it.
void appendOrigin(Text& text, const siginfo_t& signal) noexcept;

// ---- dump: platform/crash_dump_posix.cpp ------------------------------------------------------

/// Remembers where the dump goes; for the time before a crash.
/// \param name whole path, in UTF-8; empty for none
void setDumpFile(const char* name) noexcept;

/// Names a file of this process in the folder of one that was given before; a forked child has
/// another number.
/// \param given whole path; empty for none
/// \param ending of the name, with its dot
/// \return false without a folder, and when the name does not fit
bool nameOwnFile(const char* given, const char* ending, std::array<char, 4096>& path) noexcept;

/// Creates a file for its owner alone. Only an own file of an earlier process of the same number
/// gives way; what anybody else has put there stays.
/// \return its descriptor; negative when it was not created
int createOwnFile(const char* path) noexcept;

/// Writes the minidump, and says on standard error if it cannot.
/// \return its whole path; empty when there is none
const char* writeDump(const siginfo_t& signal, const Threads& threads,
                      const Memory& memory) noexcept;

/// Removes the oldest dumps of this user beyond the bound, but none that is being written.
/// \param newest the full name of this process's dump, which stays
void removeOldDumps(const char* newest) noexcept;

// ---- output: platform/crash_output_posix.cpp --------------------------------------------------

/// Has what the calling thread prints from now on go into a file; one thread at a time.
/// \param file its descriptor; negative ends it
void collectOutput(int file) noexcept;
/// \return the descriptor of that file; -1 on other threads
int outputOfThread() noexcept;

/// "message: the system's words for the error", as printBytes() does.
void printSystemError(const char* message, int error) noexcept;

// ---- backtraces: platform/crash_backtrace_posix.cpp -------------------------------------------

/// Remembers where the program kyr-backtrace lies; for the time before a crash.
void findBacktraceProgram() noexcept;

/// Prints the backtraces of all threads with their headings.
/// \param thrown where the exception came from that ends the process; empty when the crashing
///        thread's stack shows it
/// \param met gets the modules that frames lie in
void printBacktraces(const Threads& threads, const Memory& memory, const CallChain& thrown,
                     MetModules& met) noexcept;

// ---- a file for the report: platform/crash_report_file_posix.cpp ------------------------------

/// Sends standard error to the file for the report, if there is to be one.
void openReportFile() noexcept;
/// Sends standard error where it went before, and everything that the file has got there, too.
/// Further calls do nothing.
void closeReportFile() noexcept;

// ---- the process: platform/crash_about_posix.cpp ----------------------------------------------

/// Prints which process broke, the names of its threads, and which builds the backtraces are about.
/// \param fault what the report's first line says
/// \param dump its whole path; empty when there is none
void printAbout(const Text& fault, const char* dump, const Threads& threads, const Memory& memory,
                const MetModules& met) noexcept;

/// The same for a process that lives on, without the calling thread.
/// \param hanging the number of the thread that comes first
/// \param alone leaves out all other threads
void printLivingBacktraces(const Threads& threads, const Memory& memory, std::uint64_t hanging,
                           bool alone, MetModules& met) noexcept;

// ---- stacks: platform/crash_stack_posix.cpp ---------------------------------------------------

/// Gives the calling thread, and each thread that starts from now on, a stack for the handler,
/// so that it can report an overflow of the thread's own.
void prepareStacks() noexcept;

/// The stack on which a thread ran until a fault, as far as it has memory now.
/// \return false for a thread that was not prepared
bool findStack(const ucontext_t& context, const Memory& memory, Mapping& stack) noexcept;

/// Tells the person at the terminal of the report, once. Waits a second at most for a terminal that
/// takes nothing.
void showNotice(const char* dump) noexcept;

}  // namespace Kyr::Crash

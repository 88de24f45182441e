/// \file
/// How the parts of the crash handler work together where a fault arrives as an exception of the
/// system.
///
/// All of them run in a process that has just broken, on one thread. None of them uses the
/// runtime's heap, its locale or its streams, whose locks another thread may hold for ever.
#pragma once

#include <kyr/crash/crash_about_p.h>
#include <kyr/crash/crash_text_p.h>
#include <kyr/crash/crash_throw_p.h>

#include <QByteArray>

#include <cstdint>

// The system's names of EXCEPTION_POINTERS, EXCEPTION_RECORD, CONTEXT and STACKFRAME64.
struct _EXCEPTION_POINTERS;
struct _EXCEPTION_RECORD;
struct _CONTEXT;
struct _tagSTACKFRAME64;

namespace Kyr::Crash {

/// The fault and the thread that it has broken.
struct Break {
  _EXCEPTION_POINTERS* fault;  ///< with the registers
  unsigned long thread;        ///< number of the crashing thread
  const CallChain* thrown;  ///< where the exception came from that ends the process; may be empty
};

// ---- output: platform/crash_output_win.cpp ----------------------------------------------------

/// Writes to the handle behind standard error, at the end of a file.
void write(const char* bytes, std::size_t length) noexcept;
inline void write(const Text& text) noexcept {
  write(text.data(), text.length());
}

/// Notes which line ends the runtime writes to standard error; reports have the same.
void noteLineEnds() noexcept;

/// Opens the file for the report, if there is to be one: what is written from here on goes there,
/// too.
void openReportFile() noexcept;

/// Has what the calling thread writes from now on added to a text; one thread at a time.
/// \param text null ends it
void collectOutput(QByteArray* text) noexcept;

/// Whether the calling thread does so.
bool isCollecting() noexcept;

/// "message: the system's words for the error", on standard error.
/// \param error its number, 0 when the system has none
void printSystemError(const char* message, unsigned long error) noexcept;

/// Returns when the user presses the space key in the console window, or there is no console.
void waitForSpace() noexcept;

// ---- fault: platform/crash_fault_win.cpp ------------------------------------------------------

/// Prints the first two lines of a report.
/// \param words instead of the fault's name; null for the name
/// \param headline gets what the first line says of the fault
void describe(const _EXCEPTION_RECORD& fault, const char* words, Text& headline) noexcept;

// ---- dump: platform/crash_dump_win.cpp --------------------------------------------------------

/// Loads the library that knows dumps, symbols and stacks, and says on standard error if it cannot.
void loadDebugHelp() noexcept;

/// Looks up a function of that library.
/// \return null when it is missing
void* findDebugHelp(const char* name) noexcept;

/// Remembers where the dump goes; for the time before a crash.
/// \param name whole path, in UTF-8; empty for none
void setDumpFile(const char* name) noexcept;
/// \return the path as the system takes it; empty for none
const wchar_t* dumpFile() noexcept;

/// Writes the minidump, and says on standard error if it cannot.
void writeDump(const Break& broken) noexcept;
/// \return the path of the dump once it is written; empty when there is none
const wchar_t* writtenDump() noexcept;

/// Removes the oldest dumps of this user beyond the bound, but none that is being written.
void removeOldDumps() noexcept;

// ---- backtraces: platform/crash_backtrace_win.cpp ---------------------------------------------

/// Prints the backtraces of all threads with their headings.
/// \param helper number of a thread that only helps to report; is left out
void printBacktraces(const Break& broken, unsigned long helper) noexcept;

/// Prints those of a process that lives on, without the calling thread.
/// \param hanging the number of the thread that comes first
/// \param alone leaves out all other threads
void printLivingBacktraces(unsigned long hanging, bool alone) noexcept;

// ---- processor: platform/crash_machine_x86_win.cpp or platform/crash_machine_x64_win.cpp ------

/// The registers that lead through a stack.
struct Position {
  std::uintptr_t instruction;
  std::uintptr_t stack;
  std::uintptr_t base;  ///< of the frame, in functions that keep it in a register
};

Position positionIn(const _CONTEXT& registers) noexcept;
void setPosition(_CONTEXT& registers, const Position& position) noexcept;

/// Where a step through a stack has led.
/// \param before, after  the registers that the step began with, and what it has made of them
Position positionIn(const _tagSTACKFRAME64& frame, const _CONTEXT& before,
                    const _CONTEXT& after) noexcept;

/// The number that debuggers know the processor by.
unsigned long processorNumber() noexcept;

/// Calls a function. A fault in it that nobody handles ends the process with exit code 1, where the
/// system would end it with the fault's number.
void callGuarded(void (*function)(void*), void* given);

// ---- frames: platform/crash_frame_win.cpp -----------------------------------------------------

/// What is known of addresses in code; a process has one such object.
class Symbols {
 public:
  Symbols() noexcept;
  ~Symbols();
  Symbols(const Symbols&) = delete;
  Symbols& operator=(const Symbols&) = delete;

  /// Why only modules are known, and no functions and lines.
  /// \return the number of the error; 0 when all is known
  unsigned long error() const noexcept { return _error; }

  /// Prints a line of a backtrace.
  /// \param number of the frame; in all but frame 0 the address is behind a call
  void printFrame(unsigned number, std::uintptr_t address) const noexcept;

 private:
  unsigned long _error = 0;
};

/// The modules of the frames that have been printed.
const MetModules& metModules() noexcept;

// ---- the process: platform/crash_about_win.cpp ------------------------------------------------

/// Prints which process broke, the names of the noted threads, and which builds the backtraces are
/// about.
/// \param fault what the report's first line says
void printAbout(const Text& fault) noexcept;

/// Tells the person at the terminal of the report, once.
void showNotice() noexcept;

/// Notes a thread whose backtrace is printed.
void noteThread(unsigned long thread) noexcept;

// ---- stacks: platform/crash_stack_win.cpp -----------------------------------------------------

/// Makes the calling thread, and each thread that starts from now on, keep some of its stack for
/// the handler, so that it can report an overflow of the rest.
void prepareStacks() noexcept;

}  // namespace Kyr::Crash

/// \file
/// Internal program errors: a report on standard error, then the end of the process.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

namespace Kyr {

/// A broken invariant. Constructing one reports it and ends the process; nothing catches it.
///
/// Every constructor releases the shared memory of the process, calls the fatal-error hook,
/// writes "\nInternal program error: " and the message straight to the descriptor of standard
/// error, and then ends the process through CallDebugger(), so that a debugger stops at the
/// spot or the crash handler writes its dump. Sites write `throw ProgError(...)` so that a
/// reader sees the path end there.
/// \code
/// if (points.empty()) {
///   throw ProgError("Surface::Surface", "surface", 12, "a surface without points");
/// }
/// \endcode
/// \threadsafety any thread; the reports of two threads may interleave
class KYR_EXPORT ProgError {
 public:
  /// Reports "Unknown error".
  [[noreturn]] ProgError();

  /// \param message written in the local 8-bit encoding; without memory for the conversion in
  ///        ASCII, with question marks for other characters
  [[noreturn]] ProgError(const QString& message);

  /// \param message written as it is; null as if it were empty, as every text of a report
  /// \param callDebugger false ends the process with exit code 1, without clean-up and
  ///        without a fault
  [[noreturn]] ProgError(const char* message, bool callDebugger);

  /// The form of the library's own sites; the report shows the message first.
  /// \param function qualified name of the operation, as "Kyr::UnitLinear::to"
  /// \param file name of the source file without extension, as "kyr_unit"
  /// \param line the site's number within the file
  /// \param message short and English
  [[noreturn]] ProgError(const char* function, const char* file, unsigned line,
                         const char* message);

  ProgError(const ProgError&) = default;
  ProgError& operator=(const ProgError&) { return *this; }
  ~ProgError() {}

  /// Faults on purpose by writing a 32-bit zero to address zero.
  [[noreturn]] static void CallDebugger();
};

namespace ProgErrorNS {
/// Message of the report about a floating-point fault.
KYR_EXPORT extern const char* const FPU_EXCEPTION_STRING;
}  // namespace ProgErrorNS

/// Called by a dying process before its report, and by the crash handler before the end.
using FatalErrorHook = void (*)();

/// Sets the function with which an application saves its own state when the process dies of
/// an internal program error or a crash.
/// \param hook may be null for none; runs on the failing thread with the heap in any state. It
///        is not called again for an error that it raises itself; what it throws is dropped.
/// \return the hook that was set before; null by default
/// \threadsafety any thread
KYR_EXPORT FatalErrorHook setFatalErrorHook(FatalErrorHook hook) noexcept;

}  // namespace Kyr

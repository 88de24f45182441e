/// \file
/// The last things that happened in the process, for the report of a crash.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>
#include <QStringList>

#include <atomic>

namespace Kyr {

/// Keeps the newest entries of the process in static memory: what error logs were told, texts of
/// the progress, steps of the library's start, jobs, and what the application notes. The report of
/// a crash shows them from the last to the first.
///
/// An entry costs some ten nanoseconds; it takes no lock and no memory. What is written waits for
/// nobody: an entry that a thread has not finished, or that is just replaced, is left out by
/// readers and never shown half. The rare entry whose place another thread has not left yet is
/// dropped.
/// \code
/// FlightRecorder::note("camera", "exposure is set");
/// for (const QString& line : FlightRecorder::lines()) {
///   std::cerr << line.toStdString() << '\n';
/// }
/// \endcode
/// It is on unless the environment says `KYR_FLIGHT_RECORDER=off`, or `0`.
/// \threadsafety any thread, also in a handler of a signal
class KYR_EXPORT FlightRecorder {
 public:
  /// How many entries are shown; more are kept.
  static constexpr unsigned shownEntries = 256;
  /// Bytes of UTF-8 that are kept of an entry's source and text together; what is cut off a text
  /// is replaced by "..." where it is shown.
  static constexpr unsigned longestEntry = 224;
  /// Bytes of UTF-8 that are kept of a source.
  static constexpr unsigned longestSource = 32;

  /// Whether anything is kept. The first call asks the environment.
  static bool isOn() noexcept {
    const State_t state = _state.load(std::memory_order_relaxed);
    return state != Off && (state == On || startAsAsked());
  }
  /// Keeps entries from now on, or none. Those that are there stay.
  static void setOn(bool on) noexcept { _state.store(on ? On : Off, std::memory_order_relaxed); }

  /// Keeps an entry, with the time and the calling thread.
  /// \param source the part of the program, a word; null for none
  /// \param text in UTF-8; null counts as empty
  static void note(const char* source, const char* text) noexcept {
    if (isOn()) {
      add(source, text);
    }
  }
  /// As above.
  static void note(const char* source, const QString& text) noexcept {
    if (isOn()) {
      add(source, text);
    }
  }

  /// The newest entries as a report shows them, the newest first: time in UTC, number of the
  /// thread, source, text. Secrets are blanked, as in a SystemReport.
  /// \throws std::bad_alloc
  static QStringList lines();

 private:
  enum State_t : int {
    Unknown = 0,  ///< the environment was not asked yet; leads to one of the others
    Off = 1,
    On = 2,
  };
  static bool startAsAsked() noexcept;
  static void add(const char* source, const char* text) noexcept;
  static void add(const char* source, const QString& text) noexcept;

  static std::atomic<State_t> _state;
};

}  // namespace Kyr

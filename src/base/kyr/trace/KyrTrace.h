/// \file
/// Where the time goes: a file of what ran when and on which thread.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

#include <atomic>
#include <cstdint>

namespace Kyr {

/// The trace of the process: its scopes, jobs, timers, reads and saves, in a file that Perfetto
/// and chrome://tracing show as lanes of coloured bars, one lane for each thread.
///
/// A program is traced when the environment says so, without being built anew:
/// `KYR_TRACE=trace.json program`. `%p` in the name stands for the number of the process; without
/// it only one process at a time writes a file, and the others, forked children among them, say
/// so or do nothing. A program may do it by itself:
/// \code
/// Trace::start("reading-%p.json");
/// {
///   const TraceSpan span("read points");
///   in.read(room, sizeof room);
/// }
/// Trace::stop();
/// \endcode
///
/// Who traces nothing pays one relaxed load at each place. What is recorded waits in 512 KiB that
/// all threads share, for a second at most while anything is recorded; a process that dies leaves
/// a file that can be opened and lacks that second. A file that takes no more, as on a full disk,
/// is said once on standard error and ends the trace; the program goes on. See docs/traces.md.
/// \threadsafety any thread; not in a handler of a signal
class KYR_EXPORT Trace {
 public:
  /// Whether anything is recorded. The first call asks the environment.
  static bool isOn() noexcept {
    const State_t state = _state.load(std::memory_order_relaxed);
    return state != Off && (state == On || startAsAsked());
  }

  /// Begins a trace, and ends the one that is being written.
  /// \param fileName is emptied or created; "%p" in it becomes the number of the process
  /// \throws Exception with name and reason when it cannot be written, or another process writes
  ///         a trace into it; nothing is recorded then
  static void start(const QString& fileName);
  /// Completes the file; without a trace it does nothing. The end of the process does so too, but
  /// not what ends it at once, as std::_Exit().
  static void stop() noexcept;

  /// Names the calling thread in the traces, from now on.
  /// \param name the first 63 bytes of UTF-8 count
  static void nameThread(const QString& name) noexcept;

  /// Records a moment.
  /// \param name for developers, in UTF-8; a few hundred bytes count
  static void mark(const char* name) noexcept {
    if (isOn()) {
      addMark(name);
    }
  }

  /// Nanoseconds of a clock that only rises; never 0.
  static std::int64_t now() noexcept;
  /// Records a span of the calling thread that ends now, for what knows its name only then. Spans
  /// of a thread lie inside or beside each other.
  /// \param category by which they are told apart, as "timer"; a literal without quotes
  /// \param begun of now(); 0 records nothing
  static void addSpan(const char* name, const char* category, std::int64_t begun) noexcept;

 private:
  enum State_t : int {
    Unknown = 0,  ///< the environment was not asked yet; leads to one of the others
    Off = 1,
    On = 2,
  };
  friend class TraceWriter;
  static bool startAsAsked() noexcept;
  static void addMark(const char* name) noexcept;

  static std::atomic<State_t> _state;
};

/// A part of the work of a thread, from its construction to its end.
/// \code
/// const TraceSpan span("sort by length");
/// sortByLength(points);
/// \endcode
/// \threadsafety one thread
class TraceSpan {
 public:
  /// \param name as for Trace::mark(); lives longer than this object, as a literal does
  /// \param category as for Trace::addSpan()
  explicit TraceSpan(const char* name, const char* category = "application") noexcept
      : _name(name), _category(category), _begun(Trace::isOn() ? Trace::now() : 0) {}
  ~TraceSpan() {
    if (_begun != 0) {
      Trace::addSpan(_name, _category, _begun);
    }
  }
  TraceSpan(const TraceSpan&) = delete;
  TraceSpan& operator=(const TraceSpan&) = delete;

 private:
  const char* const _name;
  const char* const _category;
  const std::int64_t _begun;
};

/// The life of something, as of an open file: it may end on another thread than it began, and
/// others may end before or after it. It is drawn in a lane of its own.
/// \code
/// struct Project {
///   explicit Project(const QString& name) { open.setDetail(name); }
///   TraceLife open{"project"};
/// };
/// \endcode
/// \threadsafety one thread at a time
class KYR_EXPORT TraceLife {
 public:
  /// \param name, category as for TraceSpan
  explicit TraceLife(const char* name, const char* category = "application") noexcept
      : _name(name), _category(category), _begun(Trace::isOn() ? Trace::now() : 0) {}
  ~TraceLife() { end(); }
  TraceLife(const TraceLife&) = delete;
  TraceLife& operator=(const TraceLife&) = delete;

  /// What tells it from others of its name, as the name of a file.
  void setDetail(const QString& detail) {
    if (_begun != 0) {
      _detail = detail;
    }
  }
  /// Ends it before the object does; a second call does nothing.
  void end() noexcept {
    if (_begun != 0) {
      record();
    }
  }

 private:
  void record() noexcept;

  const char* const _name;
  const char* const _category;
  std::int64_t _begun;
  QString _detail;
};

}  // namespace Kyr

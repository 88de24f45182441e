/// \file
/// A developer's stopwatch.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace Kyr {

/// Measures code by marks on a line of time and by named intervals, and prints both as tables.
///
/// A plain value on the stack of the code that is measured; it runs from its construction on. All
/// times are in milliseconds of the machine's performance counter. Traces show the marks and the
/// intervals, too; see Trace.
/// \code
/// DebugTimer timer("reading");
/// {
///   const DebugTimer::Scope scope(timer, "points");
///   in.read(room, sizeof room);
/// }
/// timer.mark("read");
/// timer.print();
/// \endcode
/// \threadsafety one thread per object
class KYR_EXPORT DebugTimer {
 public:
  /// A moment that was given a name.
  struct Mark {
    QString name;  ///< as mark() was given it
    double time;   ///< milliseconds since the start
  };
  /// What the intervals of one label come to.
  struct Interval {
    double total = 0;    ///< milliseconds
    unsigned count = 0;  ///< how many have ended
  };

  /// Begins an interval and ends it where its block ends, also by an exception.
  class KYR_EXPORT Scope {
   public:
    /// \param timer lives longer than this object
    /// \param label as for end(); copied
    Scope(DebugTimer& timer, const char* label);
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;
    /// Without memory for a new label the interval counts nowhere.
    /// \throws ProgError "end without begin"
    ~Scope();

   private:
    DebugTimer& _timer;
    const std::string _label;
  };

  /// Starts the timer.
  /// \param title stands above the tables; empty for none
  explicit DebugTimer(const QString& title);

  /// \param title as the constructor's
  void setTitle(const QString& title) { _title = title; }
  /// \param precision decimals of every time in the tables, 2 at first; at most 99 count, and
  ///        negative ones mean 6
  void setPrecision(int precision) { _precision = precision; }

  /// Starts anew: forgets the marks, keeps the intervals and those that have begun.
  void start();
  /// Adds a mark with the time since the start.
  /// \throws ProgError "Timer not started"
  void mark(const QString& name);
  /// Begins an interval; intervals may stand inside each other.
  void begin();
  /// Ends the interval that began last and adds its time to those of the same label.
  /// \param label UTF-8; null counts as empty
  /// \throws ProgError "end without begin"; std::bad_alloc, and the interval is over even so
  void end(const char* label);

  /// The marks since the start, in the order recorded.
  const std::vector<Mark>& getMarks() const { return _marks; }
  /// The intervals that have ended, by label.
  const std::map<std::string, Interval>& getIntervals() const { return _intervals; }

  /// The title and the tables of marks and of intervals by label; each only when there is
  /// something to say. The same under every locale; names with line breaks are not treated
  /// specially.
  /// \throws ProgError "Timer not started"
  QString toString() const;
  /// Writes the tables to standard output in the local 8-bit encoding, and flushes it.
  /// \throws ProgError "Timer not started"
  void print() const;

 private:
  struct Begun {
    std::int64_t count;   // of the counter
    std::int64_t traced;  // of the trace; 0 without one
  };

  KYR_HIDDEN double milliseconds(std::int64_t from, std::int64_t to) const;
  KYR_HIDDEN QString timeText(double time) const;
  KYR_HIDDEN QString marksText() const;
  KYR_HIDDEN QString intervalsText() const;

  QString _title;
  int _precision = 2;
  bool _started = false;
  std::int64_t _startCount = 0;
  std::int64_t _frequency;  // counts of the machine's counter in a second
  std::vector<Mark> _marks;
  std::vector<Begun> _begun;
  std::map<std::string, Interval> _intervals;
};

}  // namespace Kyr

/// \file
/// Moments and spans of time.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/sync/KyrMutex.h>
#include <kyr/text/KyrString.h>

#include <QDateTime>
#include <QString>

#include <chrono>

namespace Kyr {

/// A moment since 1970-01-01 00:00 UTC, or a span: whole seconds and microseconds.
///
/// A plain value. Both fields are unsigned 32-bit numbers, so moments end in the year 2106 and
/// spans have no sign. The current time has a resolution of one millisecond.
/// \code
/// Time watch = Time::currentTime();
/// save(room, sizeof room);
/// const double seconds = watch.restart();
/// const std::chrono::microseconds span = Time::currentTime() - watch;
/// \endcode
/// \threadsafety one thread per object, except where a function says more
class KYR_EXPORT Time {
 public:
  /// Serialises conversions by the C runtime that share its buffers. Never destroyed.
  static Mutex& lock;

  /// 0 seconds, 0 microseconds.
  Time() = default;
  /// \param microseconds 0 to 999999 in normal use; kept as it is
  Time(unsigned seconds, unsigned microseconds) : _seconds(seconds), _microseconds(microseconds) {}
  /// As setSeconds().
  Time(double seconds) { setSeconds(seconds); }

  /// The present moment.
  static Time currentTime();
  /// The present moment; as currentTime().
  static Time actualTime() { return currentTime(); }

  /// The moment of another clock. What is below a microsecond is cut off, towards the past.
  /// \throws Exception "moment outside of 1970 to 2106"
  static Time fromTimePoint(std::chrono::system_clock::time_point moment);
  /// The moment of a QDateTime, in whatever time zone that is; to the millisecond.
  /// \throws Exception "moment outside of 1970 to 2106"; also for a \a moment that is not valid
  static Time fromDateTime(const QDateTime& moment);
  /// A span; what is below a microsecond is cut off, which leaves all from 0 ns to
  /// 4294967295 s 999999999 ns.
  /// \throws Exception "span outside of 0 to 4294967295 seconds"
  static Time fromDuration(std::chrono::nanoseconds span);

  /// Sets this object to the present moment.
  void setActualTime() { *this = currentTime(); }
  /// Sets this object to the present moment, for elapsed() and restart().
  void start() { *this = currentTime(); }

  /// Splits \a x into its floor and microseconds, the latter cut off.
  /// \param x in seconds. Seconds are formed in 64 bits and their lower 32 are kept, so
  ///        -0.5 becomes 4294967295 s and 500000 us. A floor beyond 64 bits gives 0 s; what is
  ///        not a finite number gives 0 s and 0 us.
  void setSeconds(double x);

  /// Reads the stamp of a camera, as 2010:02:05 07:57:37, in the time zone of the user.
  ///
  /// Blanks and tabs may stand before every number and colon, a missing number counts as 0, and
  /// text after the seconds is ignored. A day beyond its month's end runs on into the next
  /// month; so do negative hours, minutes and seconds into what is before. A stamp in the hour
  /// that comes twice in autumn, and in the one that is missing in spring, is in standard time:
  /// 02:30 is then half an hour after the clock was put back, or on. A moment before
  /// 1970 or after 3000 is read with the year 1970, and as 0 s if it is before 1970 even so.
  /// \throws Exception "Wrong timeformat" for other separators, a month outside 1 to 12, a day
  ///         outside 1 to 31, hours above 23, minutes or seconds above 59; the object is unchanged
  /// \threadsafety takes #lock
  void convertDCSTime(const KString& text);

  /// The whole seconds alone.
  unsigned wholeSeconds() const { return _seconds; }
  /// The part below a second.
  unsigned microseconds() const { return _microseconds; }
  /// Both fields together, in seconds.
  double getSeconds() const { return double(_seconds) + double(_microseconds) / 1e6; }

  /// This moment for another clock.
  std::chrono::system_clock::time_point toTimePoint() const {
    using Clock = std::chrono::system_clock;
    return Clock::time_point(std::chrono::duration_cast<Clock::duration>(toDuration()));
  }
  /// This moment in the time zone of the user; what is below a millisecond is cut off.
  QDateTime toDateTime() const;
  /// This span.
  std::chrono::microseconds toDuration() const {
    return std::chrono::seconds(_seconds) + std::chrono::microseconds(_microseconds);
  }

  /// This moment minus \a other in seconds; negative when \a other is later.
  double difference(const Time& other) const;
  /// The span between two moments, whichever is earlier.
  Time absoluteDifference(const Time& other) const;
  /// The seconds from this moment to the present one.
  double elapsed() const;
  /// As elapsed(), and sets this object to the present moment.
  double restart();

  /// The moment in the user's time zone, always English: "Fri Feb 05 07:57:37 2010".
  /// \param withMicroseconds adds them undecorated: "Fri Feb 05 07:57:37 2010, 123000 us"
  /// \threadsafety takes #lock
  QString getTimeString(bool withMicroseconds) const;
  /// The date in the user's time zone as the C library's locale writes it; "unknown" when that
  /// locale has no text for it.
  /// \threadsafety any thread, as long as nobody sets the locale
  QString getDateString() const;

 private:
  unsigned _seconds = 0;
  unsigned _microseconds = 0;
};

/// The exact span from \a right to \a left; negative when \a right is later. A plain number is no
/// moment here, although it makes one elsewhere.
inline std::chrono::microseconds operator-(const Time& left, const Time& right) {
  return left.toDuration() - right.toDuration();
}
std::chrono::microseconds operator-(const Time& left, double right) = delete;
std::chrono::microseconds operator-(double left, const Time& right) = delete;

/// Whether \a left is earlier; the microseconds count when the seconds are equal.
inline bool operator<(const Time& left, const Time& right) {
  return left.wholeSeconds() != right.wholeSeconds() ? left.wholeSeconds() < right.wholeSeconds()
                                                     : left.microseconds() < right.microseconds();
}
inline bool operator>(const Time& left, const Time& right) {
  return right < left;
}
inline bool operator==(const Time& left, const Time& right) {
  return left.wholeSeconds() == right.wholeSeconds() && left.microseconds() == right.microseconds();
}
inline bool operator!=(const Time& left, const Time& right) {
  return !(left == right);
}
inline bool operator<=(const Time& left, const Time& right) {
  return !(right < left);
}
inline bool operator>=(const Time& left, const Time& right) {
  return !(left < right);
}

}  // namespace Kyr

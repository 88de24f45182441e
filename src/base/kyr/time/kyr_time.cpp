#include <kyr/time/KyrTime.h>
#include <kyr/time/time_clock_p.h>
#include <kyr/time/time_local_p.h>

#include <kyr/core/KyrException.h>
#include <kyr/core/forever_p.h>
#include <kyr/text/KyrString.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <climits>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned Lock = 31;
}

namespace {

Forever<Mutex> lockRoom("Kyr::Time::lock", "kyr_time", site::Lock);

std::atomic<Clock::Source> clockSource{nullptr};

std::int64_t systemMilliseconds() {
  const auto now = std::chrono::system_clock::now().time_since_epoch();
  return std::chrono::floor<std::chrono::milliseconds>(now).count();
}

/// A whole number as an integer; 0 for what has no place in 64 bits.
std::int64_t toInt64(double whole) {
  constexpr double limit = 9223372036854775808.0;
  return whole >= -limit && whole < limit ? static_cast<std::int64_t>(whole) : 0;
}

/// The text of asctime() with the day in two digits, which some C runtimes pad with a blank.
QString momentText(const std::tm& fields) {
  constexpr std::array<const char*, 7> days = {"Sun", "Mon", "Tue", "Wed", "Thu", "Fri", "Sat"};
  constexpr std::array<const char*, 12> months = {"Jan", "Feb", "Mar", "Apr", "May", "Jun",
                                                  "Jul", "Aug", "Sep", "Oct", "Nov", "Dec"};
  const auto twoDigits = [](int value) { return QString("%1").arg(value, 2, 10, QChar('0')); };
  return QString("%1 %2 %3 %4:%5:%6 %7")
      .arg(days[static_cast<std::size_t>(fields.tm_wday)],
           months[static_cast<std::size_t>(fields.tm_mon)], twoDigits(fields.tm_mday),
           twoDigits(fields.tm_hour), twoDigits(fields.tm_min), twoDigits(fields.tm_sec),
           QString::number(fields.tm_year + 1900));
}

/// A stamp as its numbers stand in the text; strtol has limited them to the range of long.
struct Stamp {
  long year, month, day, hour, minute, second;
};

/// Takes the items of a stamp one by one from the front of a text.
class StampReader {
 public:
  explicit StampReader(const char* text) : _rest(text) {}

  long number() {
    skipBlanks();
    char* end = nullptr;
    const long value = std::strtol(_rest, &end, 10);
    _rest = end;
    return value;
  }
  void colon() {
    skipBlanks();
    _onlyColons = _onlyColons && *_rest == ':';
    if (*_rest != '\0') {
      ++_rest;
    }
  }
  bool onlyColons() const { return _onlyColons; }

 private:
  void skipBlanks() {
    while (*_rest == ' ' || *_rest == '\t') {
      ++_rest;
    }
  }
  const char* _rest;
  bool _onlyColons = true;
};

/// Whether a stamp is taken. Negative hours, minutes and seconds are: such files exist and have
/// always been read.
bool inRange(const Stamp& stamp) {
  return stamp.month >= 1 && stamp.month <= 12 && stamp.day >= 1 && stamp.day <= 31 &&
         stamp.hour <= 23 && stamp.minute <= 59 && stamp.second <= 59;
}

Stamp readStamp(const char* text) {
  StampReader reader(text);
  Stamp stamp{};
  stamp.year = reader.number();
  reader.colon();
  stamp.month = reader.number();
  reader.colon();
  stamp.day = reader.number();
  stamp.hour = reader.number();
  reader.colon();
  stamp.minute = reader.number();
  reader.colon();
  stamp.second = reader.number();
  if (!reader.onlyColons() || !inRange(stamp)) {
    throw Exception("Wrong timeformat");
  }
  return stamp;
}

/// The days from 1970-01-01 to the first of a month.
/// \param year from 0
/// \param month from 1 to 12
std::int64_t daysBefore(std::int64_t year, long month) {
  // Counts years from March on, so that the leap day is their last one.
  const std::int64_t marchYear = month > 2 ? year : year - 1;
  const std::int64_t era = (marchYear + 400) / 400 - 1;
  const std::int64_t yearOfEra = marchYear - era * 400;
  const std::int64_t dayOfYear = (153 * ((month + 9) % 12) + 2) / 5;
  return era * 146097 + yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear - 719468;
}

/// The moment of a stamp where local time is UTC.
std::int64_t secondsInUtc(const Stamp& stamp, long year) {
  const auto few = [](long number) { return std::int64_t(std::max<long>(number, INT_MIN)); };
  const std::int64_t days = daysBefore(std::clamp(year, 0L, 9999L), stamp.month) + stamp.day - 1;
  return days * 86400 + few(stamp.hour) * 3600 + few(stamp.minute) * 60 + few(stamp.second);
}

constexpr std::int64_t endOfYear3000 = 32535215999;

/// How far local time is ahead of UTC at a moment.
std::int64_t secondsAhead(std::int64_t moment) {
  const std::int64_t known = std::clamp<std::int64_t>(moment, 0, endOfYear3000);
  const std::tm fields = Platform::localFields(known);
  const Stamp local{fields.tm_year + 1900L, fields.tm_mon + 1L, fields.tm_mday,
                    fields.tm_hour,         fields.tm_min,      fields.tm_sec};
  return secondsInUtc(local, local.year) - known;
}

/// The moment of a local time. mktime() would not do: which of the two moments it takes in an hour
/// that comes twice depends on what it converted before.
std::int64_t momentOfLocal(std::int64_t inUtc) {
  constexpr std::int64_t day = 86400;
  const std::int64_t before = secondsAhead(inUtc - day);
  const std::int64_t after = secondsAhead(inUtc + day);
  // In autumn the clock is behind afterwards and both fit in the hour that comes twice; the hour
  // that is missing in spring fits neither, and counts as before the change: as standard time.
  return secondsAhead(inUtc - after) == after ? inUtc - after : inUtc - before;
}

/// The moment of a stamp between 1970 and 3000: how far the C runtimes go differs.
/// \return -1 beyond them
std::int64_t momentOf(const Stamp& stamp, long year) {
  const std::int64_t moment = momentOfLocal(secondsInUtc(stamp, year));
  return moment < 0 || moment > endOfYear3000 ? -1 : moment;
}

}  // namespace

Mutex& Time::lock = lockRoom.object;

Clock::Source Clock::setSource(Source source) noexcept {
  return clockSource.exchange(source);
}

std::int64_t Clock::milliseconds() {
  const Source source = clockSource.load();
  return source ? source() : systemMilliseconds();
}

namespace {

constexpr std::int64_t microsecondsPerSecond = 1000000;

/// \throws Exception with \a refusal for what has no place in the seconds
Time splitMicroseconds(std::int64_t whole, const char* refusal) {
  const std::int64_t seconds = whole / microsecondsPerSecond;
  if (whole < 0 || seconds > std::numeric_limits<unsigned>::max()) {
    throw Exception(refusal);
  }
  return {static_cast<unsigned>(seconds), static_cast<unsigned>(whole % microsecondsPerSecond)};
}

constexpr const char* noMoment = "moment outside of 1970 to 2106";

}  // namespace

Time Time::fromTimePoint(std::chrono::system_clock::time_point moment) {
  const auto since = std::chrono::floor<std::chrono::microseconds>(moment.time_since_epoch());
  return splitMicroseconds(since.count(), noMoment);
}

Time Time::fromDateTime(const QDateTime& moment) {
  const qint64 milliseconds = moment.toMSecsSinceEpoch();
  constexpr qint64 most = std::numeric_limits<qint64>::max() / 1000;
  if (!moment.isValid() || milliseconds > most) {
    throw Exception(noMoment);
  }
  return splitMicroseconds(std::max<qint64>(milliseconds, -1) * 1000, noMoment);
}

Time Time::fromDuration(std::chrono::nanoseconds span) {
  // Rounding down refuses a small negative span, which rounding to zero would take for none.
  const auto whole = std::chrono::floor<std::chrono::microseconds>(span);
  return splitMicroseconds(whole.count(), "span outside of 0 to 4294967295 seconds");
}

QDateTime Time::toDateTime() const {
  const auto whole = std::chrono::duration_cast<std::chrono::milliseconds>(toDuration());
  return QDateTime::fromMSecsSinceEpoch(whole.count());
}

Time Time::currentTime() {
  const std::int64_t now = Clock::milliseconds();
  return {static_cast<unsigned>(now / 1000), static_cast<unsigned>(now % 1000) * 1000};
}

void Time::setSeconds(double x) {
  const double whole = std::floor(x);
  _seconds = static_cast<unsigned>(toInt64(whole));
  _microseconds = static_cast<unsigned>(toInt64((x - whole) * 1e6));
}

void Time::convertDCSTime(const KString& text) {
  const Stamp stamp = readStamp(text.c_str());
  const AutoMutex locked(&lock);
  std::int64_t moment = momentOf(stamp, stamp.year);
  if (moment < 0) {
    moment = momentOf(stamp, 1970);
  }
  *this = Time(static_cast<unsigned>(std::max<std::int64_t>(moment, 0)), 0);
}

double Time::difference(const Time& other) const {
  return (double(_microseconds) - double(other._microseconds)) / 1e6 +
         (double(_seconds) - double(other._seconds));
}

Time Time::absoluteDifference(const Time& other) const {
  const Time& earlier = other < *this ? other : *this;
  const Time& later = other < *this ? *this : other;
  Time span(later._seconds - earlier._seconds, later._microseconds - earlier._microseconds);
  if (later._microseconds < earlier._microseconds) {
    span._seconds -= 1;
    span._microseconds += 1000000;
  }
  return span;
}

double Time::elapsed() const {
  return currentTime().difference(*this);
}

double Time::restart() {
  const Time before = *this;
  start();
  return difference(before);
}

QString Time::getTimeString(bool withMicroseconds) const {
  const AutoMutex locked(&lock);
  const QString text = momentText(Platform::localFields(_seconds));
  return withMicroseconds ? text + ", " + QString::number(_microseconds) + " us" : text;
}

QString Time::getDateString() const {
  const std::tm fields = Platform::localFields(_seconds);
  std::array<char, 255> text{};
  const std::size_t length = std::strftime(text.data(), text.size(), "%x", &fields);
  return length == 0 ? QString("unknown")
                     : QString::fromLocal8Bit(text.data(), static_cast<int>(length));
}

}  // namespace Kyr

#include "Fuzz.h"

#include <kyr/time/KyrTime.h>

#include <QDateTime>

#include <climits>
#include <cmath>
#include <cstdlib>

namespace KyrFuzz {

namespace {

const char* skipBlanks(const char* text) {
  return text + std::strspn(text, " \t");
}

/// Six numbers with colons between them, but for the one between day and hour.
/// \return whether it is a stamp
bool takeApart(const char* text, long (&numbers)[6]) {
  for (int i = 0; i < 6; ++i) {
    if (i != 0 && i != 3) {
      text = skipBlanks(text);
      if (*text++ != ':') {
        return false;
      }
    }
    char* end = nullptr;
    text = skipBlanks(text);
    numbers[i] = std::strtol(text, &end, 10);
    text = end;
  }
  return numbers[1] >= 1 && numbers[1] <= 12 && numbers[2] >= 1 && numbers[2] <= 31 &&
         numbers[3] <= 23 && numbers[4] <= 59 && numbers[5] <= 59;
}

/// What Qt makes of the numbers, where the user's time is UTC.
qint64 inUtc(const long (&numbers)[6], long year) {
  const QDateTime month(QDate(static_cast<int>(year), static_cast<int>(numbers[1]), 1), QTime(0, 0),
                        Qt::UTC);
  const auto few = [](long number) { return std::max<qint64>(number, INT_MIN); };
  return month.toSecsSinceEpoch() + (numbers[2] - 1) * 86400LL + few(numbers[3]) * 3600 +
         few(numbers[4]) * 60 + few(numbers[5]);
}

unsigned expectedSeconds(const long (&numbers)[6]) {
  const bool hasYear = numbers[0] >= 1 && numbers[0] <= 9999;
  const qint64 moment = hasYear ? inUtc(numbers, numbers[0]) : -1;
  const bool fits = moment >= 0 && moment <= 32535215999;
  const qint64 read = fits ? moment : inUtc(numbers, 1970);
  return read < 0 ? 0 : static_cast<unsigned>(read);
}

void checkStamp(const std::string& text) {
  const Kyr::Time before(7, 8);
  Kyr::Time time = before;
  const QString refused = refusal([&] { time.convertDCSTime(Kyr::KString(text)); });
  long numbers[6] = {};
  if (takeApart(text.c_str(), numbers)) {
    expect(refused.isNull() && time == Kyr::Time(expectedSeconds(numbers), 0),
           "a stamp is the moment that it tells");
  } else {
    expect(refused == "refused: Wrong timeformat" && time == before,
           "what is no stamp changes nothing");
  }
}

void checkMoment(double seconds) {
  const Kyr::Time time(seconds);
  expect(time.microseconds() <= (seconds < 0 ? 1000000 : 999999), "microseconds are no second");
  if (seconds >= 0 && seconds < 4294967296.0) {
    expect(double(time.wholeSeconds()) == std::floor(seconds), "seconds are the floor");
    expect(std::fabs(time.getSeconds() - seconds) < 2e-6, "a moment leads back");
    expect(Kyr::Time::fromTimePoint(time.toTimePoint()) == time,
           "so it does by the system's clock");
  }
  expect(time.getTimeString(true).endsWith(" us"), "every moment has a text");
}

}  // namespace

void harness(Choices input) {
  static const bool isUtc = qputenv("TZ", "UTC");
  expect(isUtc, "the time zone can be set");
  if (input.yes()) {
    checkMoment(input.number<double>());
  } else {
    checkStamp(std::string(input.rest()));
  }
}

}  // namespace KyrFuzz

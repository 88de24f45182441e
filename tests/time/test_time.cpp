#include <kyr/time/KyrTime.h>

#include "support/Support.h"

#include <ctime>

using Kyr::Time;

namespace {

TEST(Time, SetSeconds) {
  const std::tuple<double, Time, const char*> rows[] = {
      {4e9 + 0.25, {4000000000, 250000}, "seconds are unsigned"},
      {1.9999999, {1, 999999}, "microseconds are cut off, not rounded up to a second"},
      {-0.25, {4294967295, 750000}, "floor, not truncation, below zero"},
      {4294967298.0, {2, 0}, "the lower 32 bits are kept"},
      {1e300, {0, 0}, "the conversion of a huge number is undefined in C++"},
      {-HUGE_VAL, {0, 0}, "infinity has no microseconds"},
      {std::nan(""), {0, 0}, "nor has what is no number"},
  };
  for (const auto& [x, expected, fault] : rows) {
    EXPECT_EQ(Time(x), expected) << fault;
  }
  EXPECT_EQ(Time(4294967295, 500000).getSeconds(), 4294967295.5) << "read as signed numbers";
}

TEST(Time, DifferencesAndOrder) {
  const std::tuple<Time, Time, Time, const char*> rows[] = {
      {{10, 900000}, {12, 100000}, {1, 200000}, "a second is borrowed"},
      {{10, 1}, {10, 3}, {0, 2}, "microseconds decide between equal seconds"},
      {{1, 0}, {4294967295, 0}, {4294967294, 0}, "a difference in 32 bits"},
  };
  for (const auto& [earlier, later, span, fault] : rows) {
    EXPECT_EQ(earlier.absoluteDifference(later), span) << fault;
    EXPECT_EQ(later.absoluteDifference(earlier), span) << fault;
    EXPECT_DOUBLE_EQ(later.difference(earlier), span.getSeconds()) << fault;
    EXPECT_TRUE(earlier < later && later > earlier && earlier != later) << fault;
    EXPECT_FALSE(later < earlier || earlier > later || earlier == later) << fault;
    EXPECT_TRUE(earlier <= later && later >= later && !(later <= earlier)) << fault;
    EXPECT_EQ(later - earlier, span.toDuration()) << fault;
    EXPECT_EQ(earlier - later, -span.toDuration()) << fault;
  }
  static_assert(!std::is_invocable_v<std::minus<>, Time, int>, "a number taken for a moment");
}

TEST(Time, OtherClocks) {
  using namespace std::chrono;
  const Time last(4294967295, 999999);
  for (const Time& time : {Time(), Time(1265353057, 123456), last}) {
    EXPECT_EQ(Time::fromTimePoint(time.toTimePoint()), time);
    EXPECT_EQ(Time::fromDuration(time.toDuration()), time);
    EXPECT_EQ(time.toDateTime().toMSecsSinceEpoch(),
              time.wholeSeconds() * qint64(1000) + time.microseconds() / 1000);
    EXPECT_EQ(Time::fromDateTime(time.toDateTime()),
              Time(time.wholeSeconds(), time.microseconds() / 1000 * 1000));
  }
  EXPECT_EQ(Time(1265353057, 0).toDateTime().timeSpec(), Qt::LocalTime);
  EXPECT_EQ(Time::fromDuration(nanoseconds(1999)), Time(0, 1)) << "rounded";
  const auto at = [](auto count) { return system_clock::time_point(count); };
  const auto dated = [](qint64 milliseconds) {
    return QDateTime::fromMSecsSinceEpoch(milliseconds);
  };
  const std::pair<std::function<void()>, const char*> rows[] = {
      {[&] { Time::fromTimePoint(at(nanoseconds(-1))); }, "just before the first"},
      {[&] { Time::fromTimePoint(at(seconds(4294967296))); }, "just behind the last"},
      {[&] { Time::fromDateTime(dated(-1)); }, "before the first"},
      {[&] { Time::fromDateTime(dated(INT64_MAX)); }, "wraps as microseconds"},
      {[&] { Time::fromDateTime(QDateTime()); }, "no moment at all"},
  };
  for (const auto& [convert, fault] : rows) {
    EXPECT_EQ(KyrTest::failure(convert), "moment outside of 1970 to 2106") << fault;
  }
  EXPECT_EQ(KyrTest::failure([] { Time::fromDuration(nanoseconds(-1)); }),
            "span outside of 0 to 4294967295 seconds");
}

TEST(Time, Now) {
  const Time now = Time::actualTime();
  EXPECT_EQ(now.microseconds() % 1000, 0U) << "finer than a millisecond";
  EXPECT_NEAR(now.wholeSeconds(), static_cast<double>(std::time(nullptr)), 60)
      << "not the system's clock";
  const Time before(now.wholeSeconds() - 1000, now.microseconds());
  Time moment = before;
  EXPECT_NEAR(moment.elapsed(), 1000, 60);
  EXPECT_EQ(moment, before) << "elapsed() changes nothing";
  EXPECT_NEAR(moment.restart(), 1000, 60);
  EXPECT_NEAR(moment.difference(now), 0, 60) << "not set to the present";
}

/// The seconds of a stamp; -1 when it is refused.
double secondsOf(const char* stamp) {
  Time time(7, 8);
  try {
    time.convertDCSTime(stamp);
  } catch (const Kyr::Exception& error) {
    EXPECT_EQ(error.getText(), "Wrong timeformat");
    EXPECT_EQ(time, Time(7, 8)) << "a refused stamp changed the object";
    return -1;
  }
  return time.getSeconds();
}

TEST(Time, CameraStamps) {
  const KyrTest::ScopedEnvironment zone("TZ", "UTC0");
  const std::tuple<const char*, double, const char*> rows[] = {
      {"\t2010 : 02:\t05\t07 :57: 37 rest", 1265356657, "blanks before every item, a rest"},
      {"2010:02:05:07:57:37", 1265328477, "a colon after the day: the hour counts as missing"},
      {"2010:02:31 10:00:00", 1267610400, "the day runs on into March"},
      {"2010:02:05 ::-1", 1265327999, "a negative second passes, missing numbers are 0"},
      {"2200:01:01 00:00:00", 7258118400. - 4294967296, "only 32 bits are kept"},
      {"1968:02:31 00:00:00", 5270400, "the day runs on in 1970, not in the year given"},
      {"99999999999999999999:01:02 00:00:00", 86400, "the year overflows"},
      {"1970:01:01 -99999999999999999999:00:00", 0, "what fails with 1970 is 0"},
  };
  for (const auto& [stamp, seconds, fault] : rows) {
    EXPECT_EQ(secondsOf(stamp), seconds) << fault;
  }
  for (const char* wrong :
       {"2010-02:05 07:57:37", "2010:02:05 07:57", "2010:13:05 07:57:37", "2010:02:00 07:57:37",
        "2010:4294967298:05 07:57:37", "2010:02:32 07:57:37", "2010:02:05 24:00:00",
        "2010:02:05 07:60:00", "2010:02:05 07:57:60"}) {
    EXPECT_EQ(secondsOf(wrong), -1) << wrong;
  }
}

TEST(Time, LocalTime) {
  const KyrTest::ScopedEnvironment zone("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");
  const KyrTest::ScopedLocale german("de_DE.UTF-8");
  EXPECT_EQ(secondsOf("2010:02:05 07:57:37"), 1265353057) << "one hour east in winter";
  EXPECT_EQ(secondsOf("2010:08:05 07:57:37"), 1280987857) << "two hours in summer";
  // Windows takes the rules of America for every zone that is named by TZ.
  const bool european = Time(1288488600, 0).getTimeString(false).contains("02:30");
  const char* const twice = european ? "2010:10:31 02:30:00" : "2010:11:07 01:30:00";
  const char* const missing = european ? "2010:03:28 02:30:00" : "2010:03:14 02:30:00";
  for (const char* before : {"2010:08:05 07:57:37", "2010:02:05 07:57:37"}) {
    secondsOf(before);
    EXPECT_EQ(secondsOf(twice), european ? 1288488600 : 1289089800) << "summer time";
    EXPECT_EQ(secondsOf(missing), european ? 1269739800 : 1268530200) << "summer time";
  }
  EXPECT_EQ(Time(1265353057, 123000).getTimeString(true), "Fri Feb 05 07:57:37 2010, 123000 us");
  EXPECT_EQ(Time(4294967295, 0).getTimeString(false), "Sun Feb 07 07:28:15 2106");
  const QString date = Time(1265353057, 0).getDateString().remove(QRegularExpression("\\b0"));
  EXPECT_EQ(date, german.ok() ? "5.2.2010" : "2/5/10") << "with zeros or without";
}

TEST(Time, MayBeInUseWhenTheProcessEnds) {
  const auto ended = KyrTest::inChild([] { Time::lock.lock(), std::exit(9); });
  EXPECT_EQ(std::pair(ended.code, ended.errors), std::pair(9, QByteArray()));
}

}  // namespace

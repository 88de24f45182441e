#include <kyr/log/KyrSyncErrorLog.h>

#include "support/Support.h"

#include <gtest/gtest.h>

#include <QStringList>

#include <climits>
#include <functional>
#include <iostream>
#include <thread>
#include <tuple>

using namespace Kyr;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

/// What both families do.
template <class Log>
class Logs : public testing::Test {};
using Families = testing::Types<ErrorLog, SyncErrorLog>;
TYPED_TEST_SUITE(Logs, Families, );

TYPED_TEST(Logs, Insertions) {
  const KyrTest::ScopedLocale german("de_DE.UTF-8");
  TypeParam log;
  QChar buffer = 'x';
  log << QString::fromRawData(&buffer, 1);
  buffer = 'y';
  log << static_cast<unsigned char>(65) << ' ' << short(-5) << ' ' << ~0ULL << ' ' << LLONG_MIN;
  log << ' ' << true << ' ' << static_cast<signed char>(-3) << '\xe4' << "\xc3\xa4" << QString("b");
  log << ' ' << 0.1 << ' ' << 1234567.0 << ' ' << 1.5F << static_cast<const char*>(nullptr);
  log << ' ' << reinterpret_cast<const void*>(0xABCDEFUL);
  EXPECT_FALSE(log.isLog()) << "a pending message is kept";
  log << TypeParam::endline;
  EXPECT_EQ(log.getLog(),
            QString::fromLatin1("x65 -5 18446744073709551615 -9223372036854775808 1 -3\xe4\xe4") +
                "b 0.1 1.23457e+06 1.5 0x00abcdef");
}

TYPED_TEST(Logs, OrderOfMessages) {
  const std::tuple<bool, QStringList, const char*, const char*> rows[] = {
      {false, {"a", "b", "c"}, "c\nb\na", "newest first"},
      {true, {"", "a", "", "b"}, "a\n\nb", "empty before the first leaves nothing, later a line"},
      {false, {"", "a", "", "b"}, "b\n\na", "the same in front"},
      {false, {"", ""}, "", "only empty messages"},
  };
  for (const auto& [append, messages, text, fault] : rows) {
    TypeParam unread(append), read(append);
    for (const QString& message : messages) {
      unread << message << END_LOG;
      read << message << END_LOG;
      EXPECT_EQ(read.isLog(), read.getLog() != "") << fault;
    }
    EXPECT_EQ(unread.getLog(), text) << fault;
    EXPECT_EQ(read.getLog(), text) << "read between messages: " << fault;
    unread << "pending";
    unread.clear();
    EXPECT_EQ((unread << "new" << END_LOG).getLog(), "new") << "clear() leaves something";
  }
}

/// An application's log, which frames its messages and sorts the long ones to the end.
struct FramedLog : ErrorLog {
  void appendLine() override {
    logText().add("<" + message() + ">", message().size() > 1 || isAppending());
    message().clear();
  }
};

TEST(Log, SubclassesAndCopies) {
  FramedLog log;
  log << "a" << END_LOG << "b" << END_LOG << "pending";
  FramedLog copy = log;
  EXPECT_EQ((log << END_LOG).getLog(), "<b>\n<a>\n<pending>");
  EXPECT_EQ((copy << "!" << END_LOG).getLog(), "<b>\n<a>\n<pending!>");
}

template <class Log>
void echoesWhenAsked() {
  Log log(false);
  CaptureStderr();
  log << "swallowed" << END_LOG;
  log.setOutputMessage(true);
  log << "shown " << 1 << END_LOG << END_LOG << "pending";
  EXPECT_EQ(GetCapturedStderr(), "shown 1\n\n") << "one line for each finished message";
  EXPECT_FALSE(log.isLog()) << "an echoed message was kept";
}

TEST(Log, EchoKeepsNothing) {
  echoesWhenAsked<OutputErrorLog>();
  echoesWhenAsked<SyncOutputErrorLog>();
}

TEST(Log, SystemLog) {
  const KyrTest::TempDir dir;
  const QString full = KyrTest::fullDevice();
  for (const QString& name : {QString(), dir.path(), dir.file("no/log"), full, dir.file("log")}) {
    SyncSystemErrorLog log(true, name);
    CaptureStderr();
    log << "x" << END_LOG;
    SyncSystemErrorLog(false, name) << "y" << END_LOG;
    log << END_LOG;
    std::cerr.setstate(std::ios_base::badbit);
    log << "z" << END_LOG << "pending";
    std::cerr.clear();
    EXPECT_EQ(GetCapturedStderr(), "x\n\ny\n\n\n\n") << "with file " << name.toStdString();
    EXPECT_EQ(log.getLog(), "x\n\nz\n") << "with file " << name.toStdString();
  }
  EXPECT_EQ(KyrTest::readFile(dir.file("log")), "x\ny\n\nz\n") << "also when the echo fails";
}

void inTwoThreads(const std::function<void(char)>& write) {
  std::thread other(write, 'a');
  write('b');
  other.join();
}

TEST(Log, ThreadsShareALog) {
  SyncErrorLog shared;
  inTwoThreads([&](char letter) {
    for (int i = 0; i < 2000; ++i) {
      EXPECT_TRUE((shared << letter << END_LOG).isLog());
    }
  });
  EXPECT_EQ(shared.getLog().size(), 2 * 4000 - 1) << "a piece or a message was lost";
}

TEST(Log, LogsShareAFile) {
  const KyrTest::TempDir dir;
  constexpr int length = 20000;  // beyond every buffer between the log and the file
  CaptureStderr();
  inTwoThreads([&](char letter) {
    SyncSystemErrorLog own(true, dir.file("log"));
    for (int i = 0; i < 200; ++i) {
      own << QString(length, letter) << END_LOG;
    }
  });
  GetCapturedStderr();
  const QList<QByteArray> lines = KyrTest::readFile(dir.file("log")).split('\n');
  EXPECT_EQ(lines.count(QByteArray(length, 'a')), 200) << "messages mixed";
  EXPECT_EQ(lines.count(QByteArray(length, 'b')), 200) << "messages mixed";
}

}  // namespace

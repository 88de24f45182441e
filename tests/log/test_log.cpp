#include <kyr/log/KyrSyncErrorLog.h>

#include "support/Shared.h"

#include <climits>

using namespace Kyr;
using testing::internal::CaptureStderr;
using testing::internal::GetCapturedStderr;

namespace {

/// What ErrorLog and SyncErrorLog both do.
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

TYPED_TEST(Logs, LetTheOldestFallOut) {
  const std::tuple<bool, int, int, int, const char*> rows[] = {
      {true, 200, 9, 20, "lines lost below the bound"},
      {true, 40, 1000, 20, "oldest first, again and again"},
      {false, 40, 1000, 20, "the same where the newest is first"},
      {false, 0, 30, 1, "no room for anything"},
      {true, 9, 30, 20, "messages longer than the bound"},
  };
  for (const auto& [append, limit, count, length, fault] : rows) {
    TypeParam log(append);
    log.setLimit(limit);
    QStringList kept;
    for (int i = 0; i < count; ++i) {
      log << QString("%1").arg(i, length, 10, QLatin1Char('0')) << END_LOG;
      append ? kept.append(QString::number(i)) : kept.prepend(QString::number(i));
      QStringList lines = log.getLog().split('\n', Qt::SkipEmptyParts);
      const QString note = append ? lines.value(0) : lines.value(lines.size() - 1);
      const int fallen = note.startsWith('[') ? note.section(' ', -1).chopped(1).toInt() : 0;
      lines.removeAll(note.startsWith('[') ? note : QString());
      EXPECT_EQ(fallen + lines.size(), i + 1) << fault;
      EXPECT_LE(lines.join('\n').size(), limit * 5 / 4) << fault;
      EXPECT_TRUE(fallen == 0 || (lines.size() + 1) * (length + 1) > limit) << fault;
      for (int k = 0; k < lines.size(); ++k) {
        EXPECT_EQ(lines[k].toInt(), kept[append ? fallen + k : k].toInt()) << fault;
      }
    }
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
void expectEcho() {
  Log log(false);
  CaptureStderr();
  log << "swallowed" << END_LOG;
  log.setOutputMessage(true);
  log << "shown " << 1 << END_LOG << END_LOG << "pending";
  EXPECT_EQ(GetCapturedStderr(), "shown 1\n\n") << "one line for each finished message";
  EXPECT_FALSE(log.isLog()) << "an echoed message was kept";
}

TEST(Log, EchoKeepsNothing) {
  expectEcho<OutputErrorLog>();
  expectEcho<SyncOutputErrorLog>();
}

TEST(Log, GoesOnWithoutMemory) {
  KYR_SKIP_SANITIZERS("they end the process themselves when memory runs out");
  const auto ended = KyrTest::inChild([] {
    const QString line(10000, 'x');  // a text too large for what other tests' threads left behind
    ErrorLog log(true);
    for (int i = 0; i < 10000; ++i) {
      if (i == 3000) {
        KyrTest::limitMemory(true);
      }
      log << line << END_LOG;
    }
    KyrTest::limitMemory(false);
    std::printf("%s", qPrintable(log.getLog().left(15)));
  });
  EXPECT_TRUE(ended.exited && ended.code == 0) << ended.errors.toStdString();
  EXPECT_EQ(ended.output, "[lines left out");
}

TEST(Log, SystemLog) {
  const KyrTest::TempDir dir;
  const QString full = KyrTest::fullDevice();
  const unsigned before = KyrTest::openFiles();
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
  EXPECT_EQ(KyrTest::openFiles(), before) << "a log stays open";
  EXPECT_EQ(KyrTest::readFile(dir.file("log")), "x\ny\n\nz\n") << "also when the echo fails";
  SyncSystemErrorLog bounded(true, dir.file("log"));
  bounded.setLimit(3);
  CaptureStderr();
  bounded << "long" << END_LOG << "c" << END_LOG;
  EXPECT_EQ(GetCapturedStderr(), "long\n\nc\n\n");
  EXPECT_EQ(bounded.getLog(), "[lines left out: 1]\nc\n");
  EXPECT_TRUE(KyrTest::readFile(dir.file("log")).endsWith("z\nlong\nc\n")) << "the file gets all";
}

TEST(Log, ThreadsShareALog) {
  SyncErrorLog shared;
  KyrTest::inThreads(2, [&](int thread) {
    const char letter = "ab"[thread];
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
  KyrTest::inThreads(2, [&](int thread) {
    const char letter = "ab"[thread];
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

// What is said of a thread that hangs, in a process that lives on.
#include "support/Support.h"

#include <kyr/crash/KyrHeartbeat.h>

#include <QElapsedTimer>
#include <QTimer>

namespace {

using namespace KyrTest;
using Kyr::Heartbeat;
using Kyr::HeartbeatOptions;

using Milliseconds = std::chrono::milliseconds;

constexpr int patience = 1000;

/// What the log got when it had so many messages, or after half a minute.
QStringList messages(const Kyr::SyncErrorLog& log, int count) {
  const QRegularExpression first("^thread 0x", QRegularExpression::MultilineOption);
  QElapsedTimer clock;
  clock.start();
  while (log.getLog().count(first) < count && clock.elapsed() < 30'000) {
    std::this_thread::sleep_for(Milliseconds(10));
  }
  QStringList found = log.getLog().split("\nthread 0x");
  return found.first().isEmpty() ? QStringList() : found;
}

HeartbeatOptions optionsFor(Kyr::SyncErrorLog& log) {
  HeartbeatOptions options;
  options.patience = patience;
  options.name = "tester";
  options.log = &log;
  return options;
}

QString hexadecimal(const QString& message) {
  return message.section("0x", 1).section(' ', 0, 0);
}

/// A thread that works on, whoever is asked where it stands.
class Clockwork {
 public:
  Clockwork() : _thread([this] { tickForEver(); }) {}
  ~Clockwork() {
    _end = true;
    _thread.join();
  }
  Clockwork(const Clockwork&) = delete;
  Clockwork& operator=(const Clockwork&) = delete;

  /// Whether it still ticks.
  bool goesOn() const {
    const unsigned before = _ticks;
    QElapsedTimer clock;
    clock.start();
    while (_ticks == before && clock.elapsed() < 30'000) {
      std::this_thread::yield();
    }
    return _ticks != before;
  }

 private:
  void tickForEver() {
    while (!_end) {
      ++_ticks;
      std::this_thread::sleep_for(Milliseconds(1));
    }
  }

  std::atomic<bool> _end{false};
  std::atomic<unsigned> _ticks{0};
  std::thread _thread;
};

TEST(Heartbeat, AHangLeavesTheStacksOnceAndTheProcessLivesOn) {
  const Clockwork clockwork;
  Kyr::SyncErrorLog log(true);
  Heartbeat heartbeat(optionsFor(log));
  for (int hang = 0; hang < 2; ++hang) {
    messages(log, 2 * hang + 1);
    std::this_thread::sleep_for(Milliseconds(2 * patience));  // the same hang, said no second time
    EXPECT_EQ(messages(log, 0).size(), 2 * hang + 1);
    heartbeat.beat();
    const QStringList found = messages(log, 2 * hang + 2);
    ASSERT_EQ(found.size(), 2 * hang + 2) << log.getLog().toStdString();
    const QString said = found[2 * hang];
    EXPECT_TRUE(
        said.section('\n', 0, 0)
            .contains(QRegularExpression(
                R"(\A(thread 0x)?[0-9a-f]+ "tester" has not beaten for \d+\.\d s; this is where all threads stand:\z)")))
        << said.toStdString();
    EXPECT_TRUE(found[2 * hang + 1].contains(
        QRegularExpression(R"(\A[0-9a-f]+ "tester" beats again, after \d+\.\d s\z)")))
        << found[2 * hang + 1].toStdString();
    EXPECT_GE(found[2 * hang + 1].section("after ", 1).section(' ', 0, 0).toDouble(), 1.1);
    EXPECT_TRUE(clockwork.goesOn());
  }
  const QString stacks = messages(log, 0)[0];
  EXPECT_EQ(stacks.count("\nbacktrace of the hanging thread "), 1) << stacks.toStdString();
  const QString first = stacks.section("hanging thread 0x", 1).section(':', 0, 0);
  EXPECT_EQ(first, hexadecimal(stacks)) << "the thread that hangs comes first";
  EXPECT_GE(stacks.count("\nnext thread: 0x"), 1) << stacks.toStdString();
  EXPECT_FALSE(stacks.contains("next thread: 0x" + first + ",")) << stacks.toStdString();
  EXPECT_FALSE(stacks.contains("HeartbeatWatcher")) << "the thread that watches is left out";
}

TEST(Heartbeat, BeatsInTheEventLoop) {
  int count = 1;
  char name[] = "test";
  char* words[] = {name, nullptr};
  const QCoreApplication application(count, words);
  Kyr::SyncErrorLog log(true);
  Heartbeat heartbeat(optionsFor(log));
  heartbeat.beatInEventLoop();
  QTimer::singleShot(3 * patience, [] { QCoreApplication::quit(); });
  QCoreApplication::exec();
  EXPECT_EQ(log.getLog().toStdString(), "");
  messages(log, 1);  // hangs
  QTimer::singleShot(3 * patience, [] { QCoreApplication::quit(); });
  QCoreApplication::exec();
  EXPECT_EQ(messages(log, 2).size(), 2) << log.getLog().toStdString();
}

TEST(Heartbeat, TellsAJournal) {
  const TempDir folder;
  {
    Kyr::Journal journal(folder.file("journal"));
    journal.add(Kyr::Journal::Warning, "test", "begins");
    HeartbeatOptions options;
    options.patience = 1;  // taken for 50
    options.journal = &journal;
    Heartbeat heartbeat(options);
    QElapsedTimer clock;
    clock.start();
    while (!readFile(folder.file("journal")).contains("has not beaten") &&
           clock.elapsed() < 30'000) {
      std::this_thread::sleep_for(Milliseconds(10));
      journal.add(Kyr::Journal::Warning, "test", "waits");
    }
  }
  const QString text = readFile(folder.file("journal"));
  EXPECT_TRUE(QRegularExpression("error  .* heartbeat +thread 0x").match(text).hasMatch())
      << text.toStdString();
}

TEST(Heartbeat, NamesWhereAnExampleHangs) {
  KYR_SKIP_SANITIZERS("the stacks hold frames of the sanitizer");
  const ScopedEnvironment noDoctor("KYR_LOCK_DOCTOR", "0");
  const Ended ended = runProgram(KYR_HANG, {"--patience", "400", "--save", "3000"});
  const QString errors = QString(ended.errors).remove('\r');
  EXPECT_EQ(ended.code, 0);
  EXPECT_TRUE(ended.output.contains("the project is shown")) << ended.output.toStdString();
  EXPECT_EQ(errors.count("has not beaten"), 1) << errors.toStdString();
  EXPECT_EQ(errors.count("beats again, after "), 1) << errors.toStdString();
  const QString hanging = errors.section("hanging thread", 1).section("next thread", 0, 0);
  EXPECT_TRUE(hanging.contains("showProject")) << errors.toStdString();
  EXPECT_TRUE(errors.section("next thread", 1).contains("saveProject")) << errors.toStdString();
  EXPECT_GE(errors.section("beats again, after ", 1).section(' ', 0, 0).toDouble(), 2.4);
  EXPECT_FALSE(errors.contains("holds which lock")) << errors.toStdString();
  const Ended silent = runProgram(KYR_HANG, {"--patience", "1000", "--beat", "2500"});
  EXPECT_EQ(silent.errors, "") << "nothing hung";
}

TEST(Heartbeat, TellsWhoHoldsWhichLock) {
  KYR_SKIP_SANITIZERS("the stacks hold frames of the sanitizer");
  const ScopedEnvironment doctor("KYR_LOCK_DOCTOR", "1");
  const Ended ended = runProgram(KYR_HANG, {"--patience", "400", "--save", "2000"});
  const QString errors = QString(ended.errors).remove('\r');
  const QString holders = errors.section("\n\nwho holds which lock:\n", 1);
  EXPECT_TRUE(holders.contains("project")) << errors.toStdString();
  EXPECT_EQ(holders.count("beats again"), 1) << errors.toStdString();
}

}  // namespace

// Journals as several processes write them, and as the end of one leaves them.
#include <kyr/log/KyrJournal.h>
#include <kyr/log/KyrSyncErrorLog.h>

#include "app/home.h"
#include "support/Shared.h"

#include <QThread>

using namespace Kyr;
using namespace KyrTest;

namespace {

/// The entries of a file, without their times, processes and threads.
QString entriesIn(const QString& file) {
  static const QRegularExpression start(
      "^\\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\d\\.\\d{3}Z (\\w+) +(\\d+/\\d+ *) (?=\\S{1,12} )",
      QRegularExpression::MultilineOption);
  return QString::fromUtf8(readFile(file)).replace(start, "\\1 ");
}

TEST(JournalTest, LooksTheSameWhateverIsInIt) {
  const KyrTest::TempDir folder;
  const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
      {"part", "plain \xc3\xa4", "part         plain \xc3\xa4", "columns"},
      {nullptr, nullptr, "-            ", "nothing at all"},
      {"two words\n", "\n\n", "two_words_   ", "a source that is no word; feeds at the end"},
      {"a", "1\r\n2\n", "a            1\n                         | 2", "a text like an entry"},
      {"a", "\x1b[2J\r\x7f\t\x01", "a            \\x1b[2J\\x0d\\x7f\t\\x01", "a moving cursor"},
      {"a", "\xc2\x9b \xc2\xb5\xc2", "a            \\x9b \xc2\xb5\\xc2", "controls above ASCII"},
  };
  int number = 0;
  for (const auto& [source, text, entry, catches] : rows) {
    const QString file = folder.file(QString::number(++number));
    Journal(file).add(Journal::Error, source, text);
    EXPECT_EQ(entriesIn(file).toStdString(), std::string("error ") + entry + "\n") << catches;
  }
}

TEST(JournalTest, TakesWhatItIsToldToTake) {
  const KyrTest::TempDir folder;
  const QString file = folder.file("journal");
  {
    Journal journal(file);
    ErrorLog log;
    OutputErrorLog copied(false);
    SyncErrorLog shared;
    log.setFeed({&journal, Journal::Warning, "log"});
    copied.setFeed({&journal, Journal::Debug, "echo"});
    shared.setFeed({&journal, Journal::Info, "sync"});
    log << "a " << 1 << END_LOG << "pending";
    for (const auto level : {Journal::Info, Journal::Debug, Journal::Silence, Journal::Error}) {
      journal.setLevel(level);
      copied << "b" << END_LOG;
      shared << "c" << END_LOG;
      log << END_LOG;
      journal.add(Journal::Error, "self", QString("d"));
    }
  }
  const QString found = entriesIn(file).replace(QRegularExpression("  +"), " ");
  EXPECT_EQ(found.toStdString(),
            "warning log a 1\ninfo sync c\nwarning log pending\nerror self d\ndebug echo b\n"
            "info sync c\nwarning log \nerror self d\nerror self d\n");
}

constexpr int processes = 4, entries = 1500;
constexpr JournalOptions small{20000, 99};

/// A process that writes; IsSharedByProcessesAndLosesNothing runs several at once.
TEST(JournalTest, DISABLED_Writer) {
  Journal journal(OS::getEnv("KYR_TEST_JOURNAL"), small);
  inThreads(2, [&journal](int thread) {
    for (int i = 0; i < entries; ++i) {
      const QString text = QString("%1 %2 %3").arg(OS::getPID()).arg(thread).arg(i);
      journal.add(i % 50 == 0 ? Journal::Warning : Journal::Info, "writer",
                  text + QString(i % 90, '.'));
    }
  });
  EXPECT_EQ(journal.getLost(), 0U) << journal.getError().toStdString();
}

TEST(JournalTest, IsSharedByProcessesAndLosesNothing) {
  const KyrTest::TempDir folder;
  const KyrTest::ScopedEnvironment name("KYR_TEST_JOURNAL", folder.file("journal").toLocal8Bit());
  std::vector<std::unique_ptr<QProcess>> writers;
  for (int i = 0; i < processes; ++i) {
    writers.push_back(std::make_unique<QProcess>());
    writers.back()->start(OS::getExecutable(),
                          {"--gtest_filter=*DISABLED_Writer", "--gtest_also_run_disabled_tests"});
  }
  for (const auto& writer : writers) {
    EXPECT_TRUE(writer->waitForFinished(60000) && writer->exitCode() == 0)
        << writer->readAll().toStdString();
  }
  const int files = int(QDir(folder.path()).entryList(QDir::Files).size());
  EXPECT_TRUE(files > 5 && files < small.oldFiles) << files << " files; some may be lost";
  QMap<QString, int> next;  // of each thread
  for (int number = files - 1; number >= 0; --number) {
    const QString file = folder.file(number > 0 ? QString("journal.%1").arg(number) : "journal");
    const QByteArray bytes = readFile(file);
    for (const QByteArray& line : bytes.split('\n')) {
      const QList<QByteArray> parts = line.simplified().split(' ');
      if (parts.size() == 7) {
        const int i = QString(parts[6]).remove('.').toInt();
        EXPECT_EQ(next[parts[4] + parts[5]]++, i) << line.toStdString();
        EXPECT_EQ(parts[6].count('.'), i % 90) << "torn";
      } else {
        EXPECT_EQ(line, "") << "torn";
      }
    }
  }
  EXPECT_EQ(next.values(), QList<int>() << entries << entries << entries << entries << entries
                                        << entries << entries << entries);
}

TEST(JournalTest, KeepsAFewOldFilesAndFollowsItsName) {
  const KyrTest::TempDir folder;
  const QString name = folder.file("journal");
  Journal journal(name, {1, 2});
  for (int i = 0; i < 40; ++i) {
    journal.add(Journal::Warning, "", QString(1000, 'x'));
  }
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files), QStringList() << "journal"
                                                                      << "journal.1"
                                                                      << "journal.2");
  EXPECT_LT(readFile(name + ".1").size(), 4096 + 1100) << "late";
  journal.add(Journal::Warning, "", "before");
  EXPECT_TRUE(QFile::rename(name, folder.file("elsewhere")));
  journal.add(Journal::Warning, "", "behind the rename");
  journal.add(Journal::Warning, "", "in a new one");
  EXPECT_TRUE(readFile(folder.file("elsewhere")).endsWith("behind the rename\n"));
  EXPECT_EQ(entriesIn(name), "warning -            in a new one\n");
}

TEST(JournalTest, WritesAgainWhatWentIntoARemovedFile) {
  const KyrTest::TempDir folder;
  const QString name = folder.file("journal");
  Journal journal(name);
  journal.add(Journal::Warning, "", "gone");
  EXPECT_TRUE(QFile::remove(name));
  journal.add(Journal::Warning, "", "saved");
  EXPECT_EQ(entriesIn(name), "warning -            saved\n");
}

TEST(JournalTest, IsWholeHoweverTheProcessEnds) {
  KYR_SKIP_SANITIZERS("they report crashes themselves");
  const KyrTest::Home home;  // the same for a child
  const struct {
    const char* name;
    std::function<void()> end;
  } rows[] = {
      {"crash", [] { *static_cast<volatile int*>(nullptr) = 0; }},
      {"exit", [] { std::exit(0); }},
  };
  for (const auto& row : rows) {
    const QString file = home.file(row.name);
    inChild([&] {
      home.start({}, {}, StartOptions());
      auto* const journal = new Journal(file);
      for (int i = 0; i < 3; ++i) {
        journal->add(Journal::Info, row.name, QString::number(i));
      }
      row.end();
    });
    EXPECT_EQ(readFile(file).count('\n'), 3) << row.name;
  }
}

TEST(JournalTest, OfAForkedProcessIsItsOwn) {
  const KyrTest::Home home;
  const QString file = home.file("journal");
  {
    auto journal = std::make_unique<Journal>(file);
    journal->add(Journal::Info, "parent", "1");
    while (readFile(file).isEmpty()) {  // until the journal's thread waits for more
      QThread::msleep(10);
    }
    journal->add(Journal::Info, "parent", "2");
    inChild([&] {
      journal->add(Journal::Warning, "child", "");
      journal.reset();  // waits for nobody
    });
  }
  EXPECT_EQ(entriesIn(file).count("parent"), QDir::separator() == '/' ? 2 : 4);
  EXPECT_EQ(entriesIn(file).count("child"), 1);
}

TEST(JournalTest, CountsAndSaysWhatItLoses) {
  const KyrTest::TempDir folder;
  const std::pair<QString, const char*> rows[] = {
      {KyrTest::fullDevice(), "no space is left on the disk"},
      {folder.file("gone/journal"), "there is no such file or directory"},
      {"", "the name is empty, too long or holds a zero character"},
  };
  for (const auto& [name, reason] : rows) {
    if (name.isNull()) {
      continue;  // a system without such a device
    }
    testing::internal::CaptureStderr();
    Journal journal(name);
    journal.add(Journal::Info, "", "a");
    journal.add(Journal::Warning, "", "b");
    journal.add(Journal::Warning, "", "c");
    EXPECT_EQ(journal.getError().toStdString(), reason);
    EXPECT_EQ(journal.getLost(), 3U) << reason;
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              "Journal '" + name.toStdString() + "' is not complete: " + reason + "\n");
    if (name.endsWith("gone/journal")) {
      QDir(folder.path()).mkdir("gone");
      journal.add(Journal::Warning, "", "d");
      EXPECT_EQ(entriesIn(name),
                "error journal      3 entries are missing here\nwarning -            d\n");
    }
  }
}

}  // namespace

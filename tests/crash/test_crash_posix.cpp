// Crashes where something is in their way.
#include "app/home.h"
#include "crash/death.h"

#include <sys/file.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace KyrTest;

void KyrTest::lockDump(const QFile& dump) {
  EXPECT_EQ(::flock(dump.handle(), LOCK_EX), 0);
}

using CrashInTheWay = Crash;
using CrashFromOutside = Crash;

TEST_F(CrashInTheWay, IsReportedWithWhatFailed) {
  const struct {
    const char* prepare;  // a shell, which then becomes the program: $$ is the process's number
    const char* shows;
    int dumps;  // what is called like one afterwards
    const char* catches;
  } rows[] = {
      {"ln -s \"$TMPDIR/precious\" \"$TMPDIR/ORV-$$.dmp\"",
       "error creating crashdump file: File exists\n", 1, "a planted link that is followed"},
      {"ln \"$TMPDIR/precious\" \"$TMPDIR/ORV-$$.dmp\"", "\nbacktrace", 1,
       "an old file that is overwritten in place"},
      {"mkdir \"$TMPDIR/ORV-$$.dmp\"", "error creating crashdump file: File exists\n", 1,
       "a folder taken for a dump"},
      {"export TMPDIR=/nowhere", "error creating crashdump file: No such file or directory\n", 0,
       "a missing folder"},
      {"ulimit -f 1", "error writing crashdump: File too large\n", 0,
       "a limit that kills; half a dump that stays"},
      {"ulimit -v 400000", "\n#0  ", 1, "an address space that is used up"},
      {"mkdir \"$TMPDIR/l\"; cp \"$LIBRARY\" \"$TMPDIR/l\"; LD_LIBRARY_PATH=$TMPDIR/l; "
       "export LD_LIBRARY_PATH",
       "error starting kyr-backtrace: No such file or directory\n", 1, "a lone library"},
      {"head -c 144 /dev/zero | \"${LIBRARY%/*}/kyr/kyr-backtrace\" 0 3 4 5 3</dev/null "
       "4</proc/$$/maps 5</proc/$$/exe",
       "kyr-backtrace: the library is of another version\n", 1, "requests of another version"},
      {"cp \"" KYR_CRASH "\" \"$TMPDIR/c\"; exec 9<\"$TMPDIR/c\"; rm \"$TMPDIR/c\"; "
       "exec /proc/self/fd/9 --kind divide",
       " c!Crash::(anonymous namespace)::divideByZero()", 1, "a removed program without symbols"},
      {"exec \"" KYR_CRASH "\" --kind big-frame --in-thread --threads 8",
       "EXCEPTION_STACK_OVERFLOW\n", 1, "a frame that reaches far below the stack"},
      {"trap '' ABRT SEGV FPE ALRM PIPE", "EXCEPTION_INT_DIVIDE_BY_ZERO\n", 1,
       "signals that the process was born without"},
  };
  for (const auto& row : rows) {
    const TempDir folder;
    folder.write("precious", "gold");
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("TMPDIR", folder.path());
    environment.insert("KYR_CONSOLE", "on");
    environment.insert("KYR_CONFIG_DIR", folder.path());
    environment.insert("LIBRARY", KYR_LIBRARY);
    QProcess process;
    process.setProcessEnvironment(environment);
    process.start("/bin/sh",
                  {"-c", QString(row.prepare) + "; exec \"" KYR_CRASH "\" --kind divide"});
    EXPECT_TRUE(process.waitForFinished(100'000)) << row.catches;
    const QByteArray report = process.readAllStandardError();
    EXPECT_TRUE(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 1)
        << row.catches;
    EXPECT_TRUE(report.contains(row.shows)) << row.catches << '\n' << report.toStdString();
    EXPECT_TRUE(report.contains("\nbacktrace of the crashing thread 0x")) << row.catches;
    EXPECT_EQ(readFile(folder.file("precious")), "gold") << row.catches;
    EXPECT_EQ(QDir(folder.path()).entryList({"ORV-*.dmp"}).size(), row.dumps) << row.catches;
  }
}

TEST_F(CrashInTheWay, NamesTheDumpOfAForkedChildByItsOwnNumber) {
  const Home home;
  inChild([&] {
    home.start({});
    if (::fork() == 0) {
      home.say(QString::number(::getpid()));
      std::abort();
    }
    ::wait(nullptr);
  });
  EXPECT_EQ(QDir(home.path()).entryList({"ORV-*.dmp"}).join(' ').toStdString(),
            "ORV-" + home.said() + ".dmp");
}

/// In a child: sends its parent a signal and lives until that ends.
void sendToParent(int signal, const Home& home) {
  const QString own = QString::number(::getpid());
  if (::fork() == 0) {
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    home.say(QString::number(::getpid()));
    ::kill(own.toInt(), signal);
  }
  ::pause();
}

TEST_F(CrashFromOutside, NamesTheSender) {
  const struct {
    int signal;
    bool isOwn;
    const char* words;
    const char* catches;
  } rows[] = {
      {SIGSEGV, false, "0xb (SIGSEGV sent by process %1 \"test_crash\")\n", "a number alone"},
      {SIGABRT, false, "0x40000015 (SIGABRT sent by process %1 \"test_crash\")\n",
       "another's signal taken for abort()"},
      {SIGSEGV, true, "0xb (SIGSEGV sent by this process itself)\n", "oneself taken for another"},
  };
  const Home home;
  for (const auto& row : rows) {
    const auto ended = inChild([&] {
      home.start({});
      home.say({});
      row.isOwn ? static_cast<void>(std::raise(row.signal)) : sendToParent(row.signal, home);
    });
    EXPECT_TRUE(ended.exited && ended.code == 1) << row.catches;
    const QString report = readFile(home.file("output"));
    const QString words = QString(row.words).replace("%1", QString::fromStdString(home.said()));
    EXPECT_TRUE(report.contains("caught exception: " + words)) << row.catches << '\n'
                                                               << report.toStdString();
    QFile::remove(home.file("output"));
  }
}

TEST_F(CrashInTheWay, IsKeptOfAProgramWhoseStreamsStay) {
  const struct {
    bool isKept;
    bool isInTheWay;
    const char* catches;
  } rows[] = {{true, false, "a report that is nowhere else"},
              {false, false, "a file that nobody asked for"},
              {true, true, "another's file that is written to"}};
  for (const auto& row : rows) {
    const Home home;
    const auto ended = inChild([&] {
      const QString own = home.file(QString("ORV-%1.log").arg(::getpid()));
      row.isInTheWay ? QFile::link(home.file("precious"), own) : writeFile(own, "old").isEmpty();
      Kyr::StartOptions options{"gauge", "1.2"};
      options.keepReport = row.isKept;
      home.start({}, {"gauge"}, options);
      std::abort();
    });
    const QStringList logs = QDir(home.path()).entryList({"ORV-*.log"}, QDir::Files);
    const QByteArray kept = logs.isEmpty() ? QByteArray() : readFile(home.file(logs[0]));
    const QByteArray begin = "caught exception: 0x40000015 (abort() was called)\n";
    EXPECT_EQ(ended.errors.count(begin), 1) << row.catches;
    EXPECT_TRUE(ended.errors.contains("\nprogram: gauge\nversion: 1.2\n")) << row.catches;
    EXPECT_EQ(ended.errors.contains("error creating report file: File exists\n"), row.isInTheWay)
        << row.catches;
    EXPECT_EQ(kept.toStdString(), row.isInTheWay ? ""
                                  : row.isKept   ? ended.errors.toStdString()
                                                 : "old")
        << row.catches;
    EXPECT_FALSE(QFile::exists(home.file("precious"))) << row.catches;
  }
}

TEST_F(CrashInTheWay, IsToldInTheLanguageOfTheUser) {
  const Home home;
  const auto ended = inChild([&] {
    int count = 1;
    std::array<char, 5> name{"test"};
    std::array<char*, 2> words{name.data(), nullptr};
    const QCoreApplication application(count, words.data());
    home.start({});
    Kyr::KyrInit::InitTranslator("de");
    std::abort();
  });
  EXPECT_TRUE(ended.errors.contains(" ist abgest\xc3\xbcrzt. Der Bericht steht in " +
                                    home.file("output").toUtf8() + ", das Speicherabbild in "))
      << ended.errors.toStdString();
}

TEST_F(CrashInTheWay, NamesTheBuildAsTheFileHasIt) {
  const TempDir folder;
  const QString report = die(folder, {"--kind", "null-read"}).report;
  const QByteArray notes = runProgram("readelf", {"-n", KYR_CRASH}).output;
  const QString id = QString(notes).section("Build ID: ", 1).section('\n', 0, 0);
  EXPECT_GT(id.size(), 16) << notes.toStdString();
  EXPECT_TRUE(report.contains(" " + id + " ")) << report.toStdString();
}

TEST_F(CrashInTheWay, LeavesTheDumpsOfOthers) {
  if (::geteuid() != 0) {
    GTEST_SKIP() << "only root gives files away";
  }
  const TempDir folder;
  for (int i = 1; i <= 50; ++i) {
    const QString dump = KyrTest::plantDump(folder, KyrTest::numberedDump(i), i);
    EXPECT_EQ(::chown(qPrintable(dump), i > 25 ? 1 : 0, 0), 0);
  }
  EXPECT_EQ(KyrTest::die(folder, {"--kind", "null-read"}).dumps.size(), 20 + 25);
}

// What a crash leaves behind, of a program that dies as it is told.
#include "crash/death.h"

namespace {

using namespace KyrTest;

/// The line of the example on which it makes its mistake, as a backtrace shows it.
QString lineOf(const QByteArray& statement) {
  const QByteArray source = readFile(KYR_CRASH_SOURCE);
  const auto at = source.indexOf(statement);
  EXPECT_GE(at, 0) << statement.toStdString();
  return QString("faults.cpp:%1)").arg(source.left(at).count('\n') + 1);
}

bool begins(const QString& text, const QString& pattern) {
  return QRegularExpression("\\A" + pattern).match(text).hasMatch();
}

}  // namespace

/// Crashes in a thread that an option of the program chooses.
class CrashIn : public Crash, public testing::WithParamInterface<const char*> {};
INSTANTIATE_TEST_SUITE_P(Threads, CrashIn,
                         testing::Values("", "--in-thread", "--in-foreign-thread"));

TEST_P(CrashIn, AnyKindIsNamedWithItsLineAndAllThreads) {
  const QString where = GetParam();
  const QString address = "at address 0x[0-9a-f]+\n";
  const QString violation = "EXCEPTION_ACCESS_VIOLATION ";
  const struct {
    const char* kind;
    QString first;
    QString then;
    const char* function;
    const char* statement;
    const char* catches;
  } rows[] = {
      {"null-read", violation + "\\(read from address 0x0\\)", address, "readNull",
       "sink = *nowhere", "a read called a write"},
      {"null-write", violation + "\\(write to address 0x0\\)", address, "writeNull", "*nowhere = 1",
       "a write called a read"},
      {"execute", violation + "\\(" KYR_EXECUTES " address 0x0\\)", "at address 0x0\n",
       "executeNull", "noFunction();\n", "a caller lost behind a jump to nowhere"},
      {"execute-data", violation + "\\(" KYR_EXECUTES " address 0x[0-9a-f]+\\)", address,
       "executeData", "dataAsFunction();\n", "data of a program taken for its code"},
      {"divide", "EXCEPTION_INT_DIVIDE_BY_ZERO", address, "divideByZero", "sink = 100 / zero",
       "a division taken for floating point"},
      {"illegal", "EXCEPTION_ILLEGAL_INSTRUCTION", address, "executeIllegal", "__builtin_trap();",
       "a signal left out"},
      {"overflow", "EXCEPTION_STACK_OVERFLOW", address, "overflowStack", "sink = overflowStack(0)",
       "a handler on the stack that is used up; who began is left out"},
      {"abort", "0x40000015 \\(abort\\(\\) was called\\)", address, "abortProcess", "std::abort();",
       "a silent abort"},
      {"exception", "0x20474343 \\(Kyr::Exception: the measurement is gone\\)", address,
       "throwUncaught", "throw Kyr::Exception", "an exception without its text"},
      {"exception-number", "0x20474343 \\(int\\)", address, "throwNumber", "throw 42",
       "an exception without a text that is asked for one"},
      {"memory",
       QString("0x20474343 \\(std::bad_alloc: bad allocation\\), %1 bytes were asked for")
           .arg(SIZE_MAX / 2),
       address, "askForTooMuch", "new unsigned char[tooMuch]", "a class that nobody knows"},
      {"prog-error", violation + "\\(write to address 0x0\\)", address, "raiseProgError",
       "throw Kyr::ProgError", "an internal error that ends without a report"},
  };
  const QString problem =
      "\nInternal program error: raised on purpose\nin function Crash::raiseProgError\n"
      "in file faults line 94\n\n";
  for (const auto& row : rows) {
    SCOPED_TRACE(std::string(row.kind) + " " + where.toStdString() + ": " + row.catches);
    const TempDir folder;
    QStringList words{"--kind", row.kind, "--threads", "8"};
    const Death death = die(folder, where.isEmpty() ? words : words << where);
    const QString ahead = row.kind == QString("prog-error") ? problem : QString();
    EXPECT_TRUE(death.exited && death.code == 1) << death.code;
    EXPECT_TRUE(begins(death.report, ahead + "caught exception: " + row.first + "\n" + row.then +
                                         "(error loading dbghelp.dll, .+\n)?\nbacktrace of the "
                                         "crashing thread 0x[0-9a-f]+:\n#0"))
        << death.report.toStdString();
    const QStringList threads = death.report.split("\n\nnext thread: ");
    EXPECT_EQ(threads.size(), where.isEmpty() ? 9 : 10) << death.report.toStdString();
    EXPECT_TRUE(threads[0].contains(row.function) && threads[0].contains(lineOf(row.statement)))
        << lineOf(row.statement).toStdString() << '\n'
        << threads[0].toStdString();
    EXPECT_EQ(death.report.count("Crash::Crew::waitForWork"), 8);
    EXPECT_EQ(death.dumps.size(), 1) << death.report.toStdString();
  }
}

TEST_F(Crash, CountsWhatItLeavesOutOfAStack) {
  const TempDir folder;
  const QString report = die(folder, {"--kind", "overflow"}).report;
  const auto gap =
      QRegularExpression("#(\\d+) +0x.+\n(\\d+) frames are left out\n#(\\d+) +0x").match(report);
  EXPECT_EQ(gap.captured(1), "49") << report.toStdString();
  EXPECT_EQ(gap.captured(3).toInt(), 50 + gap.captured(2).toInt());
  EXPECT_TRUE(report.contains(QString("\n#%1 ").arg(gap.captured(3).toInt() + 49)));
}

/// The modules of a report's last section, each as its four words behind "module".
std::vector<QStringList> modulesOf(const QString& report) {
  std::vector<QStringList> modules;
  auto lines = QRegularExpression("^module (0x[0-9a-f]+) (0x[0-9a-f]+) (\\S+) (.+)$",
                                  QRegularExpression::MultilineOption)
                   .globalMatch(report);
  while (lines.hasNext()) {
    modules.push_back(lines.next().capturedTexts().mid(1));
  }
  return modules;
}

/// Whether a frame with an address lies in a module.
bool liesIn(const QStringList& module, const QRegularExpressionMatch& frame) {
  const quint64 address = frame.captured(1).toULongLong(nullptr, 16);
  return address >= module[0].toULongLong(nullptr, 16) &&
         address <= module[1].toULongLong(nullptr, 16) &&
         frame.captured(2) == module[3].section('/', -1);
}

TEST_F(Crash, SaysBehindTheBacktracesWhoBrokeWithoutSecrets) {
  const TempDir folder;
  const QString home = folder.path();
  const Death death =
      die(folder,
          {"--kind", "null-write", "--in-thread", "--threads", "1", "--note", home + "/part.g3d",
           "--note", "line\nfeed", "--password", "moon river"},
          {"HOME=" + home, "USERPROFILE=" + QDir::toNativeSeparators(home).toUpper()});
  const auto section = death.report.lastIndexOf("\n\n\nabout this crash:\n");
  ASSERT_GE(section, death.report.lastIndexOf("\n#0 ")) << death.report.toStdString();
  const QString about = death.report.mid(section);
  const QString name = death.dumps.value(0);
  EXPECT_TRUE(begins(
      about,
      "\n\n\nabout this crash:\nfault: EXCEPTION_ACCESS_VIOLATION \\(write to address 0x0\\)\n"
      "time: \\d{4}-\\d\\d-\\d\\dT\\d\\d:\\d\\d:\\d\\dZ\nprocess: " +
          name.mid(4).remove(".dmp") +
          "\nprogram: Viewer\nversion: \\S+\nlibrary: libKyr \\S+\ncommand line: \\S*crash\\S* "
          "--kind "
          "null-write --in-thread --threads 1 --note ~/\\S*part.g3d --note line\\?feed --password "
          "\\[blanked\\]\nsystem: (Linux|Windows) .+, \\d+ processors\ndump: .*" +
          name + "\n\nthreads:\n"))
      << about.toStdString();
  const QString time = about.section("\ntime: ", 1).section('\n', 0, 0);
  EXPECT_LT(std::abs(QDateTime::fromString(time, Qt::ISODate).secsTo(QDateTime::currentDateTime())),
            100)
      << time.toStdString();
}

TEST_F(Crash, NamesEachThreadThatWasMadeSomewhere) {
  const TempDir folder;
  const QString report =
      die(folder, {"--kind", "divide", "--in-thread", "--threads", "2"}, {"KYR_LOCK_DOCTOR=1"})
          .report;
  const QString crashing = report.section("crashing thread ", 1).section(':', 0, 0);
  EXPECT_TRUE(QRegularExpression("\nthread " + crashing +
                                 " .*made at Crash::Worker::Worker \\(crew:10\\)\n")
                  .match(report)
                  .hasMatch())
      << report.toStdString();
  EXPECT_EQ(report.count("made at Crash::Worker::Worker (crew:10)\n"), 3) << "the main thread too";
  EXPECT_EQ(
      report.section("\nwho holds which lock:\n", 1)
          .count(" of Crash::Worker::Worker (crew:10) sleeps in Crash::Crew::Crew (crew:18) "),
      2)
      << report.toStdString();
}

TEST_F(Crash, NamesTheBuildOfEachModuleThatAFrameLiesIn) {
  const TempDir folder;
  const QString report = die(folder, {"--kind", "null-read", "--in-thread"}).report;
  const std::vector<QStringList> modules = modulesOf(report);
  auto frames = QRegularExpression("^#\\d+ +(0x[0-9a-f]+) ([^!+\\s]+)[!+]",
                                   QRegularExpression::MultilineOption)
                    .globalMatch(report);
  for (int count = 0; frames.hasNext() || count < 3; ++count) {
    ASSERT_TRUE(frames.hasNext()) << report.toStdString();
    const QRegularExpressionMatch frame = frames.next();
    EXPECT_EQ(std::count_if(modules.begin(), modules.end(),
                            [&](const QStringList& module) { return liesIn(module, frame); }),
              1)
        << frame.captured().toStdString() << '\n'
        << report.toStdString();
  }
  for (const QStringList& module : modules) {
    EXPECT_TRUE(QRegularExpression("\\A([0-9a-f]{16,}|[0-9a-f]{32}-\\d+|no-build-id)\\z")
                    .match(module[2])
                    .hasMatch())
        << module.join(' ').toStdString();
  }
}

TEST_F(Crash, TellsThePersonWhoStartedItWhereTheReportIs) {
  const struct {
    QStringList variables;
    const char* words;  // %1 for the folder, %2 for the dump
    const char* catches;
  } rows[] = {
      {{}, "Viewer has crashed. The report is %1report.txt, the dump is %1%2.\n", "nobody is told"},
      {{"KYR_CONSOLE=file:"},
       "Viewer has crashed. The report is %1%3, the dump is %1%2.\n",
       "a file of its own that is not named"},
      {{"TMPDIR=/no/where", "TEMP=Q:\\no", "TMP=Q:\\no"},
       "Viewer has crashed. The report is %1report.txt; there is no dump.\n",
       "a dump that is not there"},
  };
  for (const auto& row : rows) {
    const TempDir folder;
    const Death death = die(folder, {"--kind", "divide"}, row.variables);
    const QString dump = death.dumps.value(0);
    const QString expected = QString(row.words)
                                 .replace("%1", QDir::toNativeSeparators(folder.path() + "/"))
                                 .replace("%2", dump)
                                 .replace("%3", QString(dump).replace(".dmp", ".log"));
    EXPECT_EQ(death.errors, expected.toUtf8()) << row.catches;
  }
}

TEST_F(Crash, IsKnownAtTheNextStartUntilItIsSeen) {
  const TempDir folder;
  die(folder, {"--kind", "divide"}, {"KYR_CONSOLE=file:"});
  const QString report = QDir(folder.path()).entryList({"ORV-*.log"}).value(0);
  const QString known =
      "Viewer \\S+Z: EXCEPTION_INT_DIVIDE_BY_ZERO\n.*" + report + "\n.*ORV-\\d+\\.dmp\n";
  for (const auto& [option, expected] :
       {std::make_pair("--seen", known), std::make_pair("--last", "seen: " + known)}) {
    const Death shown = die(folder, {option});
    EXPECT_EQ(shown.code, 0);
    EXPECT_TRUE(begins(shown.report, expected)) << shown.report.toStdString();
  }
}

/// The section of the flight recorder; empty without one.
QStringList recordedIn(const QString& report) {
  const QString heading = "\nlast entries of the flight recorder, the newest first:\n";
  const auto at = report.lastIndexOf(heading);
  return at < 0 ? QStringList()
                : report.mid(at + heading.size())
                      .section("\n\n", 0, 0)
                      .split('\n', Qt::SkipEmptyParts);
}

TEST_F(Crash, TellsWhatHappenedLast) {
  const TempDir folder;
  const Death death = die(folder, {"--kind", "null-write", "--in-thread"});
  const QStringList lines = recordedIn(death.report);
  ASSERT_EQ(lines.size(), 6) << death.report.toStdString();
  EXPECT_TRUE(lines[0].endsWith(" crash: null-write")) << lines[0].toStdString();
  EXPECT_TRUE(lines[5].endsWith(" KyrInit: InitLibrary begins")) << lines[5].toStdString();
  // The main thread, which waits for the one that has broken.
  EXPECT_TRUE(death.report.contains("next thread: " + lines[0].section(' ', 1, 1) + ","));
  const Death silent = die(folder, {"--kind", "null-write"}, {"KYR_FLIGHT_RECORDER=off"});
  EXPECT_FALSE(silent.report.contains("flight recorder")) << silent.report.toStdString();
  EXPECT_FALSE(recordedIn(die(folder, {"--kind", "null-write"}, {"KYR_FLIGHT_RECORDER=on"}).report)
                   .isEmpty());
}

TEST_F(Crash, ReportsTheEndWhateverTheHookDoes) {
  const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
      {"null-read", "say", "\nthe hook was here\n", "a hook not called, or called too early"},
      {"null-read", "crash", "", "a crash in the hook that is reported for ever"},
      {"prog-error", "crash", "", "a report that did not come to its end, and is told of twice"},
  };
  for (const auto& [kind, hook, end, catches] : rows) {
    const TempDir folder;
    const Death death = die(folder, {"--kind", kind, "--hook", hook});
    EXPECT_TRUE(death.exited && death.code == 1) << catches;
    EXPECT_TRUE(death.report.endsWith(end)) << catches << death.report.toStdString();
    EXPECT_EQ(death.report.count("caught exception"), 1) << catches;
    EXPECT_EQ(death.errors.count("Viewer has crashed. The report is "), 1) << catches;
  }
}

TEST_F(Crash, LeavesTheNewestDumpsOfManyCrashes) {
  const TempDir folder;
  for (int i = 1; i <= 30; ++i) {
    KyrTest::plantDump(folder, KyrTest::numberedDump(i * 7 % 31), i * 7 % 31);
  }
  const QStringList others{"ORV-07.dmp", "ORV-7.dmp.gz", "ORV-4294967296.dmp", "ORV-.dmp"};
  for (const QString& name : others) {
    KyrTest::plantDump(folder, name, 1000);
  }
  EXPECT_TRUE(QDir(folder.path()).mkdir("ORV-7.dmp"));
  QFile written(KyrTest::plantDump(folder, "ORV-8.dmp", 1000));
  EXPECT_TRUE(written.open(QIODevice::ReadWrite));
  KyrTest::lockDump(written);
  die(folder, {"--kind", "null-read"});
  const QStringList left = QDir(folder.path()).entryList({"ORV-*"});
  for (int i = 1; i <= 30; ++i) {
    EXPECT_EQ(left.contains(KyrTest::numberedDump(i)), i < 20) << i << " hours old";
  }
  EXPECT_EQ(left.size(), 20 + others.size() + 2) << "the new one; what is none, or being written";
}

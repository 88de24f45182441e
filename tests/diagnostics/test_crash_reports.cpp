// Which reports of crashes are found among files of output.
#include "app/home.h"

#include <kyr/diagnostics/KyrCrashReports.h>
#include <kyr/diagnostics/KyrSystemReport.h>

using namespace Kyr;
using namespace KyrTest;

namespace {

const QByteArray greeting =
    "Viewer 6.2.0-6 Rev. 28774 Build 2010-02-05: System memory management\n";
const QByteArray beginning =
    "caught exception: EXCEPTION_BREAKPOINT\nat address 0x1\n\nbacktrace of the crashing thread "
    "0x1:\n#0  0x1 crash!main+0x1\n";

/// A report from its first line on.
QByteArray reportOf(const QByteArray& program, const QByteArray& time) {
  return beginning + "\n\nabout this crash:\nfault: EXCEPTION_BREAKPOINT\ntime: " + time +
         "\nprocess: 7\nprogram: " + program +
         "\nversion: 1.2 beta\nlibrary: libKyr 6\nsystem: Linux\n\nthreads:\nthread 0x1 named "
         "\"a\"\n\nmodules of the backtraces:\nmodule 0x1 0x2 no-build-id /a\n";
}

/// What is known of a report, for tests: "Viewer 1.2 beta 2026-01-02T03:04:05Z FAULT whole FILE".
std::string textOf(const std::optional<CrashReport>& report) {
  if (!report) {
    return "none";
  }
  const QDateTime time = QDateTime::fromSecsSinceEpoch(report->seconds, Qt::UTC);
  return QStringList({report->application, report->version,
                      report->isWhole ? time.toString(Qt::ISODate) : QString("-"), report->fault,
                      report->isWhole ? "whole" : "broken", QFileInfo(report->path).fileName()})
      .join(' ')
      .toStdString();
}

class CrashFiles : public testing::Test {
 public:
  ~CrashFiles() override {
    for (const char* name : {"KYR_CONSOLE", "KYR_CONFIG_DIR", "TMPDIR", "TMP", "TEMP"}) {
      OS::unsetEnv(name);
    }
  }

 protected:
  CrashFiles() {
    _home.setVariables(
        {{"TEMP", _home.path()}, {"KYR_CONSOLE", "file:" + _home.file("named.txt")}});
  }
  /// Replaces the files of output by these.
  void plant(const std::vector<std::pair<QString, QByteArray>>& files) const {
    for (const QString& name : QDir(_home.path()).entryList(QDir::Files)) {
      QFile::remove(_home.file(name));
    }
    for (const auto& [name, content] : files) {
      writeFile(_home.file(name), content);
    }
  }
  const Home _home;
};

TEST_F(CrashFiles, GiveTheNewestReportOfAnApplication) {
  const QByteArray early = "2026-01-02T03:04:05Z";
  const QByteArray late = "2026-01-02T03:04:06Z";
  const QString free = "ORV-4000000001.log";  // no process has such a number
  const QString running = QString("ORV-%1.log").arg(OS::getPID());
  const std::string found = "Viewer 1.2 beta 2026-01-02T03:04:05Z EXCEPTION_BREAKPOINT whole ";
  const struct {
    std::vector<std::pair<QString, QByteArray>> files;
    const char* application;
    std::string expected;
    const char* catches;
  } rows[] = {
      {{}, "Viewer", "none", "a report from nowhere"},
      {{{free, greeting + "all is well\n"}}, "Viewer", "none", "any output taken for a report"},
      {{{free, greeting + reportOf("Viewer", early)}}, "Viewer", found + free.toStdString(), ""},
      {{{free, QByteArray(greeting + reportOf("Viewer", early)).replace("\n", "\r\n")}},
       "Viewer",
       found + free.toStdString(),
       "line ends of Windows"},
      {{{"ORV-4000000002.log", reportOf("Viewer", early)}, {free, reportOf("Viewer", late)}},
       "Viewer",
       "Viewer 1.2 beta 2026-01-02T03:04:06Z EXCEPTION_BREAKPOINT whole " + free.toStdString(),
       "the time of a file taken for that of a crash"},
      {{{free, reportOf("Viewer", early)},
        {"ORV-4000000002.log", reportOf("Viewer", "2926-01-02T03:04:05Z")}},
       "Viewer",
       found + free.toStdString(),
       "a clock that was wrong hides all later crashes"},
      {{{free, reportOf("Viewer Pro", late)}, {"ORV-4000000002.log", reportOf("Viewer", early)}},
       "Viewer",
       found + "ORV-4000000002.log",
       "another application of a similar name"},
      {{{free, reportOf("Viewer", early)}}, "", found + free.toStdString(), "any application"},
      {{{"named.txt", "text\n" + reportOf("Viewer", early) + "and more output\n"}},
       "Viewer",
       found + "named.txt",
       "the file that the environment names"},
      {{{"ORV-x.log", reportOf("Viewer", early)}}, "Viewer", "none", "a file of another's"},
      {{{free, greeting + beginning}},
       "Viewer",
       "Viewer  - EXCEPTION_BREAKPOINT broken " + free.toStdString(),
       "a report that was cut off is no crash"},
      {{{running, greeting + beginning}}, "Viewer", "none", "a report that is being written"},
      {{{"named.txt", reportOf("Viewer", early) + greeting + beginning}},
       "",
       "  - EXCEPTION_BREAKPOINT broken named.txt",
       "an earlier report taken for the broken one behind it"},
      {{{free, QByteArray(3 << 20, 'x') + '\n' + reportOf("Viewer", early)}},
       "Viewer",
       found + free.toStdString(),
       "a huge file"},
      {{{free, QByteArray("\n\n\nabout this crash:\n\xff\xfe\0\n", 26)}},
       "Viewer",
       "none",
       "bytes that are no text"},
  };
  for (const auto& row : rows) {
    plant(row.files);
    EXPECT_EQ(textOf(CrashReports::newest(row.application)), row.expected) << row.catches;
  }
}

TEST_F(CrashFiles, NameNoFileButTheDumpOfTheProcess) {
  const struct {
    const char* name;
    bool isDump;
    const char* catches;
  } rows[] = {{"ORV-7.dmp", true, "a dump that nobody is offered"},
              {"secret.txt", false, "any file, named by what a program has printed"},
              {"ORV-8.dmp", false, "the dump of another process"},
              {"none/ORV-7.dmp", false, "a dump that is not there any more"}};
  for (const auto& row : rows) {
    const QString path = _home.file(row.name);
    plant({{"ORV-4000000001.log", reportOf("Viewer", "2026-01-02T03:04:05Z")
                                      .replace("system: Linux\n", "dump: " + path.toUtf8() + '\n')},
           {"ORV-7.dmp", "MDMP"},
           {"ORV-8.dmp", "MDMP"},
           {"secret.txt", "x"}});
    const CrashReport found = CrashReports::newest().value_or(CrashReport());
    EXPECT_EQ(found.process, 7) << row.catches;
    EXPECT_EQ(found.dump, row.isDump ? path : QString()) << row.catches;
  }
}

TEST_F(CrashFiles, AreSeenOnceAcknowledged) {
  plant({{"ORV-4000000001.log", reportOf("Viewer", "2026-01-02T03:04:05Z")}});
  const auto isSeen = [] { return CrashReports::newest().value_or(CrashReport()).isSeen; };
  EXPECT_FALSE(isSeen());
  CrashReports::acknowledge(*CrashReports::newest());
  EXPECT_TRUE(isSeen());
  CrashReport other;
  for (other.process = 1; other.process < 100; ++other.process) {
    CrashReports::acknowledge(other);
  }
  EXPECT_TRUE(isSeen()) << "forgotten before 100 others";
  CrashReports::acknowledge(other);
  EXPECT_FALSE(isSeen()) << "notes grow without end";
}

TEST_F(CrashFiles, SaysWhenItCannotBeRemembered) {
  writeFile(_home.file("config"), "in the way");
  EXPECT_NE(failure([] { CrashReports::acknowledge(CrashReport()); }), "");
}

TEST_F(CrashFiles, StandOnTopOfASystemReport) {
  plant({{"ORV-4000000001.log", reportOf("<Viewer>", "2026-01-02T03:04:05Z")
                                    .replace("fault: ", "fault: password=geheim ")}});
  SystemReport report;
  report.collect(SystemReport::PartLogs | SystemReport::PartVersions);
  const QString text = report.toText();
  EXPECT_TRUE(
      text.startsWith("Newest crash\n------------\n  fault        password=[blanked] "
                      "EXCEPTION_BREAKPOINT\n  application  <Viewer> 1.2 beta\n  time"))
      << text.toStdString();
  const QString page = report.toHtml();
  const auto crash = page.indexOf("<section id=\"crash\">");
  EXPECT_GT(crash, 0);
  EXPECT_LT(crash, page.indexOf("<section id=\"part1\">"));
  EXPECT_TRUE(page.mid(crash, 900).contains("&lt;Viewer&gt; 1.2 beta")) << "letters of the page's";
  EXPECT_TRUE(page.mid(crash, 900).contains("href=\"logs/ORV-4000000001.log\"")) << "no way to it";
  EXPECT_FALSE(page.contains("geheim"));
  SystemReport other;
  other.collect(SystemReport::PartVersions);
  EXPECT_FALSE(other.toHtml().contains("Newest crash")) << "searched unasked";
}

}  // namespace

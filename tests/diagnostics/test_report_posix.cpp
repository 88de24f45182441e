#include <kyr/diagnostics/KyrCrashReports.h>
#include <kyr/diagnostics/KyrSystemReport.h>

#include "support/Support.h"

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace Kyr;

TEST(ReportOnLinux, FollowsNothingAndKeepsOthersOut) {
  const KyrTest::TempDir folder;
  const KyrTest::ScopedEnvironment temporary("TMPDIR", folder.path().toUtf8());
  const QByteArray crash =
      "secret\n\n\nabout this crash:\nfault: X\n\nmodules of the backtraces:\n";
  const QByteArray own = folder.write("secret", crash).toUtf8();
  EXPECT_EQ(::symlink(own, qPrintable(folder.file("ORV-1.log"))), 0);
  EXPECT_EQ(::link(own, qPrintable(folder.file("ORV-2.log"))), 0);
  EXPECT_EQ(::mkfifo(qPrintable(folder.file("ORV-3.log")), 0600), 0);
  EXPECT_EQ(::mkdir(qPrintable(folder.file("ORV-4.log")), 0700), 0);
  folder.write("ORV-5.log", "fine");
  if (::geteuid() == 0) {
    EXPECT_EQ(::chown(qPrintable(folder.write("ORV-6.log", crash)), 1, 1), 0);
  }
  SystemReport report;
  report.collect(SystemReport::PartLogs);
  ASSERT_EQ(report.files().size(), 1U);
  EXPECT_EQ(report.files()[0].contents, "fine");
  EXPECT_EQ(report.sections()[0].remarks.size(), ::geteuid() == 0 ? 5 : 4);
  EXPECT_FALSE(CrashReports::newest()) << "a report that is not this user's own plain file";
  folder.write("ORV-7.log", crash);
  EXPECT_TRUE(CrashReports::newest());
  const mode_t before = ::umask(0);
  report.write(folder.file("r.tar.gz"));
  ::umask(before);
  struct stat found = {};
  EXPECT_EQ(::stat(qPrintable(folder.file("r.tar.gz")), &found), 0);
  EXPECT_EQ(found.st_mode & 0777U, 0600U);
}

TEST(ReportOnLinux, SaysWhatItCouldNotOpen) {
  KYR_SKIP_ADDRESS_SANITIZER("UndefinedBehaviorSanitizer looks at memory through a pipe");
  const KyrTest::TempDir folder;
  const KyrTest::ScopedEnvironment temporary("TMPDIR", folder.path().toUtf8());
  const auto ended = KyrTest::inChild([] {
    SystemReport report;
    const rlimit none{0, 0};
    ::setrlimit(RLIMIT_NOFILE, &none);
    report.collect(SystemReport::AllParts);
    std::printf("%s", qPrintable(report.missing().join('\n')));
  });
  for (const char* const part : {"Processor: ", "Memory: ", "Logs and crash dumps: "}) {
    EXPECT_TRUE(ended.output.contains(part)) << part << ended.output.toStdString();
  }
}

TEST(ReportOnLinux, BlanksArgumentsToTheirEnds) {
  const auto ended = KyrTest::inChild([] {
    const char* words[] = {"p",       "--password", "geheim 4711", "--api-key=a b",
                           "--token", "-geheim",    "--size",      "3"};
    int count = int(std::size(words));
    const QCoreApplication application(count, const_cast<char**>(words));
    SystemReport report;
    report.collect(SystemReport::PartVersions);
    std::printf("%s", qPrintable(report.sections()[0].rows[1].last()));
  });
  EXPECT_EQ(ended.output, "--password [blanked] --api-key=[blanked] --token [blanked] --size 3");
}

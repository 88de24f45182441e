// What is no hang: a process that stands still, or is looked at by a debugger.
#include "support/Support.h"

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace KyrTest;

/// The example with what it says in a file, so that this process can stop it and look at it.
struct Example {
  Example(const TempDir& folder, const QStringList& words) : errors(folder.file("errors")) {
    process.setStandardErrorFile(errors);
    process.start(KYR_HANG, words);
    EXPECT_TRUE(process.waitForStarted());
  }
  pid_t number() const { return static_cast<pid_t>(process.processId()); }

  QProcess process;
  QString errors;
};

TEST(HeartbeatOfAnother, IsNoHangWhileTheWholeProcessStandsStill) {
  const TempDir folder;
  Example example(folder, {"--patience", "600", "--beat", "3000"});
  for (int i = 0; i < 2; ++i) {
    ::usleep(500'000);
    ASSERT_EQ(::kill(example.number(), SIGSTOP), 0);
    ::usleep(1'200'000);
    ASSERT_EQ(::kill(example.number(), SIGCONT), 0);
  }
  ASSERT_TRUE(example.process.waitForFinished());
  EXPECT_EQ(readFile(example.errors), "");
}

TEST(HeartbeatOfAnother, IsNoHangWhileADebuggerIsAttached) {
  KYR_SKIP_ADDRESS_SANITIZER("its search for leaks is a debugger, too, and there can be only one");
  const TempDir folder;
  Example example(folder, {"--patience", "600", "--beat", "500", "--save", "2500"});
  if (::ptrace(PTRACE_SEIZE, example.number(), nullptr, nullptr) != 0) {
    example.process.waitForFinished();
    GTEST_SKIP() << "this system lets nobody trace his own processes";
  }
  ASSERT_TRUE(example.process.waitForFinished());
  EXPECT_EQ(readFile(example.errors), "");
}

}  // namespace

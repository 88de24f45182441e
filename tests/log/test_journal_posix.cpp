#include <kyr/log/KyrJournal.h>

#include "support/Support.h"

#include <sys/wait.h>
#include <unistd.h>

using namespace Kyr;

TEST(JournalTest, BearsForksWhileJournalsComeAndGo) {
  KYR_SKIP_SANITIZERS("the lock of their heap may be held by another thread in the copy");
  const KyrTest::TempDir folder;
  std::atomic<bool> ends{false};
  std::thread others([&] {
    while (!ends) {
      Journal(folder.file("other")).add(Journal::Info, "", "");
    }
  });
  int broken = 0;
  for (int i = 0; i < 500; ++i) {
    const pid_t child = ::fork();
    if (child == 0) {
      ::alarm(30);
      Journal(folder.file("child")).add(Journal::Warning, "", "");
      ::_exit(0);
    }
    int status = 0;
    ::waitpid(child, &status, 0);
    broken += status != 0 ? 1 : 0;
  }
  ends = true;
  others.join();
  EXPECT_EQ(broken, 0);
}

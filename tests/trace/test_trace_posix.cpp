#include "Traces.h"

#include <kyr/trace/KyrTrace.h>

#include <csignal>

#include <sys/wait.h>
#include <unistd.h>

using namespace Kyr;
using namespace KyrTest;

TEST(Trace, ofAForkedChildIsItsOwnOrNone) {
  for (const char* name : {"trace.json", "%p.json"}) {
    const TempDir folder;
    Trace::start(folder.file(name));
    Trace::mark("before");
    const pid_t child = ::fork();
    Trace::mark("after");
    if (child == 0) {
      Trace::stop();
      ::_exit(0);
    }
    ASSERT_EQ(::waitpid(child, nullptr, 0), child);
    Trace::stop();
    const QStringList files = QDir(folder.path()).entryList(QDir::Files, QDir::Size);
    ASSERT_EQ(files.size(), *name == '%' ? 2 : 1);
    int before = 0;
    for (const QString& file : files) {
      const std::vector<QJsonObject> events = eventsOf(folder.file(file));
      before += count(events, "i", "before");
      EXPECT_EQ(count(events, "i", "after"), 1);
      EXPECT_EQ(count(events, "M", "thread_name"), 1);
    }
    EXPECT_EQ(before, 1) << "the child wrote what its parent had recorded";
  }
}

TEST(Trace, leavesItsFileAlsoWhenAChildHasItOpen) {
  const TempDir folder;
  const QString file = folder.file("trace.json");
  Trace::start(file);
  const pid_t child = ::_Fork();  // as one that has not come to the handlers of forks yet
  if (child == 0) {
    ::alarm(30);
    ::pause();
  }
  Trace::stop();
  EXPECT_EQ(failure([&] { Trace::start(file); }), "");
  Trace::stop();
  ::kill(child, SIGKILL);
  ::waitpid(child, nullptr, 0);
}

#include "Writers.h"

#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace KyrTest;
using Kyr::FlightRecorder;

/// What a process finds in which all writers have stopped in the middle of what they did.
int judgeStopped() {
  int whole = 0;
  for (const QString& line : FlightRecorder::lines()) {
    if (line.contains(" writer: ")) {
      if (!isWhole(line)) {
        std::cerr << line.toStdString() << '\n';
        return 1;
      }
      ++whole;
    }
  }
  // Places that nobody will ever leave do not hold up others.
  for (int i = 0; i < 1000; ++i) {
    FlightRecorder::note("after", QString::number(i));
  }
  const QStringList after = FlightRecorder::lines();
  const bool goesOn =
      after.front().endsWith("after: 999") && after.size() > int{FlightRecorder::shownEntries} - 10;
  return whole > 200 && goesOn ? 0 : 2;
}

// A copied process has only the thread that copied it: the others are as if killed.
TEST(FlightRecorder, KeepsWholeEntriesWhenWritersAreKilled) {
  KYR_SKIP_SANITIZERS("a child of a process with threads hangs in the sanitizer");
  const Writers writers(3);
  for (int i = 0; i < 300; ++i) {
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
      ::alarm(30);
      ::_exit(judgeStopped());
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) == 0) << "in copy " << i << ": " << status;
  }
}

}  // namespace

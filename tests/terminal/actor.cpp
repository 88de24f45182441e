// What test_terminal.py looks at: a program with a bar, or one that saves until it is stopped.
//
//   actor bar MILLISECONDS STEPS [quiet]
//   actor save FILE [deaf]
#include <kyr/files/KyrSafeFile.h>
#include <kyr/jobs/KyrProgressScope.h>
#include <kyr/jobs/KyrStopToken.h>
#include <kyr/terminal/KyrInterruptWatch.h>
#include <kyr/terminal/KyrTerminalProgress.h>

#include <QFile>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>

using namespace Kyr;

namespace {

void showBar(int milliseconds, std::uint64_t steps, bool quiet) {
  const InterruptWatch watch;
  const TerminalProgress bar(quiet ? TerminalProgress::ShowNothing
                                   : TerminalProgress::ShowWhereSeen);
  ProgressScope scope("show", steps);
  ProgressScope::setText(QString::fromUtf8("R\xc3\xa4nder \xe6\xb8\xac\xe5\xae\x9a"));
  for (std::uint64_t step = 0; step != steps; ++step) {
    throwIfStopped();
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    scope.step();
    if (step == steps / 2) {
      bar.print("halfway");
    }
  }
}

/// Each content is one letter, many times.
void saveForever(const QString& name, bool deaf) {
  const InterruptWatch watch;
  std::puts("saving");
  std::fflush(stdout);
  for (char letter = 'a';; letter = letter == 'z' ? 'a' : static_cast<char>(letter + 1)) {
    SafeFile file(name);
    for (int i = 0; i < 100; ++i) {
      if (!deaf) {
        throwIfStopped();
      }
      file.stream() << std::string(10000, letter);
    }
    file.commit();
  }
}

}  // namespace

int main(int argc, char** argv) {
  const bool flag = argc == 5 || (argc == 4 && argv[1] == std::string("save"));
  try {
    if (argv[1] == std::string("bar")) {
      showBar(std::atoi(argv[2]), std::strtoull(argv[3], nullptr, 10), flag);
    } else {
      saveForever(QFile::decodeName(argv[2]), flag);
    }
    std::puts("done");
    return 0;
  } catch (const Stopped&) {
    std::puts("stopped");
    return 130;
  }
}

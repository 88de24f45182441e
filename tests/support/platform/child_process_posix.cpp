#include "support/Support.h"

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace KyrTest {

namespace {

/// A deliberate fault must look as it does to a user: no sanitizer's handler in between,
/// and no core file left behind.
void becomeOrdinaryProcess() {
  std::signal(SIGSEGV, SIG_DFL);
  const rlimit none{0, 0};
  ::setrlimit(RLIMIT_CORE, &none);
}

[[noreturn]] void runChild(const std::function<void()>& action, int output, int errors) {
  ::dup2(output, STDOUT_FILENO);
  ::dup2(errors, STDERR_FILENO);
  becomeOrdinaryProcess();
  action();
  std::cout.flush();
  std::fflush(nullptr);
  ::_exit(0);
}

QByteArray drain(int descriptor) {
  QByteArray all;
  std::array<char, 4096> piece;
  for (ssize_t count = 0; (count = ::read(descriptor, piece.data(), piece.size())) > 0;) {
    all.append(piece.data(), static_cast<int>(count));
  }
  ::close(descriptor);
  return all;
}

Ended describe(int status) {
  Ended ended;
  ended.exited = WIFEXITED(status);
  ended.code = ended.exited ? WEXITSTATUS(status) : -1;
  ended.faulted = WIFSIGNALED(status) && WTERMSIG(status) == SIGSEGV;
  return ended;
}

}  // namespace

Ended inChild(const std::function<void()>& action) {
  std::cout.flush();
  std::fflush(nullptr);
  std::array<int, 2> output{};
  std::array<int, 2> errors{};
  if (::pipe(output.data()) != 0 || ::pipe(errors.data()) != 0) {
    ADD_FAILURE() << "no pipe for a child process";
    return {};
  }
  const pid_t child = ::fork();
  if (child == 0) {
    ::close(output[0]);
    ::close(errors[0]);
    runChild(action, output[1], errors[1]);
  }
  ::close(output[1]);
  ::close(errors[1]);
  QByteArray written;
  std::thread outputReader([&] { written = drain(output[0]); });
  const QByteArray reported = drain(errors[0]);
  outputReader.join();
  int status = 0;
  ::waitpid(child, &status, 0);
  Ended ended = describe(status);
  ended.output = written;
  ended.errors = reported;
  return ended;
}

}  // namespace KyrTest

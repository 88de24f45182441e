#include "files/Traced.h"

#include <csignal>

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace KyrTest {

namespace {

constexpr int notTraced = 77;

/// A sanitizer writes some bytes of its own.
void note(pid_t child, std::string& calls) {
  __ptrace_syscall_info info{};
  ::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info);
  if (info.op == PTRACE_SYSCALL_INFO_ENTRY) {
    const auto call = info.entry.nr;
    calls += call == SYS_write && info.entry.args[2] > 1000 ? "w" : "";
    calls += call == SYS_fsync ? "f" : call == SYS_rename ? "r" : call == SYS_getdents64 ? "g" : "";
  }
}

}  // namespace

Traced trace(const std::function<void()>& action, int calls) {
  const pid_t child = ::fork();
  if (child == 0) {
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
      ::_exit(notTraced);
    }
    ::raise(SIGSTOP);
    action();
    ::_exit(0);
  }
  Traced traced;
  int status = 0;
  for (int i = 0; ::waitpid(child, &status, 0) == child && WIFSTOPPED(status); ++i) {
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD);
    if (i == calls) {
      ::kill(child, SIGKILL);
    }
    note(child, traced.calls);
    ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
  }
  traced.wasKilled = WIFSIGNALED(status);
  traced.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  traced.isPossible = traced.code != notTraced;
  return traced;
}

}  // namespace KyrTest

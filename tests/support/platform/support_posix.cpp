#include "support/Support.h"
#include "support/support_p.h"

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace KyrTest {

Stream temporaryStream() {
  return {std::tmpfile(), &std::fclose};
}

Stream pipeStream(const QByteArray& bytes) {
  std::array<int, 2> ends{};
  EXPECT_EQ(::pipe(ends.data()), 0);
  EXPECT_EQ(::write(ends[1], bytes.data(), static_cast<std::size_t>(bytes.size())), bytes.size());
  ::close(ends[1]);
  return {::fdopen(ends[0], "rb"), &std::fclose};
}

QString fullDevice() {
  const QString full = "/dev/full";
  return QFile::exists(full) ? full : QString();
}

bool takeNothing() {
  constexpr auto call = offsetof(seccomp_data, nr);
  constexpr auto file = offsetof(seccomp_data, args), count = offsetof(seccomp_data, args[2]);
  sock_filter rules[] = {
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, call),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_writev, 1, 0),
      BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_write, 0, 5),
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, file),
      BPF_JUMP(BPF_JMP | BPF_JGT | BPF_K, STDERR_FILENO, 2, 0),
      BPF_STMT(BPF_LD | BPF_W | BPF_ABS, count),
      BPF_JUMP(BPF_JMP | BPF_JGT | BPF_K, 1000, 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
  };
  const sock_fprog filter{std::size(rules), rules};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &filter) == 0;
}

void limitMemory(bool limited) {
  rlimit limit{};
  ::getrlimit(RLIMIT_AS, &limit);
  limit.rlim_cur = limited ? 4096 : limit.rlim_max;
  ::setrlimit(RLIMIT_AS, &limit);
}

const char* Platform::localeName(const char* name) {
  return name;
}

}  // namespace KyrTest

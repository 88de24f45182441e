// Ends of the process as the operating system sees them.
#include "support/Support.h"

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Kyr;
using KyrTest::inChild;

namespace {

void breakPipe() {
  int ends[2] = {};
  std::signal(SIGPIPE, SIG_DFL);
  EXPECT_EQ(::pipe(ends), 0);
  ::close(ends[0]);
  ::dup2(ends[1], STDERR_FILENO);
}

void limitFile() {
  const rlimit none{0, 0};
  ::setrlimit(RLIMIT_FSIZE, &none);
  ::dup2(::fileno(std::tmpfile()), STDERR_FILENO);
}

/// Exit code 7 when the fault is what a crash handler calls a write to address zero.
void judgeFaults() {
  struct sigaction action = {};
  action.sa_flags = SA_SIGINFO;
  action.sa_sigaction = [](int signal, siginfo_t* fault, void*) {
    ::_exit(signal == SIGSEGV && fault->si_code == SEGV_MAPERR && !fault->si_addr ? 7 : 8);
  };
  for (const int signal : {SIGSEGV, SIGILL, SIGTRAP, SIGPIPE}) {
    ::sigaction(signal, &action, nullptr);
  }
}

}  // namespace

TEST(ProgError, WritesEachPieceAtOnce) {
  int ends[2] = {};
  ASSERT_EQ(::socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends), 0);
  inChild([&ends] {
    ::dup2(ends[1], STDERR_FILENO);
    throw ProgError("f", "g", 94, "message");
  });
  ::close(ends[1]);
  char piece[256] = {};
  for (const std::string expected : {"\nInternal program error: ", "message", "\nin function ", "f",
                                     "\nin file ", "g", " line ", "94", "\n\n", ""}) {
    const auto length = ::read(ends[0], piece, sizeof piece);
    EXPECT_EQ(std::string(piece, static_cast<std::size_t>(length)), expected);
  }
  ::close(ends[0]);
}

TEST(ProgError, FaultsAsACrashHandlerExpectsWhereverStandardErrorGoes) {
  struct {
    void (*prepare)();
    int code;
    const char* catches;
  } const rows[] = {
      {judgeFaults, 7, "a trap of the optimiser in place of the null write"},
      {[] { ::close(STDERR_FILENO); }, -1, "a loop on a closed descriptor"},
      {[] { ::dup2(::open("/dev/full", O_WRONLY), STDERR_FILENO); }, -1, "a loop on a full device"},
      {limitFile, -1, "SIGXFSZ in place of the fault"},
      {breakPipe, -1, "SIGPIPE in place of the fault"},
  };
  for (const auto& row : rows) {
    const auto ended = inChild([&row] {
      row.prepare();
      throw ProgError("lost", true);
    });
    EXPECT_TRUE(ended.code == row.code && ended.faulted == (row.code < 0)) << row.catches;
  }
}

// Ends of the process as the operating system sees them.
#include "support/Support.h"

#include <kyr/core/KyrProgError.h>
#include <kyr/core/KyrStructVector.h>

#include <gtest/gtest.h>

#include <array>
#include <csignal>
#include <new>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace Kyr;
using KyrTest::inChild;

namespace {

void breakPipe() {
  std::signal(SIGPIPE, SIG_DFL);
  std::array<int, 2> ends{};
  if (::pipe(ends.data()) == 0) {
    ::close(ends[0]);
    ::dup2(ends[1], STDERR_FILENO);
  }
}

void judgeFault(int signal, siginfo_t* fault, void*) {
  ::_exit(signal == SIGSEGV && fault->si_code == SEGV_MAPERR && !fault->si_addr ? 7 : 8);
}

void liftMemoryLimit() {
  rlimit limit{};
  ::getrlimit(RLIMIT_AS, &limit);
  limit.rlim_cur = limit.rlim_max;
  ::setrlimit(RLIMIT_AS, &limit);
}

}  // namespace

TEST(ProgError, WritesEachPieceAtOnce) {
  std::array<int, 2> ends{};
  ASSERT_EQ(::socketpair(AF_UNIX, SOCK_SEQPACKET, 0, ends.data()), 0);
  EXPECT_TRUE(inChild([&ends] {
                ::dup2(ends[1], STDERR_FILENO);
                throw ProgError("f", "g", 94, "message");
              }).faulted);
  ::close(ends[1]);
  std::vector<std::string> pieces;
  std::array<char, 256> piece;
  for (ssize_t count = 0; (count = ::read(ends[0], piece.data(), piece.size())) > 0;) {
    pieces.emplace_back(piece.data(), static_cast<std::size_t>(count));
  }
  ::close(ends[0]);
  EXPECT_EQ(pieces,
            (std::vector<std::string>{"\nInternal program error: ", "message", "\nin function ",
                                      "f", "\nin file ", "g", " line ", "94", "\n\n"}));
}

TEST(ProgError, FaultsWhereverStandardErrorGoes) {
  struct {
    void (*spoil)();
    const char* catches;
  } const rows[] = {
      {[] { ::close(STDERR_FILENO); }, "a loop on a closed descriptor"},
      {[] { ::dup2(::open("/dev/full", O_WRONLY), STDERR_FILENO); }, "a loop on a full device"},
      {breakPipe, "SIGPIPE in place of the fault"},
  };
  for (const auto& row : rows) {
    EXPECT_TRUE(inChild([&row] {
                  row.spoil();
                  throw ProgError("lost", true);
                }).faulted)
        << row.catches;
  }
}

// A trap that an optimiser puts in place of a null write is SIGILL or SIGTRAP.
TEST(ProgError, FaultsAsACrashHandlerExpects) {
  const auto ended = inChild([] {
    struct sigaction action = {};
    action.sa_sigaction = judgeFault;
    action.sa_flags = SA_SIGINFO;
    for (const int signal : {SIGSEGV, SIGILL, SIGTRAP, SIGABRT, SIGBUS}) {
      ::sigaction(signal, &action, nullptr);
    }
    ProgError::CallDebugger();
  });
  EXPECT_EQ(ended.code, 7);
}

TEST(StructVector, TriesAgainWhenTheNewHandlerFreedMemory) {
  const auto ended = inChild([] {
    StructVector<int> vector(3, 42);
    std::set_new_handler(liftMemoryLimit);
    rlimit limit{};
    ::getrlimit(RLIMIT_AS, &limit);
    limit.rlim_cur = 4096;
    ::setrlimit(RLIMIT_AS, &limit);
    vector.reserve(std::size_t(1) << 26U);
    ::getrlimit(RLIMIT_AS, &limit);
    ::_exit(limit.rlim_cur == limit.rlim_max && vector[2] == 42 ? 7 : 8);
  });
  EXPECT_EQ(ended.code, 7) << ended.errors.toStdString();
}

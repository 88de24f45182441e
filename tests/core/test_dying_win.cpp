// Ends of the process as the operating system sees them.
#include "support/Support.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

using namespace Kyr;
using KyrTest::inChild;

namespace {

constexpr int standardError = 2;

void becomeStandardError(int descriptor) {
  ::_dup2(descriptor, standardError);
  ::_setmode(standardError, _O_BINARY);
}

void breakPipe() {
  std::array<int, 2> ends{};
  EXPECT_EQ(::_pipe(ends.data(), 4096, _O_BINARY), 0);
  ::_close(ends[0]);
  becomeStandardError(ends[1]);
}

/// Exit code 7 when the fault is what a crash handler calls a write to address zero.
LONG CALLBACK judge(EXCEPTION_POINTERS* fault) {
  const EXCEPTION_RECORD& record = *fault->ExceptionRecord;
  const bool nullWrite = record.ExceptionCode == DWORD(STATUS_ACCESS_VIOLATION) &&
                         record.ExceptionInformation[0] == 1 && record.ExceptionInformation[1] == 0;
  ::TerminateProcess(::GetCurrentProcess(), nullWrite ? 7 : 8);
  return EXCEPTION_EXECUTE_HANDLER;
}

/// The name of a pipe; the same in a child, which runs this test a second time.
QByteArray pipeName() {
  if (qEnvironmentVariableIsEmpty("KYR_TEST_PIPE")) {
    qputenv("KYR_TEST_PIPE",
            "\\\\.\\pipe\\kyr-test-" + QByteArray::number(qulonglong(::GetCurrentProcessId())));
  }
  return qgetenv("KYR_TEST_PIPE");
}

/// One message of a pipe, or nothing at its end.
std::string messageOf(HANDLE pipe) {
  std::array<char, 256> piece{};
  DWORD length = 0;
  ::ReadFile(pipe, piece.data(), DWORD(piece.size()), &length, nullptr);
  return {piece.data(), length};
}

}  // namespace

TEST(ProgError, WritesEachPieceAtOnce) {
  const QByteArray name = pipeName();
  const HANDLE pipe =
      ::CreateNamedPipeA(name.data(), PIPE_ACCESS_INBOUND,
                         PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE, 1, 4096, 4096, 0, nullptr);
  inChild([&name] {
    becomeStandardError(::_open(name.data(), _O_WRONLY | _O_BINARY));
    throw ProgError("f", "g", 94, "message");
  });
  for (const std::string expected : {"\nInternal program error: ", "message", "\nin function ", "f",
                                     "\nin file ", "g", " line ", "94", "\n\n", ""}) {
    EXPECT_EQ(messageOf(pipe), expected);
  }
  ::CloseHandle(pipe);
}

TEST(ProgError, FaultsAsACrashHandlerExpectsWhereverStandardErrorGoes) {
  struct {
    void (*prepare)();
    int code;
    const char* catches;
  } const rows[] = {
      {[] { ::SetUnhandledExceptionFilter(&judge); }, 7,
       "a trap of the optimiser in place of the null write"},
      {[] { ::_close(standardError); }, -1, "a loop on a closed descriptor"},
      {[] { becomeStandardError(::_open("NUL", _O_RDONLY)); }, -1, "a loop on what takes nothing"},
      {breakPipe, -1, "a loop on a pipe without a reader"},
  };
  for (const auto& row : rows) {
    const auto ended = inChild([&row] {
      row.prepare();
      throw ProgError("lost", true);
    });
    EXPECT_TRUE(ended.code == row.code && ended.faulted == (row.code < 0))
        << row.catches << ": code " << ended.code;
  }
}

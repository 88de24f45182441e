#include "support/Support.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace KyrTest {

namespace {

constexpr const wchar_t* orderName = L"KYR_TEST_CHILD";

/// What a parent tells its child through the environment: at which call of inChild to act, and
/// the handles that it has inherited for that moment.
struct Order {
  int call = -1;
  HANDLE output = nullptr;
  HANDLE errors = nullptr;
  HANDLE reached = nullptr;  ///< an event: the child has come to the call
};

QString textOf(const Order& order) {
  const auto number = [](HANDLE handle) {
    return QString::number(reinterpret_cast<std::uintptr_t>(handle));
  };
  return QString("%1 %2 %3 %4")
      .arg(order.call)
      .arg(number(order.output), number(order.errors), number(order.reached));
}

Order orderOf(const QString& text) {
  const auto handle = [&text](int field) {
    return reinterpret_cast<HANDLE>(
        static_cast<std::uintptr_t>(text.section(' ', field, field).toULongLong()));
  };
  return {text.section(' ', 0, 0).toInt(), handle(1), handle(2), handle(3)};
}

/// The order that this process was born with; taken out of the environment, so that the programs
/// that the action starts do not take it for theirs.
const Order& ownOrder() {
  static const Order order = [] {
    std::array<wchar_t, 200> text{};
    const DWORD length = ::GetEnvironmentVariableW(orderName, text.data(), DWORD(text.size()));
    ::SetEnvironmentVariableW(orderName, nullptr);
    return length > 0 ? orderOf(QString::fromWCharArray(text.data())) : Order();
  }();
  return order;
}

/// Counts the calls of inChild in the running test.
class Calls : public testing::EmptyTestEventListener {
 public:
  static int next() {
    static Calls* const calls = appended();
    return calls->_count++;
  }

 private:
  static Calls* appended() {
    auto* const calls = new Calls;
    testing::UnitTest::GetInstance()->listeners().Append(calls);
    return calls;
  }
  void OnTestStart(const testing::TestInfo& /*test*/) override { _count = 0; }
  int _count = 0;
};

// ---- in the child ---------------------------------------------------------------------------

/// Keeps a handle from processes that the action makes the system start: these live on, and if they
/// held the pipes, the parent would read for ever.
void keepFromOthers(HANDLE handle) {
  ::SetHandleInformation(handle, HANDLE_FLAG_INHERIT, 0);
}

// The stream becomes binary: tests compare what was written, not how the runtime ends its lines.
void redirect(int descriptor, HANDLE pipe) {
  const int opened =
      ::_open_osfhandle(reinterpret_cast<std::intptr_t>(pipe), _O_BINARY | _O_NOINHERIT);
  ::_dup2(opened, descriptor);
  ::_close(opened);
  ::_setmode(descriptor, _O_BINARY);
  keepFromOthers(reinterpret_cast<HANDLE>(::_get_osfhandle(descriptor)));
}

/// Ends the process at a fault. Otherwise the system would start a debugger or show a window, and
/// Wine would describe the fault on standard error, which the test compares.
LONG CALLBACK endAtOnce(EXCEPTION_POINTERS* fault) {
  ::TerminateProcess(::GetCurrentProcess(), fault->ExceptionRecord->ExceptionCode);
  return EXCEPTION_EXECUTE_HANDLER;
}

[[noreturn]] void runChild(const std::function<void()>& action, const Order& order) {
  std::cout.flush();
  std::fflush(nullptr);
  redirect(1, order.output);
  redirect(2, order.errors);
  // Wine hands the process's standard error, inherited or not, to the desktop that it starts for
  // the first window, and the desktop stays for as long as the parent, which reads to its end.
  ::SetStdHandle(STD_ERROR_HANDLE, nullptr);
  // This runtime buffers a stream that is no console, and a process that faults would lose the
  // rest.
  std::setvbuf(stderr, nullptr, _IONBF, 0);
  ::SetUnhandledExceptionFilter(&endAtOnce);
  ::SetEvent(order.reached);
  keepFromOthers(order.reached);
  action();
  std::cout.flush();
  std::fflush(nullptr);
  // ExitProcess() would let the library destroy its static objects.
  ::TerminateProcess(::GetCurrentProcess(), 0);
  std::abort();
}

// ---- in the parent --------------------------------------------------------------------------

/// A pipe of which the child inherits the writing end.
struct Pipe {
  explicit Pipe(SECURITY_ATTRIBUTES* inherited) {
    EXPECT_TRUE(::CreatePipe(&reading, &writing, inherited, 0));
    ::SetHandleInformation(reading, HANDLE_FLAG_INHERIT, 0);
  }
  QByteArray drain() const {
    QByteArray all;
    std::array<char, 4096> piece;
    DWORD count = 0;
    while (::ReadFile(reading, piece.data(), DWORD(piece.size()), &count, nullptr) && count > 0) {
      all.append(piece.data(), static_cast<int>(count));
    }
    ::CloseHandle(reading);
    return all;
  }
  HANDLE reading = nullptr;
  HANDLE writing = nullptr;
};

std::wstring ownProgram() {
  std::wstring path(32768, L'\0');
  path.resize(::GetModuleFileNameW(nullptr, path.data(), DWORD(path.size())));
  return path;
}

std::wstring commandLine() {
  const auto* const test = testing::UnitTest::GetInstance()->current_test_info();
  const std::string name = std::string(test->test_suite_name()) + "." + test->name();
  return L"\"" + ownProgram() + L"\" --gtest_also_run_disabled_tests --gtest_filter=" +
         std::wstring(name.begin(), name.end());
}

/// Starts this program again for the running test; what it prints before the call is dropped.
/// \return the process; null when it cannot be started
HANDLE startAgain(const Order& order, SECURITY_ATTRIBUTES* inherited) {
  STARTUPINFOW startup{};
  startup.cb = sizeof(startup);
  startup.dwFlags = STARTF_USESTDHANDLES;
  startup.hStdInput =
      ::CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, 0, inherited, OPEN_EXISTING, 0, nullptr);
  startup.hStdOutput = startup.hStdError = startup.hStdInput;
  PROCESS_INFORMATION process{};
  std::wstring command = commandLine();
  ::SetEnvironmentVariableW(orderName, textOf(order).toStdWString().c_str());
  const bool started = ::CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, 0, nullptr,
                                        nullptr, &startup, &process) != 0;
  ::SetEnvironmentVariableW(orderName, nullptr);
  ::CloseHandle(startup.hStdInput);
  ::CloseHandle(process.hThread);
  return started ? process.hProcess : nullptr;
}

Ended describe(HANDLE process) {
  DWORD code = 0;
  ::WaitForSingleObject(process, INFINITE);
  ::GetExitCodeProcess(process, &code);
  ::CloseHandle(process);
  Ended ended;
  ended.exited = code < STATUS_GUARD_PAGE_VIOLATION;  // exceptions have this code or a higher one
  ended.code = ended.exited ? static_cast<int>(code) : -1;
  ended.faulted = code == STATUS_ACCESS_VIOLATION;
  return ended;
}

Ended runAgain(int call) {
  SECURITY_ATTRIBUTES inherited{sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
  const Pipe output(&inherited);
  const Pipe errors(&inherited);
  const HANDLE reached = ::CreateEventW(&inherited, TRUE, FALSE, nullptr);
  const HANDLE process = startAgain({call, output.writing, errors.writing, reached}, &inherited);
  ::CloseHandle(output.writing);
  ::CloseHandle(errors.writing);
  QByteArray written;
  std::thread outputReader([&] { written = output.drain(); });
  const QByteArray reported = errors.drain();
  outputReader.join();
  Ended ended = describe(process);
  EXPECT_EQ(::WaitForSingleObject(reached, 0), WAIT_OBJECT_0)
      << "the child never came to call " << call << " of inChild in this test";
  ::CloseHandle(reached);
  ended.output = written;
  ended.errors = reported;
  return ended;
}

}  // namespace

Ended inChild(const std::function<void()>& action) {
  const int call = Calls::next();
  const Order& order = ownOrder();
  if (order.call == call) {
    runChild(action, order);
  }
  return order.call < 0 ? runAgain(call) : Ended();
}

}  // namespace KyrTest

// Crashes as Windows has them: dumps, the library that writes them, consoles, other runtimes.
#include "app/home.h"
#include "crash/death.h"

#include <set>

#include <windows.h>

#include <dbghelp.h>

// On this system an open file cannot be removed, so that the dump is locked already.
void KyrTest::lockDump(const QFile& dump) {
  EXPECT_TRUE(dump.isOpen());
}

using namespace KyrTest;

namespace {

/// A dump, read by its documented layout.
struct Dump {
  explicit Dump(const QString& path) : bytes(readFile(path)) {
    const auto header = at<MINIDUMP_HEADER>(0);
    EXPECT_TRUE(bytes.startsWith("MDMP"));
    for (DWORD i = 0; i < header.NumberOfStreams; ++i) {
      const auto entry =
          at<MINIDUMP_DIRECTORY>(header.StreamDirectoryRva + i * DWORD(sizeof(MINIDUMP_DIRECTORY)));
      EXPECT_LE(entry.Location.Rva + entry.Location.DataSize, DWORD(bytes.size()));
      streams[entry.StreamType] = entry.Location.Rva;
    }
  }

  template <class T>
  T at(DWORD offset) const {
    T value{};
    if (offset + sizeof value > DWORD(bytes.size())) {
      ADD_FAILURE() << "nothing at " << offset;
    } else {
      std::memcpy(&value, bytes.constData() + offset, sizeof value);
    }
    return value;
  }
  /// The entries of a stream that begins with their number.
  template <class T>
  std::vector<T> list(DWORD stream) const {
    std::vector<T> entries;
    const DWORD start = streams.at(stream);
    for (DWORD i = 0; i < at<DWORD>(start); ++i) {
      entries.push_back(at<T>(start + DWORD(sizeof(DWORD)) + i * DWORD(sizeof(T))));
    }
    return entries;
  }

  QByteArray bytes;
  std::map<DWORD, DWORD> streams;
};

/// The numbers in a report behind a word.
std::set<quint64> numbersBehind(const QString& report, const QString& word) {
  std::set<quint64> numbers;
  const QStringList parts = report.split(word);
  for (int i = 1; i < parts.size(); ++i) {
    const QString number = parts[i].section(QRegularExpression("[^0-9a-fx]"), 0, 0);
    numbers.insert(number.toULongLong(nullptr, 16));
  }
  return numbers;
}

// Each processor has one of the two names of a register.
template <class Context>
auto instructionOf(const Context& context) -> decltype(context.Eip) {
  return context.Eip;
}
template <class Context>
auto instructionOf(const Context& context) -> decltype(context.Rip) {
  return context.Rip;
}
template <class Context>
auto stackOf(const Context& context) -> decltype(context.Esp) {
  return context.Esp;
}
template <class Context>
auto stackOf(const Context& context) -> decltype(context.Rsp) {
  return context.Rsp;
}

TEST(CrashOnWindows, LeavesADumpThatDebuggersRead) {
  const TempDir folder;
  const Death death = die(folder, {"--kind", "null-write", "--in-thread", "--threads", "2"});
  ASSERT_EQ(death.dumps.size(), 1) << death.report.toStdString();
  const Dump dump(folder.file(death.dumps[0]));
  const quint64 crashing = *numbersBehind(death.report, "crashing thread ").begin();
  const quint64 address = *numbersBehind(death.report, "at address ").begin();

  std::set<quint64> expected = numbersBehind(death.report, "next thread: ");
  expected.insert(crashing);
  EXPECT_EQ(expected.size(), 4U);
  for (const auto& thread : dump.list<MINIDUMP_THREAD>(ThreadListStream)) {
    const auto context = dump.at<CONTEXT>(thread.ThreadContext.Rva);
    EXPECT_LT(stackOf(context) - thread.Stack.StartOfMemoryRange, thread.Stack.Memory.DataSize);
    expected.erase(thread.ThreadId);
  }
  EXPECT_TRUE(expected.empty()) << "threads of the report that are not in the dump";

  const auto fault = dump.at<MINIDUMP_EXCEPTION_STREAM>(dump.streams.at(ExceptionStream));
  EXPECT_EQ(fault.ThreadId, crashing);
  EXPECT_EQ(fault.ExceptionRecord.ExceptionCode, DWORD{EXCEPTION_ACCESS_VIOLATION});
  EXPECT_EQ(fault.ExceptionRecord.ExceptionInformation[0], 1U);  // a write
  EXPECT_EQ(instructionOf(dump.at<CONTEXT>(fault.ThreadContext.Rva)), address);
}

TEST(CrashOnWindows, SaysWhatFailsAndGoesOn) {
  const QString search = "error loading dbghelp.dll, trying systemwide search: ";
  const struct {
    QString library;  // where in the software's folder the system's library lies, too
    QString variable;
    QString shows;
    QString hides;
    const char* catches;
  } rows[] = {
      {"", "X=", search, "crashdump", "no search in the system"},
      {"bin/dbghelp.dll", "X=", "!Crash::divideByZero+", search, "the suite's own is not taken"},
      {"lib/dbghelp.dll", "X=", "!Crash::divideByZero+", search, "a second place not tried"},
      {"", "TMP=C:\\nowhere", "error creating crashdump file: ", "<unknown", "a missing folder"},
      {"", "TMP=C:\\" + QString(300, 'x'), "error getting crashdump filename: <unknown reason>\n",
       "error creating", "a path that is cut off"},
  };
  for (const auto& row : rows) {
    const TempDir folder;
    QDir(folder.path()).mkpath("bin");
    QDir(folder.path()).mkpath("lib");
    if (!row.library.isEmpty()) {
      QFile::copy("C:/windows/system32/dbghelp.dll", folder.file(row.library));
    }
    const Death death = die(folder, {"--kind", "divide"}, {"KYR=" + folder.path(), row.variable});
    EXPECT_TRUE(death.exited && death.code == 1) << row.catches;
    EXPECT_TRUE(death.report.contains(row.shows) && !death.report.contains(row.hides))
        << row.catches << '\n'
        << death.report.toStdString();
    EXPECT_TRUE(death.report.contains("\nbacktrace of the crashing thread 0x")) << row.catches;
    EXPECT_TRUE(death.report.contains("\n#0  0x")) << row.catches;
  }
}

TEST(CrashOnWindows, ReportsWhatAnotherRuntimeRefuses) {
  const Home home;
  const KyrTest::Ended ended = inChild([&] {
    const HMODULE runtime = ::LoadLibraryW(L"ucrtbase.dll");
    const auto convert = reinterpret_cast<long (*)(const char*, char**, int)>(
        reinterpret_cast<void*>(runtime ? ::GetProcAddress(runtime, "strtol") : nullptr));
    if (!convert) {
      return home.say("none");
    }
    home.start({});
    convert("1", nullptr, 1);  // there are no numbers to the base of 1
  });
  if (home.said() == "none") {
    GTEST_SKIP() << "this system has only one runtime";
  }
  EXPECT_TRUE(ended.exited && ended.code == 1) << ended.code;
  const QByteArray report = readFile(home.file("output"));
  EXPECT_TRUE(report.contains("caught exception: 0xc0000417\r\nat address 0x"))
      << report.toStdString();
}

/// Opens one end of the console, which is never closed: the process that asks ends soon.
HANDLE openConsole(const wchar_t* name) {
  return ::CreateFileW(name, GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                       nullptr, OPEN_EXISTING, 0, nullptr);
}

/// The title of a console, its height and all that it shows.
QString describe(HANDLE console) {
  CONSOLE_SCREEN_BUFFER_INFO buffer{};
  ::GetConsoleScreenBufferInfo(console, &buffer);
  std::array<wchar_t, 64> title{};
  ::GetConsoleTitleW(title.data(), DWORD(title.size()));
  std::vector<wchar_t> text(std::size_t(buffer.dwSize.X) * std::size_t(buffer.dwSize.Y));
  DWORD length = 0;
  ::ReadConsoleOutputCharacterW(console, text.data(), DWORD(text.size()), {0, 0}, &length);
  return QString("%1|%2|").arg(QString::fromWCharArray(title.data())).arg(buffer.dwSize.Y) +
         QString::fromWCharArray(text.data(), int(length));
}

void press(wchar_t key) {
  INPUT_RECORD record{};
  record.EventType = KEY_EVENT;
  record.Event.KeyEvent.bKeyDown = TRUE;
  record.Event.KeyEvent.wRepeatCount = 1;
  record.Event.KeyEvent.uChar.UnicodeChar = key;
  DWORD count = 0;
  ::WriteConsoleInputW(openConsole(L"CONIN$"), &record, 1, &count);
}

/// Waits until the crashed process asks for the space key in its console.
/// \return what the console is then
QString awaitQuestion(const PROCESS_INFORMATION& process) {
  ::FreeConsole();
  for (int i = 0; i < 600 && ::WaitForSingleObject(process.hProcess, 100) == WAIT_TIMEOUT; ++i) {
    if (::AttachConsole(process.dwProcessId)) {
      const QString console = describe(openConsole(L"CONOUT$"));
      if (console.contains("<press space to close this window>")) {
        return console;
      }
      ::FreeConsole();
    }
  }
  return {};
}

TEST(CrashOnWindows, KeepsItsConsoleUntilTheUserHasReadIt) {
  const Home home;
  inChild([&] {
    ::FreeConsole();
    CONSOLE_SCREEN_BUFFER_INFO buffer{};
    if (!::AllocConsole() || !::GetConsoleScreenBufferInfo(openConsole(L"CONOUT$"), &buffer)) {
      return home.say("none");
    }
    Kyr::OS::setEnv("KYR_CONSOLE", "yes");
    Kyr::OS::setEnv("KYR_CONFIG_DIR", home.path());
    // Streams that lead nowhere: Wine's runtime reopens none that was never open.
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE nothing = ::CreateFileW(L"NUL", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE,
                                         &inherited, OPEN_EXISTING, 0, nullptr);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = startup.hStdOutput = startup.hStdError = nothing;
    PROCESS_INFORMATION process{};
    std::wstring command = L"\"" KYR_CRASH "\" --kind divide";
    ::CreateProcessW(nullptr, command.data(), nullptr, nullptr, TRUE, DETACHED_PROCESS, nullptr,
                     nullptr, &startup, &process);
    const QString console = awaitQuestion(process);
    const bool asked = console.startsWith("ORV Console|1000|Viewer 6.2.0-6 ");
    press(L'x');
    const bool waited = ::WaitForSingleObject(process.hProcess, 500) == WAIT_TIMEOUT;
    press(L' ');
    const bool ended = ::WaitForSingleObject(process.hProcess, 30'000) == WAIT_OBJECT_0;
    DWORD code = 0;
    ::GetExitCodeProcess(process.hProcess, &code);
    ::TerminateProcess(process.hProcess, 2);
    home.say(QString("%1 %2 %3 %4").arg(asked).arg(waited).arg(ended).arg(code));
  });
  const std::string said = home.said();
  if (said == "none") {
    GTEST_SKIP() << "this desktop opens no consoles";
  }
  EXPECT_EQ(said, "1 1 1 1")
      << "the library's own console asked, waited for the right key, ended, exit code";
}

}  // namespace

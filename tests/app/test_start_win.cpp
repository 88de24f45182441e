// What a user of Windows finds after the start.
#include "app/home.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include <windows.h>

using namespace Kyr;
using KyrTest::Home;
using KyrTest::inChild;

namespace {

TEST(StartOnWindows, FindsTheFoldersOfTheUser) {
  const auto unixPath = [](const char* name) {
    return OS::convertSeparatorsToUnix(OS::getEnv(name));
  };
  const Home home;
  const auto folder = [](OS::SpecialFolder_t which) {
    return OS::convertSeparatorsToUnix(OS::getSpecialFolder(which));
  };
  EXPECT_EQ(folder(OS::FolderRoamingData), unixPath("APPDATA"));
  EXPECT_EQ(folder(OS::FolderLocalData), unixPath("LOCALAPPDATA"));
  EXPECT_EQ(folder(OS::FolderCommonData), unixPath("ALLUSERSPROFILE"));
}

/// Sets a value of the suite's key for the user alone, and takes it back.
class Registered {
 public:
  Registered(const wchar_t* name, const std::wstring& text) : _name(name) {
    const auto size = static_cast<DWORD>(text.size() * sizeof(wchar_t));
    EXPECT_EQ(::RegCreateKeyExW(HKEY_CURRENT_USER, L"Software\\ORV", 0, nullptr, 0, KEY_ALL_ACCESS,
                                nullptr, &_key, nullptr),
              ERROR_SUCCESS);
    ::RegSetValueExW(_key, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.data()), size);
  }
  Registered(const Registered&) = delete;
  Registered& operator=(const Registered&) = delete;
  ~Registered() {
    ::RegDeleteValueW(_key, _name);
    ::RegCloseKey(_key);
  }

 private:
  const wchar_t* _name;
  HKEY _key = nullptr;
};

TEST(StartOnWindows, ReadsTheRegistry) {
  const Registered value(L"KyrTest", L"1031");  // without the zero at its end
  EXPECT_EQ(OS::getRegistryValue(OS::RegistryUser, "KyrTest"), "1031");
  EXPECT_EQ(OS::getRegistryValue(OS::RegistryUser, "KyrTestMissing"), "");
  EXPECT_EQ(OS::getRegistryValue(OS::RegistryMachine, "KyrTest"), "");
}

QString describeConsole() {
  const HANDLE console = ::CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_WRITE,
                                       nullptr, OPEN_EXISTING, 0, nullptr);
  std::array<wchar_t, 64> title{};
  CONSOLE_SCREEN_BUFFER_INFO buffer{};
  ::GetConsoleTitleW(title.data(), DWORD(title.size()));
  ::GetConsoleScreenBufferInfo(console, &buffer);
  std::array<wchar_t, 6> start{};
  DWORD length = 0;
  ::ReadConsoleOutputCharacterW(console, start.data(), DWORD(start.size()), {0, 0}, &length);
  return QString("%1|%2|%3")
      .arg(QString::fromWCharArray(title.data()))
      .arg(buffer.dwSize.Y)
      .arg(QString::fromWCharArray(start.data(), int(length)));
}

TEST(StartOnWindows, OpensAConsole) {
  const Home home;
  inChild([&] {
    ::FreeConsole();
    home.start({{"KYR_CONSOLE", "yes"}});
    const bool isMissing = ::AllocConsole() || ::GetLastError() != ERROR_ACCESS_DENIED;
    home.say(isMissing ? QString("none") : describeConsole());
  });
  const std::string console = home.said();
  if (console == "none") {
    GTEST_SKIP() << "this desktop has no consoles";
  }
  if (console == "ORV Console|0|") {
    GTEST_SKIP() << "a console opened with its title; it has no screen that can be asked";
  }
  EXPECT_EQ(console, "ORV Console|1000|Motion");
}

int messages = 0;

LRESULT CALLBACK countMessages(HWND window, UINT message, WPARAM first, LPARAM second) {
  messages += message == 1024 && first == 0 && second == 0 ? 1 : 0;
  return ::DefWindowProcW(window, message, first, second);
}

TEST(StartOnWindows, TellsTheLauncherOnce) {
  const Home home;
  const struct {
    const char* number;
    const char* expected;
    const char* catches;
  } rows[] = {
      {"5", "1 0 1", "not told; told twice"},
      {"6", "0 0 0", "nobody there"},
      {"-5", "0 0 0", "a negative number"},
  };
  for (const auto& row : rows) {
    inChild([&] {
      WNDCLASSW launcher{};
      launcher.lpfnWndProc = &countMessages;
      launcher.lpszClassName = L"QWidget";
      ::RegisterClassW(&launcher);
      ::CreateWindowW(L"QWidget", L"start_app-5", 0, 0, 0, 1, 1, nullptr, nullptr, nullptr,
                      nullptr);
      home.start({}, {"app", "-start-app-socket", row.number});
      const bool first = KyrInit::signalMainWindowStarted();
      const bool second = KyrInit::signalMainWindowStarted();
      home.say(QString("%1 %2 %3").arg(first).arg(second).arg(messages));
    });
    const std::string told = home.said();
    if (told == "none") {
      GTEST_SKIP() << "this desktop has no windows";
    }
    EXPECT_EQ(told, row.expected) << row.catches;
  }
}

}  // namespace

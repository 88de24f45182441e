// What a user of Windows finds after the start.
#include "app/home.h"
#include "app/registry.h"

#include <windows.h>

using namespace Kyr;
using namespace KyrTest;

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

TEST(StartOnWindows, ReadsTheProfileDirectoryFromTheMachinesRegistry) {
  const Home home;
  inChild([&] {
    KyrTest::registerValue(OS::RegistryMachine, L"ProfileDirectory", L"D:\\Pr\u00fcfung");
    home.start({{"KYR_PROFILE_DIR", "E:/else"}});
    home.say(KyrInit::getProfileDirectory(KyrInit::ProfileOfVersion) + " " +
             KyrInit::getProfileDirectory(KyrInit::ProfileConfigured));
  });
  EXPECT_EQ(home.said(), "D:/Pr\xc3\xbc\x66ung/v6.2.0 D:/Pr\xc3\xbc\x66ung");
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

// What the user's registry sets, of which the tests see one of their own, and the desktop.
#include "support/Support.h"

#include <windows.h>

using Kyr::OS;

namespace {

/// An empty registry of the user for this process, removed at the end.
class OwnRegistry {
 public:
  OwnRegistry() {
    ::RegCreateKeyW(HKEY_CURRENT_USER, L"Software\\KyrTest", &_key);
    ::RegOverridePredefKey(HKEY_CURRENT_USER, _key);
    ::RegCreateKeyW(HKEY_CURRENT_USER,
                    L"Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings", &_settings);
  }
  ~OwnRegistry() {
    ::RegCloseKey(_settings);
    ::RegOverridePredefKey(HKEY_CURRENT_USER, nullptr);
    ::RegCloseKey(_key);
    ::RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\KyrTest");
  }
  OwnRegistry(const OwnRegistry&) = delete;
  OwnRegistry& operator=(const OwnRegistry&) = delete;

  void set(const wchar_t* name, const std::wstring& text) const {
    ::RegSetValueExW(_settings, name, 0, REG_SZ, reinterpret_cast<const BYTE*>(text.c_str()),
                     DWORD((text.size() + 1) * sizeof(wchar_t)));
  }
  void set(const wchar_t* name, DWORD number) const {
    ::RegSetValueExW(_settings, name, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&number),
                     sizeof number);
  }

 private:
  HKEY _key = nullptr;
  HKEY _settings = nullptr;
};

TEST(OsProxyWin, IsReadFromTheRegistry) {
  const OwnRegistry registry;
  const KyrTest::ScopedEnvironment environment("http_proxy", "e:1");
  registry.set(L"ProxyServer", L"http=p:1;https = s:2");
  registry.set(L"ProxyOverride", L"*.inside.net; 10.*;<local>");
  EXPECT_EQ(OS::getProxySettings().http, "e:1") << "what is switched off counts";
  registry.set(L"ProxyEnable", DWORD{1});
  registry.set(L"AutoConfigURL", L"http://a/p.pac");
  const OS::ProxySettings settings = OS::getProxySettings();
  EXPECT_EQ(settings.script, "http://a/p.pac");
  EXPECT_EQ(OS::getProxyFor("http://a.b/", settings), "p:1");
  EXPECT_EQ(OS::getProxyFor("https://a.b/", settings), "s:2");
  for (const char* host : {"a.inside.net", "10.0.0.1", "printer"}) {
    EXPECT_EQ(OS::getProxyFor(QString("http://%1/").arg(host), settings), "") << host;
  }
  registry.set(L"ProxyServer", L"one:3");
  EXPECT_EQ(OS::getProxySettings().https, "one:3");
}

TEST(OsFileWin, StaysWhenItsCopyFails) {
  const KyrTest::TempDir dir;
  const QString source = dir.write("source", "x");
  const QString target = dir.write("target", "kept");
  const HANDLE held = ::CreateFileW(source.toStdWString().c_str(), GENERIC_READ, 0, nullptr,
                                    OPEN_EXISTING, 0, nullptr);
  EXPECT_THROW(OS::copy(source, target), Kyr::Exception);
  EXPECT_THROW(OS::copy(source, dir.file("new")), Kyr::Exception);
  ::CloseHandle(held);
  QFile(target).setPermissions(QFile::ReadOwner);
  KyrTest::failure([&] { OS::copy(target, target, OS::ReplaceExisting); });  // Wine lets it happen
  EXPECT_EQ(OS::listDirectory(dir.path()).join(' '), "source target") << "a copy is left";
  EXPECT_EQ(KyrTest::readFile(target), "kept");
  EXPECT_TRUE(OS::unlink(target)) << "other systems can";
}

TEST(OpenOnDesktopWin, StartsWhatIsSetForTheDocument) {
  const KyrTest::TempDir dir;
  const QString script = dir.write("a b.bat", "@mkdir \"%~dp0done\"\r\n");
  const HANDLE change = ::FindFirstChangeNotificationW(dir.path().toStdWString().c_str(), FALSE,
                                                       FILE_NOTIFY_CHANGE_DIR_NAME);
  OS::openOnDesktop(script);
  EXPECT_EQ(::WaitForSingleObject(change, 30000), WAIT_OBJECT_0);
  ::FindCloseChangeNotification(change);
  EXPECT_TRUE(OS::getStatus(dir.file("done")).isDirectory);
  EXPECT_THROW(OS::openOnDesktop(dir.write("a.kyr-unknown", "x")), Kyr::Exception);
}

}  // namespace

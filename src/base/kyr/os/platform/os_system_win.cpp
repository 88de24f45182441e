#include <kyr/os/KyrOS.h>
#include <kyr/os/os_environment_p.h>

#include <array>
#include <cstdlib>
#include <cwchar>
#include <string>

#include <shlobj.h>
#include <windows.h>

namespace Kyr {

namespace {

constexpr DWORD longestPath = 520;

std::wstring wide(const char* name) {
  return QString::fromLatin1(name).toStdWString();
}

int numberOf(OS::SpecialFolder_t folder) {
  switch (folder) {
    case OS::FolderRoamingData:
      return CSIDL_APPDATA;
    case OS::FolderLocalData:
      return CSIDL_LOCAL_APPDATA;
    case OS::FolderCommonData:
      return CSIDL_COMMON_APPDATA;
  }
  return -1;
}

/// Reads the text of a value; the system need not have ended it with a zero.
QString readText(HKEY key, const std::wstring& name) {
  DWORD type = 0;
  DWORD bytes = 0;
  if (::RegQueryValueExW(key, name.c_str(), nullptr, &type, nullptr, &bytes) != ERROR_SUCCESS ||
      (type != REG_SZ && type != REG_EXPAND_SZ)) {
    return {};
  }
  std::wstring text(bytes / sizeof(wchar_t) + 1, L'\0');
  bytes = static_cast<DWORD>((text.size() - 1) * sizeof(wchar_t));
  const LSTATUS result = ::RegQueryValueExW(key, name.c_str(), nullptr, &type,
                                            reinterpret_cast<BYTE*>(text.data()), &bytes);
  return result == ERROR_SUCCESS ? QString::fromWCharArray(text.c_str()) : QString();
}

QString readText(HKEY root, const wchar_t* path, const std::wstring& name) {
  HKEY key = nullptr;
  if (::RegOpenKeyExW(root, path, 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) {
    return {};
  }
  const QString text = readText(key, name);
  ::RegCloseKey(key);
  return text;
}

/// The true version: others answer with the one that the program says it is made for.
OSVERSIONINFOEXW systemVersion() {
  OSVERSIONINFOEXW version{};
  version.dwOSVersionInfoSize = sizeof version;
  using Read = LONG(WINAPI*)(OSVERSIONINFOEXW*);
  const FARPROC found = ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "RtlGetVersion");
  const auto read = reinterpret_cast<Read>(reinterpret_cast<void*>(found));
  if (read) {
    read(&version);
  }
  return version;
}

}  // namespace

const char* OS::nullDevice() noexcept {
  return "NUL";
}

bool OS::getTempDirectory(wchar_t* buffer, unsigned size) noexcept {
  const DWORD length = size > 0 ? ::GetTempPathW(size, buffer) : 0;
  const bool fits = length > 0 && length < size;
  if (!fits && size > 0) {
    buffer[0] = L'\0';
  }
  return fits;
}

QString OS::getSpecialFolder(SpecialFolder_t folder) {
  std::array<wchar_t, MAX_PATH + 1> path{};
  const bool known = ::SHGetSpecialFolderPathW(nullptr, path.data(), numberOf(folder), FALSE) != 0;
  return known ? QString::fromWCharArray(path.data()) : QString();
}

QString OS::getExecutable() {
  std::array<wchar_t, longestPath + 1> path{};
  const DWORD length = ::GetModuleFileNameW(nullptr, path.data(), DWORD(path.size()));
  return length <= longestPath ? QString::fromWCharArray(path.data()) : QString();
}

QString OS::getCurrentDirectory() {
  std::array<wchar_t, longestPath + 1> path{};
  const DWORD length = ::GetCurrentDirectoryW(DWORD(path.size()), path.data());
  return length <= longestPath ? QString::fromWCharArray(path.data()) : QString();
}

QString OS::getRegistryValue(RegistryScope_t scope, const QString& name) {
  const HKEY root = scope == RegistryMachine ? HKEY_LOCAL_MACHINE : HKEY_CURRENT_USER;
  return readText(root, L"Software\\ORV", name.toStdWString());
}

QString OS::getEnv(const char* name) {
  const std::wstring wideName = wide(name);
  DWORD needed = ::GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
  if (needed == 0) {
    return {};
  }
  std::wstring value;
  while (needed > value.size()) {  // the value may have grown since its size was asked
    value.resize(needed);
    needed = ::GetEnvironmentVariableW(wideName.c_str(), value.data(), DWORD(value.size()));
  }
  value.resize(needed);
  return value.empty() ? QString("") : QString::fromStdWString(value);
}

// Sets the C runtime's copy of the environment as well, which takes an empty value for none.
bool Platform::setVariable(const char* name, const QString& value) {
  const std::wstring wideName = wide(name);
  const std::wstring wideValue = value.toStdWString();
  return _wputenv((wideName + L"=" + wideValue).c_str()) == 0 &&
         ::SetEnvironmentVariableW(wideName.c_str(), wideValue.c_str()) != 0;
}

bool Platform::unsetVariable(const char* name) {
  return _wputenv((wide(name) + L"=").c_str()) == 0;
}

QMap<QString, QString> Platform::readEnvironment() {
  QMap<QString, QString> all;
  wchar_t* const block = ::GetEnvironmentStringsW();
  for (const wchar_t* entry = block; entry && *entry; entry += std::wcslen(entry) + 1) {
    const QString text = QString::fromWCharArray(entry);
    const int end = text.indexOf('=');
    if (end > 0) {  // the system keeps the directory of each drive under a name without a name
      all.insert(text.left(end), text.mid(end + 1));
    }
  }
  ::FreeEnvironmentStringsW(block);
  return all;
}

QString OS::getSystemName() {
  const OSVERSIONINFOEXW version = systemVersion();
  const QString name =
      getWindowsName(version.dwMajorVersion, version.dwMinorVersion, version.dwBuildNumber,
                     version.wProductType != VER_NT_WORKSTATION);
  const QString pack = QString::fromWCharArray(version.szCSDVersion);
  return pack.isEmpty() ? name : name + ' ' + pack;
}

QString OS::getSystemVersion() {
  const OSVERSIONINFOEXW version = systemVersion();
  return QString("%1.%2.%3")
      .arg(version.dwMajorVersion)
      .arg(version.dwMinorVersion)
      .arg(version.dwBuildNumber);
}

QString OS::getProcessorName() {
  return readText(HKEY_LOCAL_MACHINE, L"HARDWARE\\DESCRIPTION\\System\\CentralProcessor\\0",
                  L"ProcessorNameString")
      .simplified();
}

unsigned OS::getPID() noexcept {
  return static_cast<unsigned>(::GetCurrentProcessId());
}

}  // namespace Kyr

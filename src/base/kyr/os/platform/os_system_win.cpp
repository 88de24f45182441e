#include <kyr/os/os_system_p.h>

#include <kyr/os/os_file_p.h>

#include <array>
#include <cstdlib>
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

}  // namespace

bool Platform::readStatus(const QString& name, OS::FileStatus& status) {
  WIN32_FILE_ATTRIBUTE_DATA found{};
  if (!::GetFileAttributesExW(nativePath(name).c_str(), GetFileExInfoStandard, &found)) {
    return false;
  }
  status.isDirectory = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const std::int64_t size = std::int64_t(found.nFileSizeHigh) << 32 | found.nFileSizeLow;
  status.size = status.isDirectory ? 0 : size;
  return true;
}

// The user's folders keep others out of what is made in them.
bool Platform::makeDirectory(const QString& name, bool /*ownerOnly*/) {
  return ::CreateDirectoryW(nativePath(name).c_str(), nullptr) != 0;
}

bool Platform::readEntries(const QString& name, QStringList& entries) {
  WIN32_FIND_DATAW found{};
  const HANDLE search = ::FindFirstFileW(nativePath(name + "/*").c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) {
    return false;
  }
  do {
    entries.append(QString::fromWCharArray(found.cFileName));
  } while (::FindNextFileW(search, &found));
  const bool complete = ::GetLastError() == ERROR_NO_MORE_FILES;
  ::FindClose(search);
  return complete;
}

bool Platform::copyFile(const QString& from, const QString& to) {
  return ::CopyFileW(nativePath(from).c_str(), nativePath(to).c_str(), TRUE) != 0;
}

bool Platform::removeFile(const QString& name) {
  return ::DeleteFileW(nativePath(name).c_str()) != 0;
}

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
  HKEY key = nullptr;
  if (::RegOpenKeyExW(root, L"Software\\ORV", 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS) {
    return {};
  }
  const QString text = readText(key, name.toStdWString());
  ::RegCloseKey(key);
  return text;
}

QString OS::getEnv(const char* name) {
  const std::wstring wideName = wide(name);
  const DWORD capacity = ::GetEnvironmentVariableW(wideName.c_str(), nullptr, 0);
  if (capacity == 0) {
    return {};
  }
  std::wstring value(capacity, L'\0');
  value.resize(::GetEnvironmentVariableW(wideName.c_str(), value.data(), capacity));
  return value.empty() ? QString("") : QString::fromStdWString(value);
}

// The C runtime has a copy of the environment; it takes an empty value for none.
bool OS::setEnv(const char* name, const QString& value) {
  const std::wstring wideName = wide(name);
  const std::wstring wideValue = value.toStdWString();
  return _wputenv((wideName + L"=" + wideValue).c_str()) == 0 &&
         ::SetEnvironmentVariableW(wideName.c_str(), wideValue.c_str()) != 0;
}

bool OS::unsetEnv(const char* name) {
  return _wputenv((wide(name) + L"=").c_str()) == 0;
}

unsigned OS::getPid() noexcept {
  return static_cast<unsigned>(::GetCurrentProcessId());
}

}  // namespace Kyr

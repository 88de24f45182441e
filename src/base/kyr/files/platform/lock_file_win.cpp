#include <kyr/files/lock_file_p.h>

#include <kyr/os/os_file_p.h>

#include <string>

#include <windows.h>

namespace Kyr {

namespace {

/// The same for all spellings of a directory's name; empty when there is none.
std::wstring nameOfGuard(const QString& directory) {
  BY_HANDLE_FILE_INFORMATION found{};
  const HANDLE handle = ::CreateFileW(Platform::nativePath(directory).c_str(), 0,
                                      FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                      nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    return {};
  }
  const bool known = ::GetFileInformationByHandle(handle, &found) != 0;
  ::CloseHandle(handle);
  return known ? QString("Global\\kyr-lock-%1-%2-%3")
                     .arg(found.dwVolumeSerialNumber)
                     .arg(found.nFileIndexHigh)
                     .arg(found.nFileIndexLow)
                     .toStdWString()
               : std::wstring();
}

}  // namespace

Platform::DirectoryGuard::DirectoryGuard(const QString& directory) {
  constexpr DWORD longestWait = 5000;  // in milliseconds
  const std::wstring name = nameOfGuard(directory);
  const HANDLE mutex = name.empty() ? nullptr : ::CreateMutexW(nullptr, FALSE, name.c_str());
  if (!mutex) {
    return;
  }
  const DWORD result = ::WaitForSingleObject(mutex, longestWait);
  if (result == WAIT_OBJECT_0 || result == WAIT_ABANDONED) {
    _handle = reinterpret_cast<std::intptr_t>(mutex);
  } else {
    ::CloseHandle(mutex);
  }
}

Platform::DirectoryGuard::~DirectoryGuard() {
  if (isHeld()) {
    const auto mutex = reinterpret_cast<HANDLE>(_handle);
    ::ReleaseMutex(mutex);
    ::CloseHandle(mutex);
  }
}

}  // namespace Kyr

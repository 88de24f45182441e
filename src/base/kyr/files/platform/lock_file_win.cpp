#include <kyr/files/lock_file_p.h>

#include <kyr/os/os_file_p.h>

#include <limits>
#include <string>

#include <windows.h>

namespace Kyr {

namespace {

/// A process's handle that closes itself; null when there is no such process or it is another
/// user's.
class Process {
 public:
  explicit Process(std::int64_t pid)
      : _handle(::OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION | SYNCHRONIZE, FALSE,
                              static_cast<DWORD>(pid))) {}
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;
  ~Process() {
    if (_handle) {
      ::CloseHandle(_handle);
    }
  }
  HANDLE handle() const { return _handle; }

 private:
  HANDLE _handle;
};

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

bool Platform::processExists(std::int64_t pid) {
  if (pid <= 0 || pid > std::numeric_limits<DWORD>::max()) {
    return false;
  }
  const Process process(pid);
  return process.handle() ? ::WaitForSingleObject(process.handle(), 0) == WAIT_TIMEOUT
                          : ::GetLastError() == ERROR_ACCESS_DENIED;
}

QByteArray Platform::processStart(std::int64_t pid) {
  const Process process(pid);
  FILETIME start{};
  FILETIME unused{};
  if (!process.handle() ||
      !::GetProcessTimes(process.handle(), &start, &unused, &unused, &unused)) {
    return {};
  }
  return QByteArray::number(quint64(start.dwHighDateTime) << 32 | start.dwLowDateTime);
}

bool Platform::renameToFree(const QString& from, const QString& to) {
  return ::MoveFileExW(nativePath(from).c_str(), nativePath(to).c_str(), 0) != 0;
}

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

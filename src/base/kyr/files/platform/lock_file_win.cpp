#include <kyr/files/lock_file_p.h>

#include <kyr/os/os_file_p.h>

#include <algorithm>
#include <array>
#include <string>

#include <windows.h>

namespace Kyr {

namespace {

HANDLE handleOf(std::intptr_t handle) {
  return reinterpret_cast<HANDLE>(handle);
}

/// Closes a file at the end.
struct Closer {
  HANDLE file;
  ~Closer() { ::CloseHandle(file); }
};

using Start = std::array<char, 1024>;

/// \return the number of bytes; negative when the file cannot be read
int readStart(HANDLE file, Start& start) noexcept {
  DWORD count = 0;
  OVERLAPPED fromStart{};
  const bool read = ::ReadFile(file, start.data(), DWORD(start.size()), &count, &fromStart) != 0 ||
                    ::GetLastError() == ERROR_HANDLE_EOF;
  return read ? int(count) : -1;
}

/// The byte of a file that its owner keeps locked. It is far behind the text, as the system keeps
/// others from reading what is locked.
OVERLAPPED keptByte() {
  OVERLAPPED place{};
  place.Offset = 1U << 30U;
  return place;
}

LockFile::Finding_t findingFor(DWORD error) {
  switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_NAME:
    case ERROR_FILENAME_EXCED_RANGE:
      return LockFile::Missing;
    case ERROR_ACCESS_DENIED:
      return LockFile::Refused;
    default:
      return LockFile::Unlooked;
  }
}

/// Asks by taking a lock that many processes may have at once, but only while nobody has one for
/// itself.
LockFile::Keeping_t askKeeping(HANDLE file) {
  OVERLAPPED place = keptByte();
  if (::LockFileEx(file, LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0, &place)) {
    ::UnlockFileEx(file, 0, 1, 0, &place);
    return LockFile::Free;
  }
  const DWORD error = ::GetLastError();
  return error == ERROR_LOCK_VIOLATION || error == ERROR_IO_PENDING ? LockFile::Kept
                                                                    : LockFile::Untold;
}

/// Opens whatever there is, only to ask about it.
HANDLE openToAsk(const std::filesystem::path& name) noexcept {
  return ::CreateFileW(name.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                       nullptr, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

/// Whether two files of one volume are the same. The volume's number is not compared: a new file is
/// looked for only in its own directory, and not every system tells that number for every handle.
bool isSameFile(const BY_HANDLE_FILE_INFORMATION& one, const BY_HANDLE_FILE_INFORMATION& other) {
  return one.nFileIndexHigh == other.nFileIndexHigh && one.nFileIndexLow == other.nFileIndexLow;
}

/// The name of a directory's guard, the same for all spellings of the directory; empty when there
/// is no such directory.
std::wstring nameOfGuard(const QString& directory) {
  BY_HANDLE_FILE_INFORMATION found{};
  const HANDLE handle = openToAsk(Platform::nativePath(directory));
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

// Whoever reads keeps the file from being removed meanwhile: a file that is removed while somebody
// has it open would hold its name a little longer.
LockFile::Finding_t LockFile::look(const QString& name, Mark& mark) {
  const std::wstring path = Platform::nativePath(name).native();
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return findingFor(::GetLastError());
  }
  if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
    return NoPlain;
  }
  const HANDLE file = ::CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return findingFor(::GetLastError());
  }
  const Closer closer{file};
  if (::GetFileType(file) != FILE_TYPE_DISK) {
    return NoPlain;
  }
  Start start;
  const int count = readStart(file, start);
  mark = {QByteArray(start.data(), std::max(0, count)), askKeeping(file)};
  return count < 0 ? Unlooked : Read;
}

// The file is opened without the right to remove it, so that readers need not permit that; others
// may remove and rename it.
bool Platform::KeptFile::create(const std::filesystem::path& name) noexcept {
  close();
  const HANDLE file = ::CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return false;
  }
  OVERLAPPED place = keptByte();
  constexpr DWORD atOnceForOne = LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY;
  _handle = reinterpret_cast<std::intptr_t>(file);
  _isKept = ::LockFileEx(file, atOnceForOne, 0, 1, 0, &place) != 0;
  return true;
}

bool Platform::KeptFile::write(const QByteArray& text) noexcept {
  return writeAll(_handle, text.constData(), std::size_t(text.size()));
}

bool Platform::KeptFile::holdsOther(const QByteArray& text) const noexcept {
  Start start;
  const int count = readStart(handleOf(_handle), start);
  return count >= 0 && !std::equal(text.begin(), text.end(), start.begin(), start.begin() + count);
}

bool Platform::KeptFile::isAt(const std::filesystem::path& name) const noexcept {
  BY_HANDLE_FILE_INFORMATION own{};
  BY_HANDLE_FILE_INFORMATION there{};
  const HANDLE file = openToAsk(name);
  if (file == INVALID_HANDLE_VALUE) {
    return false;
  }
  const Closer closer{file};
  return ::GetFileInformationByHandle(handleOf(_handle), &own) &&
         ::GetFileInformationByHandle(file, &there) && isSameFile(own, there);
}

void Platform::KeptFile::close() noexcept {
  if (_handle != none) {
    ::CloseHandle(handleOf(_handle));
    _handle = none;
  }
  _isKept = false;
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

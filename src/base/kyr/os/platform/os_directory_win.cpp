#include <kyr/os/os_directory_p.h>
#include <kyr/os/os_directory_win_p.h>
#include <kyr/os/os_file_p.h>
#include <kyr/os/os_reason_p.h>

#include <array>
#include <cerrno>
#include <cwchar>
#include <string>

#include <windows.h>

namespace Kyr {

namespace {

using Platform::nativePath;
using Platform::Search;

struct Translation {
  DWORD native;
  int known;
};

constexpr Translation translations[] = {
    {ERROR_FILE_NOT_FOUND, ENOENT},
    {ERROR_PATH_NOT_FOUND, ENOENT},
    {ERROR_INVALID_DRIVE, ENOENT},
    {ERROR_BAD_NETPATH, ENOENT},
    {ERROR_BAD_NET_NAME, ENOENT},
    {ERROR_NO_MORE_FILES, ENOENT},
    {ERROR_ACCESS_DENIED, EACCES},
    {ERROR_PRIVILEGE_NOT_HELD, EPERM},
    {ERROR_FILE_EXISTS, EEXIST},
    {ERROR_ALREADY_EXISTS, EEXIST},
    {ERROR_DIRECTORY, ENOTDIR},
    {ERROR_DIR_NOT_EMPTY, ENOTEMPTY},
    {ERROR_SHARING_VIOLATION, EBUSY},
    {ERROR_LOCK_VIOLATION, EBUSY},
    {ERROR_USER_MAPPED_FILE, EBUSY},
    {ERROR_DELETE_PENDING, EBUSY},
    {ERROR_DISK_FULL, ENOSPC},
    {ERROR_HANDLE_DISK_FULL, ENOSPC},
    {ERROR_WRITE_PROTECT, EROFS},
    {ERROR_FILENAME_EXCED_RANGE, ENAMETOOLONG},
    {ERROR_BUFFER_OVERFLOW, ENAMETOOLONG},
    {ERROR_INVALID_NAME, EINVAL},
    {ERROR_BAD_PATHNAME, EINVAL},
    {ERROR_CANT_RESOLVE_FILENAME, ELOOP},
    {ERROR_NOT_SAME_DEVICE, EXDEV},
    {ERROR_NOT_READY, ENXIO},
    {ERROR_CRC, EIO},
    {ERROR_WRITE_FAULT, EIO},
    {ERROR_IO_DEVICE, EIO},
    {ERROR_NETNAME_DELETED, EIO},
    {ERROR_TOO_MANY_OPEN_FILES, EMFILE},
    {ERROR_NOT_ENOUGH_MEMORY, ENOMEM},
    {ERROR_NOT_SUPPORTED, ENOSYS},
    {ERROR_BAD_EXE_FORMAT, ENOEXEC},
};

/// Milliseconds since 1970 of a count of 100 nanoseconds since 1601; rounded down, also before
/// 1970.
std::int64_t milliseconds(const FILETIME& time) {
  constexpr std::int64_t unitsPerMillisecond = 10000;
  constexpr std::int64_t millisecondsTo1970 = 11644473600000;
  const std::int64_t units = std::int64_t(time.dwHighDateTime) << 32 | time.dwLowDateTime;
  return units / unitsPerMillisecond - millisecondsTo1970;
}

DWORD attributesOf(const QString& name) {
  return ::GetFileAttributesW(nativePath(name).c_str());
}

bool has(DWORD attributes, DWORD wanted) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & wanted) == wanted;
}

/// Opens what the name leads to, only to ask about it.
HANDLE openToAsk(const QString& name) {
  return ::CreateFileW(nativePath(name).c_str(), FILE_READ_ATTRIBUTES,
                       FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                       OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
}

/// Replaces what is told about a link by what it leads to.
/// \return false when it leads nowhere
bool follow(const QString& name, WIN32_FILE_ATTRIBUTE_DATA& found) {
  BY_HANDLE_FILE_INFORMATION target{};
  const HANDLE handle = openToAsk(name);
  if (handle == INVALID_HANDLE_VALUE) {
    return false;
  }
  const bool known = ::GetFileInformationByHandle(handle, &target) != 0;
  ::CloseHandle(handle);
  found = {target.dwFileAttributes, target.ftCreationTime, target.ftLastAccessTime,
           target.ftLastWriteTime,  target.nFileSizeHigh,  target.nFileSizeLow};
  return known;
}

/// Whether a name means a device: "NUL" and its kin do so in every directory.
bool isDevice(const QString& name) {
  std::array<wchar_t, 16> path{};
  ::GetFullPathNameW(nativePath(name).c_str(), DWORD(path.size()), path.data(), nullptr);
  return std::wcsncmp(path.data(), L"\\\\.\\", 4) == 0;
}

bool isLink(const QString& name, DWORD attributes) {
  if (!has(attributes, FILE_ATTRIBUTE_REPARSE_POINT)) {
    return false;
  }
  WIN32_FIND_DATAW found{};
  const Search search(::FindFirstFileW(nativePath(name).c_str(), &found));
  return search.isOpen() && (found.dwReserved0 == IO_REPARSE_TAG_SYMLINK ||
                             found.dwReserved0 == IO_REPARSE_TAG_MOUNT_POINT);
}

}  // namespace

Platform::SystemError Platform::lastError() {
  const DWORD native = ::GetLastError();
  for (const Translation& translation : translations) {
    if (translation.native == native) {
      return {translation.known, static_cast<unsigned>(native)};
    }
  }
  return {0, static_cast<unsigned>(native)};
}

void Platform::setLastError(const SystemError& error) {
  ::SetLastError(error.native);
}

bool Platform::readStatus(const QString& name, OS::FileStatus& status) {
  WIN32_FILE_ATTRIBUTE_DATA found{};
  status = {};
  if (isDevice(name)) {
    return true;
  }
  if (!::GetFileAttributesExW(nativePath(name).c_str(), GetFileExInfoStandard, &found)) {
    return false;
  }
  status.isLink = isLink(name, found.dwFileAttributes);
  if (status.isLink && !follow(name, found)) {
    return false;
  }
  status.isDirectory = has(found.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY);
  status.isFile = !status.isDirectory && !has(found.dwFileAttributes, FILE_ATTRIBUTE_DEVICE);
  const std::int64_t size = std::int64_t(found.nFileSizeHigh) << 32 | found.nFileSizeLow;
  status.size = status.isFile ? size : 0;
  status.modified = milliseconds(found.ftLastWriteTime);
  status.accessed = milliseconds(found.ftLastAccessTime);
  status.created = milliseconds(found.ftCreationTime);
  return true;
}

// ownerOnly needs nothing here: the user's folders keep others out of what is made in them.
bool Platform::makeDirectory(const QString& name, bool /*ownerOnly*/) {
  return ::CreateDirectoryW(nativePath(name).c_str(), nullptr) != 0;
}

Platform::Search::~Search() {
  if (isOpen()) {
    const KeepLastError keep;
    ::FindClose(_handle);
  }
}

bool Platform::Search::isOpen() const {
  return _handle != INVALID_HANDLE_VALUE;
}

bool Platform::readEntries(const QString& name, const QByteArray& start, QStringList& entries,
                           int& all) {
  const std::wstring wanted = QString(start).toStdWString();
  WIN32_FIND_DATAW found{};
  const Search search(::FindFirstFileW(nativePath(name + "/*").c_str(), &found));
  if (!search.isOpen()) {
    return ::GetLastError() == ERROR_FILE_NOT_FOUND;  // the root of an empty drive
  }
  do {
    ++all;
    if (std::wcsncmp(found.cFileName, wanted.c_str(), wanted.size()) == 0) {
      entries.append(QString::fromWCharArray(found.cFileName));
    }
  } while (::FindNextFileW(search.handle(), &found));
  return ::GetLastError() == ERROR_NO_MORE_FILES;
}

// The new name is taken first: a copy that fails must not remove what somebody else has put there.
bool Platform::copyFile(const QString& from, const QString& to) {
  const std::wstring target = nativePath(to).native();
  const HANDLE taken = ::CreateFileW(target.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                                     FILE_ATTRIBUTE_NORMAL, nullptr);
  if (taken == INVALID_HANDLE_VALUE) {
    return false;
  }
  ::CloseHandle(taken);
  const bool copied = ::CopyFileW(nativePath(from).c_str(), target.c_str(), FALSE) != 0;
  if (!copied) {
    const KeepLastError keep;
    removeFile(to);
  }
  return copied;
}

bool Platform::isRealDirectory(const QString& name) {
  const DWORD attributes = attributesOf(name);
  return has(attributes, FILE_ATTRIBUTE_DIRECTORY) && !isLink(name, attributes);
}

bool Platform::renameToFree(const QString& from, const QString& to) {
  return ::MoveFileExW(nativePath(from).c_str(), nativePath(to).c_str(), 0) != 0;
}

bool Platform::renameOver(const QString& from, const QString& to) {
  return ::MoveFileExW(nativePath(from).c_str(), nativePath(to).c_str(),
                       MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH) != 0;
}

// Links to directories are directories to this system. Files that must not be written can be
// removed, as on other systems.
bool Platform::removeFile(const QString& name) {
  const DWORD attributes = attributesOf(name);
  if (has(attributes, FILE_ATTRIBUTE_DIRECTORY) && isLink(name, attributes)) {
    return removeDirectory(name);
  }
  const std::wstring path = nativePath(name).native();
  if (has(attributes, FILE_ATTRIBUTE_READONLY) && !has(attributes, FILE_ATTRIBUTE_DIRECTORY)) {
    ::SetFileAttributesW(path.c_str(), attributes & ~DWORD(FILE_ATTRIBUTE_READONLY));
  }
  return ::DeleteFileW(path.c_str()) != 0;
}

bool Platform::removeDirectory(const QString& name) {
  return ::RemoveDirectoryW(nativePath(name).c_str()) != 0;
}

}  // namespace Kyr

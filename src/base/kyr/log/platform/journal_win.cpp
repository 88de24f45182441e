#include <kyr/log/journal_file_p.h>

#include <windows.h>

namespace Kyr {

namespace {

// What is opened so may be renamed, and its name taken, while it is open.
constexpr DWORD sharing = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

HANDLE handleOf(std::intptr_t file) {
  return reinterpret_cast<HANDLE>(file);
}

bool isSame(const BY_HANDLE_FILE_INFORMATION& one, const BY_HANDLE_FILE_INFORMATION& other) {
  return one.dwVolumeSerialNumber == other.dwVolumeSerialNumber &&
         one.nFileIndexHigh == other.nFileIndexHigh && one.nFileIndexLow == other.nFileIndexLow;
}

/// Whether a name leads to an open file; true also when the system does not tell.
bool leadsTo(const std::filesystem::path& name, const BY_HANDLE_FILE_INFORMATION& opened) {
  const HANDLE handle = ::CreateFileW(name.c_str(), FILE_READ_ATTRIBUTES, sharing, nullptr,
                                      OPEN_EXISTING, 0, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    return ::GetLastError() != ERROR_FILE_NOT_FOUND;
  }
  BY_HANDLE_FILE_INFORMATION named{};
  const bool isTold = ::GetFileInformationByHandle(handle, &named) != 0;
  ::CloseHandle(handle);
  return !isTold || isSame(named, opened);
}

/// Whether the file is removed as soon as everybody has closed it.
bool isBeingDeleted(HANDLE file) {
  FILE_STANDARD_INFO information{};
  return ::GetFileInformationByHandleEx(file, FileStandardInfo, &information, sizeof information) !=
             0 &&
         information.DeletePending != 0;
}

}  // namespace

// The right to append and not to write makes the system itself find the end, at each write; that to
// read is for the lock.
std::intptr_t Platform::openJournal(const std::filesystem::path& name) noexcept {
  static_assert(sizeof(std::intptr_t) == sizeof(HANDLE));
  const DWORD rights = (FILE_GENERIC_WRITE & ~DWORD(FILE_WRITE_DATA)) | GENERIC_READ;
  return reinterpret_cast<std::intptr_t>(::CreateFileW(
      name.c_str(), rights, sharing, nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
}

void Platform::closeJournal(std::intptr_t file) noexcept {
  ::CloseHandle(handleOf(file));
}

Platform::JournalLook Platform::lookAtJournal(std::intptr_t file,
                                              const std::filesystem::path& name) noexcept {
  JournalLook look;
  BY_HANDLE_FILE_INFORMATION opened{};
  if (::GetFileInformationByHandle(handleOf(file), &opened)) {
    look.isRemoved = opened.nNumberOfLinks == 0 || isBeingDeleted(handleOf(file));
    look.size = std::uint64_t(opened.nFileSizeHigh) << 32U | opened.nFileSizeLow;
    look.isCurrent = leadsTo(name, opened);
  }
  return look;
}

// Locks of this system keep others from writing to what is locked. So it is a byte that no file
// has.
bool Platform::lockJournal(std::intptr_t file) noexcept {
  OVERLAPPED place{};
  place.OffsetHigh = 0x7FFFFFFF;
  return ::LockFileEx(handleOf(file), LOCKFILE_EXCLUSIVE_LOCK | LOCKFILE_FAIL_IMMEDIATELY, 0, 1, 0,
                      &place) != 0;
}

}  // namespace Kyr

#include <kyr/os/os_directory_p.h>
#include <kyr/os/os_directory_posix_p.h>
#include <kyr/os/os_file_p.h>
#include <kyr/os/os_reason_p.h>

#include <cerrno>
#include <cstring>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Kyr {

namespace {

std::string native(const QString& name) {
  return Platform::nativePath(name).native();
}

std::int64_t milliseconds(const statx_timestamp& time) {
  return std::int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1000000;
}

/// Renames to a name that nothing has, by looking first: in between somebody may take the name.
bool renameAfterLook(const char* source, const char* target) {
  struct stat found = {};
  const bool isTaken = ::lstat(target, &found) == 0;
  errno = EEXIST;
  return !isTaken && ::rename(source, target) == 0;
}

/// Renames to a name that nothing has by giving a second name and taking away the first, where the
/// file system knows second names.
bool renameInSteps(const char* source, const char* target) {
  if (::link(source, target) != 0) {
    const bool isUnknown = errno == EPERM || errno == ENOTSUP || errno == ENOSYS;
    return isUnknown && renameAfterLook(source, target);
  }
  const bool isGone = ::unlink(source) == 0;
  if (!isGone) {
    const Platform::KeepLastError keep;
    ::unlink(target);
  }
  return isGone;
}

/// Hands the reason that the C++ library found on to lastError().
bool succeeded(const std::error_code& error) {
  if (error) {
    errno = error.value();
  }
  return !error;
}

}  // namespace

Platform::SystemError Platform::lastError() {
  const int known = errno == EDQUOT ? ENOSPC : errno;
  return {known, static_cast<unsigned>(errno)};
}

void Platform::setLastError(const SystemError& error) {
  errno = static_cast<int>(error.native);
}

bool Platform::readStatus(const QString& name, OS::FileStatus& status) {
  const std::string path = native(name);
  struct statx found = {};
  if (::statx(AT_FDCWD, path.c_str(), 0, STATX_BASIC_STATS | STATX_BTIME, &found) != 0) {
    return false;
  }
  struct stat itself = {};
  status = {};
  status.isLink = ::lstat(path.c_str(), &itself) == 0 && S_ISLNK(itself.st_mode);
  status.isDirectory = S_ISDIR(found.stx_mode);
  status.isFile = S_ISREG(found.stx_mode);
  status.size = status.isFile ? static_cast<std::int64_t>(found.stx_size) : 0;
  status.modified = milliseconds(found.stx_mtime);
  status.accessed = milliseconds(found.stx_atime);
  status.created = (found.stx_mask & STATX_BTIME) != 0 ? milliseconds(found.stx_btime) : 0;
  return true;
}

bool Platform::makeDirectory(const QString& name, bool ownerOnly) {
  return ::mkdir(native(name).c_str(), ownerOnly ? 0700 : 0777) == 0;
}

Platform::EntryReader::EntryReader(const std::string& directory)
    : _directory(::opendir(directory.c_str())) {}

Platform::EntryReader::EntryReader(int directory)
    : _directory(directory < 0 ? nullptr : ::fdopendir(directory)) {
  if (!isOpen() && directory >= 0) {
    const KeepLastError keep;
    ::close(directory);
  }
}

Platform::EntryReader::~EntryReader() {
  if (isOpen()) {
    const KeepLastError keep;
    ::closedir(static_cast<DIR*>(_directory));
  }
}

const char* Platform::EntryReader::next() {
  errno = 0;
  DIR* const directory = static_cast<DIR*>(_directory);
  const dirent* entry = ::readdir(directory);
  while (entry && (std::strcmp(entry->d_name, ".") == 0 || std::strcmp(entry->d_name, "..") == 0)) {
    entry = ::readdir(directory);
  }
  _isComplete = !entry && errno == 0;
  return entry ? entry->d_name : nullptr;
}

bool Platform::readEntries(const QString& name, const QByteArray& start, QStringList& entries,
                           int& all) {
  EntryReader reader(native(name));
  if (!reader.isOpen()) {
    return false;
  }
  while (const char* const entry = reader.next()) {
    ++all;
    if (std::strncmp(entry, start.constData(), static_cast<std::size_t>(start.size())) == 0) {
      entries.append(nameOf(entry));
    }
  }
  return reader.isComplete();
}

// The new name is taken first: a copy that fails must not remove what somebody else has put there.
bool Platform::copyFile(const QString& from, const QString& to) {
  surviveFileLimit();
  const std::string target = native(to);
  const int taken = ::open(target.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
  if (taken < 0) {
    return false;
  }
  ::close(taken);
  std::error_code error;
  std::filesystem::copy_file(nativePath(from), target,
                             std::filesystem::copy_options::overwrite_existing, error);
  if (error) {
    ::unlink(target.c_str());
  }
  return succeeded(error);
}

bool Platform::isRealDirectory(const QString& name) {
  struct stat found = {};
  return ::lstat(native(name).c_str(), &found) == 0 && S_ISDIR(found.st_mode);
}

// Not every file system can rename in one step without replacing.
bool Platform::renameToFree(const QString& from, const QString& to) {
  const std::string source = native(from);
  const std::string target = native(to);
  if (::renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) {
    return true;
  }
  const bool isUnknown = errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
  return isUnknown && renameInSteps(source.c_str(), target.c_str());
}

bool Platform::renameOver(const QString& from, const QString& to) {
  return ::rename(native(from).c_str(), native(to).c_str()) == 0;
}

bool Platform::removeFile(const QString& name) {
  return ::unlink(native(name).c_str()) == 0;
}

bool Platform::removeDirectory(const QString& name) {
  return ::rmdir(native(name).c_str()) == 0;
}

}  // namespace Kyr

#include <kyr/files/lock_file_p.h>

#include <kyr/os/os_file_p.h>

#include <QThread>

#include <algorithm>
#include <array>
#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Kyr {

namespace {

using Start = std::array<char, 1024>;

/// \return the number of bytes; negative when the file cannot be read
int readStart(int file, Start& start) noexcept {
  ssize_t count = ::pread(file, start.data(), start.size(), 0);
  while (count < 0 && errno == EINTR) {
    count = ::pread(file, start.data(), start.size(), 0);
  }
  return static_cast<int>(count);
}

/// Closes a file at the end.
struct Closer {
  int file;
  ~Closer() { ::close(file); }
};

LockFile::Finding_t findingFor(int error) {
  switch (error) {
    case ENOENT:
    case ENOTDIR:
    case ENAMETOOLONG:
      return LockFile::Missing;
    case ELOOP:
      return LockFile::NoPlain;
    case EACCES:
    case EPERM:
      return LockFile::Refused;
    default:
      return LockFile::Unlooked;
  }
}

/// Asks by taking a lock that many processes may have at once, but only while nobody has one for
/// itself.
LockFile::Keeping_t askKeeping(int file) {
  if (::flock(file, LOCK_SH | LOCK_NB) == 0) {
    return LockFile::Free;
  }
  return errno == EWOULDBLOCK ? LockFile::Kept : LockFile::Untold;
}

int descriptor(std::intptr_t handle) {
  return static_cast<int>(handle);
}

}  // namespace

LockFile::Finding_t LockFile::look(const QString& name, Mark& mark) {
  const std::string path = Platform::nativePath(name).native();
  struct stat found = {};
  if (::stat(path.c_str(), &found) != 0) {
    return findingFor(errno);
  }
  if (!S_ISREG(found.st_mode)) {
    return NoPlain;
  }
  const int file = ::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC);
  if (file < 0) {
    return findingFor(errno);
  }
  const Closer closer{file};
  Start start;
  const int count = readStart(file, start);
  mark = {QByteArray(start.data(), std::max(0, count)), askKeeping(file)};
  return count < 0 ? Unlooked : Read;
}

bool Platform::KeptFile::create(const std::filesystem::path& name) noexcept {
  close();
  surviveFileLimit();
  const int file = ::open(name.c_str(), O_RDWR | O_CREAT | O_EXCL | O_CLOEXEC, 0666);
  if (file >= 0) {
    _handle = file;
    _isKept = ::flock(file, LOCK_EX | LOCK_NB) == 0;
  }
  return file >= 0;
}

bool Platform::KeptFile::write(const QByteArray& text) noexcept {
  return writeAll(_handle, text.constData(), static_cast<std::size_t>(text.size()));
}

bool Platform::KeptFile::holdsOther(const QByteArray& text) const noexcept {
  Start start;
  const int count = readStart(descriptor(_handle), start);
  return count >= 0 && !std::equal(text.begin(), text.end(), start.begin(), start.begin() + count);
}

bool Platform::KeptFile::isAt(const std::filesystem::path& name) const noexcept {
  struct stat own = {};
  struct stat there = {};
  return ::fstat(descriptor(_handle), &own) == 0 && ::lstat(name.c_str(), &there) == 0 &&
         own.st_dev == there.st_dev && own.st_ino == there.st_ino;
}

void Platform::KeptFile::close() noexcept {
  if (_handle != none) {
    ::close(descriptor(_handle));
    _handle = none;
  }
  _isKept = false;
}

Platform::DirectoryGuard::DirectoryGuard(const QString& directory) {
  constexpr int attempts = 1000;
  constexpr unsigned long pause = 5;  // in milliseconds
  const int opened = ::open(nativePath(directory).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened < 0) {
    return;
  }
  int result = ::flock(opened, LOCK_EX | LOCK_NB);
  for (int i = 0; i < attempts && result != 0 && (errno == EWOULDBLOCK || errno == EINTR); ++i) {
    QThread::msleep(pause);
    result = ::flock(opened, LOCK_EX | LOCK_NB);
  }
  if (result == 0) {
    _handle = opened;
  } else {
    ::close(opened);
  }
}

// The directory is unlocked expressly: a child that another thread has forked meanwhile has it open
// as well.
Platform::DirectoryGuard::~DirectoryGuard() {
  if (isHeld()) {
    ::flock(descriptor(_handle), LOCK_UN);
    ::close(descriptor(_handle));
  }
}

}  // namespace Kyr

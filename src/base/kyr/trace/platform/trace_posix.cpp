#include <kyr/trace/trace_p.h>

#include <kyr/os/os_file_p.h>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace Kyr {

std::intptr_t Platform::openTrace(const QString& name) {
  surviveFileLimit();
  const int file = ::open(nativePath(name).c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0666);
  if (file < 0) {
    return noTrace;
  }
  if (::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK) {
    ::close(file);
    errno = EBUSY;
    return noTrace;
  }
  cutTrace(file, 0);
  return file;
}

// A device or a pipe cannot be cut, and need not.
void Platform::cutTrace(std::intptr_t file, std::uint64_t size) noexcept {
  const auto length = static_cast<off_t>(size);
  if (::ftruncate(static_cast<int>(file), length) == 0) {
    ::lseek(static_cast<int>(file), length, SEEK_SET);
  }
}

// A child that was forked just now may still have the file open, and would keep the lock.
void Platform::closeTrace(std::intptr_t file) noexcept {
  ::flock(static_cast<int>(file), LOCK_UN);
  ::close(static_cast<int>(file));
}

void Platform::closeParentsTrace(std::intptr_t file) noexcept {
  ::close(static_cast<int>(file));
}

}  // namespace Kyr

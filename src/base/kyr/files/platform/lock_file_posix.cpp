#include <kyr/files/lock_file_p.h>

#include <kyr/os/os_file_p.h>

#include <QThread>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace Kyr {

Platform::DirectoryGuard::DirectoryGuard(const QString& directory) {
  constexpr int attempts = 1000;
  constexpr unsigned long pause = 5;  // in milliseconds
  const int descriptor = ::open(nativePath(directory).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (descriptor < 0) {
    return;
  }
  int result = ::flock(descriptor, LOCK_EX | LOCK_NB);
  for (int i = 0; i < attempts && result != 0 && (errno == EWOULDBLOCK || errno == EINTR); ++i) {
    QThread::msleep(pause);
    result = ::flock(descriptor, LOCK_EX | LOCK_NB);
  }
  if (result == 0) {
    _handle = descriptor;
  } else {
    ::close(descriptor);
  }
}

Platform::DirectoryGuard::~DirectoryGuard() {
  if (isHeld()) {
    ::close(static_cast<int>(_handle));
  }
}

}  // namespace Kyr

#include <kyr/files/lock_file_p.h>

#include <kyr/os/os_file_p.h>

#include <QThread>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <fstream>
#include <limits>
#include <string>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

namespace Kyr {

namespace {

QByteArray firstLine(const std::string& file) {
  std::ifstream stream(file, std::ios_base::binary);
  std::string line;
  std::getline(stream, line);
  return QByteArray::fromStdString(line);
}

/// The fields of a process behind its name, which may hold blanks and brackets; the first is its
/// state. Empty where the system has no such file.
QList<QByteArray> fieldsOf(std::int64_t pid) {
  const QByteArray line = firstLine("/proc/" + std::to_string(pid) + "/stat");
  const int nameEnd = line.lastIndexOf(") ");
  return nameEnd < 0 ? QList<QByteArray>() : line.mid(nameEnd + 2).split(' ');
}

bool isPid(std::int64_t pid) {
  return pid > 0 && pid <= std::numeric_limits<pid_t>::max();
}

}  // namespace

bool Platform::processExists(std::int64_t pid) {
  if (!isPid(pid) || (::kill(static_cast<pid_t>(pid), 0) != 0 && errno != EPERM)) {
    return false;
  }
  const QByteArray state = fieldsOf(pid).value(0);
  return state != "Z" && state != "X";  // ended, though its parent has not asked for it yet
}

// Ticks since the start of the system, and which start that was: clocks that are set do not matter.
QByteArray Platform::processStart(std::int64_t pid) {
  constexpr int startField = 19;
  const QByteArray ticks = fieldsOf(pid).value(startField);
  return ticks.isEmpty() ? ticks : ticks + '@' + firstLine("/proc/sys/kernel/random/boot_id");
}

// Some file systems know the one, some the other.
bool Platform::renameToFree(const QString& from, const QString& to) {
  const std::string source = nativePath(from).native();
  const std::string target = nativePath(to).native();
  if (::renameat2(AT_FDCWD, source.c_str(), AT_FDCWD, target.c_str(), RENAME_NOREPLACE) == 0) {
    return true;
  }
  const bool isUnknown = errno == EINVAL || errno == ENOSYS || errno == ENOTSUP;
  if (!isUnknown || ::link(source.c_str(), target.c_str()) != 0) {
    return false;
  }
  ::unlink(source.c_str());
  return true;
}

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

#include <kyr/os/os_file_p.h>

#include <QFile>

#include <atomic>
#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace Kyr {

// Gives the bytes that QFile uses, so that both mean the same file. Before there is a Qt
// application the locale is "C" and loses letters; the name then is UTF-8, as everywhere today.
std::filesystem::path Platform::nativePath(const QString& name) {
  const QByteArray encoded = QFile::encodeName(name);
  const bool lossless = QFile::decodeName(encoded) == name;
  return (lossless ? encoded : name.toUtf8()).toStdString();
}

std::filesystem::path Platform::verbatimPath(const QString& name) {
  return nativePath(name);
}

QString Platform::nameOf(const std::filesystem::path& native) {
  const QByteArray bytes = QByteArray::fromStdString(native.native());
  const QString name = QFile::decodeName(bytes);
  return QFile::encodeName(name) == bytes ? name : QString::fromUtf8(bytes);
}

bool Platform::isDirectory(const QString& name) {
  std::error_code ignored;
  return std::filesystem::is_directory(nativePath(name), ignored);
}

// shared changes nothing: on this system locks between processes are a matter of agreement.
bool Platform::openBuffer(std::filebuf& buffer, const QString& name, std::ios_base::openmode mode,
                          bool /*shared*/) {
  surviveFileLimit();
  return buffer.open(nativePath(name), mode) != nullptr;
}

FILE* Platform::openFile(const QString& name, const char* mode) {
  surviveFileLimit();
  return std::fopen(nativePath(name).c_str(), mode);
}

bool Platform::writeAll(std::intptr_t file, const char* bytes, std::size_t count) noexcept {
  while (count > 0) {
    const ssize_t written = ::write(static_cast<int>(file), bytes, count);
    if (written < 0 && errno == EINTR) {
      continue;
    }
    if (written <= 0) {
      errno = written < 0 ? errno : EIO;
      return false;
    }
    bytes += written;
    count -= static_cast<std::size_t>(written);
  }
  return true;
}

bool Platform::appendToFile(const QString& name, const char* bytes, std::size_t count) {
  surviveFileLimit();
  const int file =
      ::open(nativePath(name).c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0666);
  if (file < 0) {
    return false;
  }
  const bool written = writeAll(file, bytes, count);
  return ::close(file) == 0 && written;
}

// The signal gets a handler: that it is ignored, programs that are started would inherit.
void Platform::surviveFileLimit() noexcept {
  static std::atomic<bool> isDone{false};
  struct sigaction present = {};
  if (isDone.exchange(true) || ::sigaction(SIGXFSZ, nullptr, &present) != 0 ||
      (present.sa_flags & SA_SIGINFO) != 0 || present.sa_handler != SIG_DFL) {
    return;
  }
  present.sa_handler = [](int) {};
  present.sa_flags = SA_RESTART;
  ::sigaction(SIGXFSZ, &present, nullptr);
}

}  // namespace Kyr

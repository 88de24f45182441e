#include <kyr/os/KyrOS.h>
#include <kyr/os/os_system_p.h>

#include <QDir>
#include <QThread>

#include <algorithm>
#include <array>
#include <atomic>

namespace Kyr {

namespace {

constexpr int longestName = 32767;  // no system takes more
constexpr unsigned longestTempDirectory = 4096;

std::atomic<unsigned> numberOfCPUs{0};

/// A zero character would end the name for the system, which then means another file.
bool isName(const QString& name) {
  return !name.isEmpty() && name.size() <= longestName && !name.contains(QChar::Null);
}

bool isDirectory(const QString& name) {
  OS::FileStatus status;
  return OS::stat(name, &status) && status.isDirectory;
}

/// Whether the directory is there, be it that another process has made it meanwhile.
bool ensureDirectory(const QString& name, bool ownerOnly) {
  return isDirectory(name) || Platform::makeDirectory(name, ownerOnly) || isDirectory(name);
}

}  // namespace

bool OS::stat(const QString& name, FileStatus* status) {
  FileStatus unused;
  return isName(name) && Platform::readStatus(name, status ? *status : unused);
}

bool OS::mkdir(const QString& name, bool ownerOnly) {
  if (!isName(name) || isDirectory(name)) {
    return isName(name);
  }
  // What fails above may be a server or a drive, which nobody can make: the last one decides.
  const QString path = QDir::fromNativeSeparators(name);
  for (int end = path.indexOf('/', 1); end > 0; end = path.indexOf('/', end + 1)) {
    ensureDirectory(path.left(end), ownerOnly);
  }
  return ensureDirectory(path, ownerOnly);
}

bool OS::readDirectory(const QString& name, QStringList* entries) {
  entries->clear();
  if (!isName(name) || !Platform::readEntries(name, *entries)) {
    entries->clear();
    return false;
  }
  entries->removeAll(".");
  entries->removeAll("..");
  entries->sort();
  return true;
}

bool OS::copyFile(const QString& from, const QString& to) {
  FileStatus status;
  if (!stat(from, &status) || status.isDirectory || !isName(to) || stat(to)) {
    return false;
  }
  const bool copied = Platform::copyFile(from, to);
  if (!copied) {
    Platform::removeFile(to);
  }
  return copied;
}

bool OS::unlink(const QString& name) {
  return isName(name) && Platform::removeFile(name);
}

QString OS::convertSeparatorsToUnix(const QString& path) {
  return QString(path).replace('\\', '/');
}

QString OS::getTempDirectory() {
  std::array<wchar_t, longestTempDirectory> buffer;
  return getTempDirectory(buffer.data(), longestTempDirectory)
             ? QString::fromWCharArray(buffer.data())
             : QString();
}

void OS::setNumberOfCPUs(unsigned count) noexcept {
  numberOfCPUs = count;
}

unsigned OS::getNumberOfCPUs() noexcept {
  const unsigned count = numberOfCPUs;
  return count > 0 ? count : static_cast<unsigned>(std::max(1, QThread::idealThreadCount()));
}

}  // namespace Kyr

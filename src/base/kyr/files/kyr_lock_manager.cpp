#include <kyr/files/KyrLockingManager.h>

#include <kyr/files/KyrFilename.h>
#include <kyr/files/lock_file_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>

#include <array>

namespace Kyr {

namespace {

bool isPlainFile(const std::filesystem::file_status& status) {
  return std::filesystem::is_regular_file(status);
}

std::filesystem::file_status statusOf(const QString& name) {
  std::error_code ignored;
  return std::filesystem::status(Platform::nativePath(name), ignored);
}

bool isLink(const QString& name) {
  std::error_code ignored;
  return std::filesystem::is_symlink(Platform::nativePath(name), ignored);
}

}  // namespace

LockFile::Reading LockFile::read(const QString& name, QByteArray& bytes) {
  const std::filesystem::file_status status = statusOf(name);
  if (status.type() == std::filesystem::file_type::not_found) {
    return isLink(name) ? Unreadable : Missing;
  }
  std::ifstream stream;
  if (isPlainFile(status)) {
    OS::openStdStream(stream, name, OS::OpenRead, true);
  }
  if (!isPlainFile(status) || !stream) {
    return Unreadable;
  }
  std::array<char, 1024> start{};
  stream.read(start.data(), start.size());
  bytes = QByteArray(start.data(), static_cast<int>(stream.gcount()));
  return stream.bad() ? Unreadable : Read;
}

// A number beyond an int is no number, as for the readers of other programs.
std::int64_t LockFile::processOf(const QByteArray& bytes) {
  const QByteArray text = bytes.trimmed();
  int length = text.startsWith('-') || text.startsWith('+') ? 1 : 0;
  while (length < text.size() && text[length] >= '0' && text[length] <= '9') {
    ++length;
  }
  return text.left(length).toInt();  // 0 on failure
}

LockingManager::LockingManager(const QString& suffix)
    : _suffix(suffix.isEmpty() ? QString(".lock") : suffix) {}

QString LockingManager::getLockFileName(const QString& path) const {
  Filename::Name name(path);
  name.setExtension(name.getExtension() + _suffix);
  return name.getFullName();
}

std::int64_t LockingManager::getLockFilePID(const QString& path) const {
  QByteArray bytes;
  return LockFile::read(getLockFileName(path), bytes) == LockFile::Read ? LockFile::processOf(bytes)
                                                                        : 0;
}

LockingManager::LockingMode_t LockingManager::isLocked(const QString& path) const {
  const std::int64_t pid = getLockFilePID(path);
  if (pid == OS::getPID()) {
    return LockedHere;
  }
  return pid != 0 && OS::pidExists(pid) ? LockedElsewhere : NotLocked;
}

bool LockingManager::lock(const QString& path) const {
  const std::int64_t pid = getLockFilePID(path);
  if (pid == OS::getPID() || (pid != 0 && OS::pidExists(pid))) {
    return false;
  }
  const QString name = getLockFileName(path);
  const std::filesystem::file_status status = statusOf(name);
  if (std::filesystem::exists(status) && !isPlainFile(status)) {
    return false;  // writing to a pipe would wait for its reader
  }
  std::ofstream stream;
  OS::openStdStream(stream, name, OS::OpenWrite, true);
  stream << QByteArray::number(OS::getPID()).constData() << '\n';
  stream.close();
  return stream.good();
}

void LockingManager::unlock(const QString& path) const {
  const std::int64_t pid = getLockFilePID(path);
  if (pid == 0 || pid == OS::getPID()) {
    OS::unlink(getLockFileName(path));
  }
}

void LockingManager::removeStaleLocks(const QString& directory) const {
  QStringList entries;
  if (!OS::readDirectory(directory, &entries)) {
    return;
  }
  for (const QString& entry : entries) {
    if (!entry.endsWith(_suffix)) {
      continue;
    }
    const QString lockFile = directory + "/" + entry;
    const std::int64_t pid = getLockFilePID(lockFile.chopped(_suffix.size()));
    if (pid == 0 || !OS::pidExists(pid)) {
      OS::unlink(lockFile);
    }
  }
}

}  // namespace Kyr

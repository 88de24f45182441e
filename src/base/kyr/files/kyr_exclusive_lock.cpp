#include <kyr/files/KyrLockingManager.h>

#include <kyr/files/KyrFilename.h>
#include <kyr/files/lock_file_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_directory_p.h>
#include <kyr/os/os_process_p.h>

#include <QSysInfo>
#include <QThread>
#include <QUuid>

namespace Kyr {

namespace {

constexpr const char* startKey = "start ";
constexpr const char* hostKey = "host ";
constexpr const char* spaceKey = "space ";

QByteArray hostName() {
  return QSysInfo::machineHostName().toUtf8();
}

/// What this process writes into its lock files.
QByteArray ownText() {
  const unsigned pid = OS::getPID();
  return QByteArray::number(pid) + '\n' + startKey + Platform::processStart(pid) + '\n' + hostKey +
         hostName() + '\n' + spaceKey + Platform::processSpace() + '\n';
}

/// The rest of the line that begins with \a key.
QString valueOf(const QByteArray& text, const char* key) {
  for (const QByteArray& line : text.split('\n')) {
    if (line.startsWith(key)) {
      return QString::fromUtf8(line.mid(static_cast<int>(qstrlen(key))));
    }
  }
  return {};
}

LockOwner ownerIn(const QByteArray& text) {
  return {LockFile::processOf(text), valueOf(text, startKey), valueOf(text, hostKey)};
}

/// Whether the number of a lock's process is that of another one here, or of none.
bool isElsewhere(const QByteArray& text) {
  const QByteArray host = valueOf(text, hostKey).toUtf8();
  const QByteArray space = valueOf(text, spaceKey).toUtf8();
  return (!host.isEmpty() && host != hostName()) ||
         (!space.isEmpty() && space != Platform::processSpace());
}

bool lives(const QByteArray& text) {
  const LockOwner owner = ownerIn(text);
  if (owner.pid == 0) {
    return false;
  }
  if (isElsewhere(text)) {
    return true;  // who would know
  }
  if (!OS::pidExists(owner.pid)) {
    return false;
  }
  const QByteArray start = Platform::processStart(owner.pid);
  return start.isEmpty() || owner.start.isEmpty() || owner.start == start;
}

/// Not so in a forked child.
bool isThisProcess(const LockOwner& owner) {
  return owner.pid == OS::getPID() && owner.start.toUtf8() == Platform::processStart(owner.pid);
}

QString directoryOf(const QString& lockFile) {
  return Filename::Name(lockFile).getDirectory() + "/";
}

bool writeFile(const QString& name, const QByteArray& text) {
  std::ofstream stream;
  OS::openStdStream(stream, name, OS::OpenWrite, true);
  stream.write(text.constData(), text.size());
  stream.close();
  return stream.good();
}

/// Where an open file cannot be removed, a reader may be in the way for a moment.
void removeFile(const QString& name) {
  constexpr int attempts = 100;
  constexpr unsigned long pause = 5;  // in milliseconds
  for (int i = 0; i < attempts && !OS::unlink(name) && OS::stat(name); ++i) {
    QThread::msleep(pause);
  }
}

}  // namespace

ExclusiveLock::ExclusiveLock(const QString& path, const LockingManager& names)
    : _lockFile(names.getLockFileName(path)) {}

ExclusiveLock::~ExclusiveLock() {
  unlock();
}

bool ExclusiveLock::tryLock() {
  if (_held) {
    return false;
  }
  const QString ownFile =
      directoryOf(_lockFile) + ".kyr-" + QUuid::createUuid().toString(QUuid::Id128) + ".new";
  _held = writeFile(ownFile, ownText()) && settle(ownFile);
  if (!_held) {
    OS::unlink(ownFile);
  }
  return _held;
}

bool ExclusiveLock::settle(const QString& ownFile) {
  return Platform::renameToFree(ownFile, _lockFile) || takeOver(ownFile);
}

// A stale lock changes only here, as its owner is gone, and one after the other. A lock that was
// given back meanwhile is free for everybody, so the name must be won as at first.
bool ExclusiveLock::takeOver(const QString& ownFile) {
  const Platform::DirectoryGuard guard(directoryOf(_lockFile));
  if (!guard.isHeld()) {
    return false;
  }
  QByteArray text;
  switch (LockFile::read(_lockFile, text)) {
    case LockFile::Missing:
      return Platform::renameToFree(ownFile, _lockFile);
    case LockFile::Read:
      return !lives(text) && Platform::renameOver(ownFile, _lockFile);
    case LockFile::Unreadable:
      break;
  }
  return false;
}

void ExclusiveLock::unlock() {
  if (!_held) {
    return;
  }
  _held = false;
  // The guard keeps readers away, but the lock must go without it as well.
  const Platform::DirectoryGuard guard(directoryOf(_lockFile));
  QByteArray text;
  if (LockFile::read(_lockFile, text) == LockFile::Read && isThisProcess(ownerIn(text))) {
    removeFile(_lockFile);
  }
}

LockOwner ExclusiveLock::getOwner() const {
  QByteArray text;
  return LockFile::read(_lockFile, text) == LockFile::Read ? ownerIn(text) : LockOwner();
}

}  // namespace Kyr

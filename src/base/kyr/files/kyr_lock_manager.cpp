#include <kyr/files/KyrLockingManager.h>

#include <kyr/files/KyrFilename.h>
#include <kyr/files/lock_file_p.h>
#include <kyr/os/KyrOS.h>

#include <optional>

namespace Kyr {

namespace {

/// Who owns a mark that was read. Marks of other programs hold nothing but a number.
LockingManager::LockingMode_t modeOf(const LockFile::Mark& mark) {
  const std::int64_t pid = LockFile::processOf(mark.text);
  const bool isElsewhere = pid != 0 && LockFile::isElsewhere(mark);
  if (pid == OS::getPID() && !isElsewhere) {
    return LockingManager::LockedHere;
  }
  const bool lives = isElsewhere || LockFile::isKept(mark) || OS::pidExists(pid);
  return lives ? LockingManager::LockedElsewhere : LockingManager::NotLocked;
}

bool mayBeUnlocked(const LockFile::Mark& mark) {
  return !LockFile::isKept(mark) &&
         (LockFile::processOf(mark.text) == 0 || modeOf(mark) == LockingManager::LockedHere);
}

bool isStale(const QString& lockFile) {
  LockFile::Mark mark;
  const LockFile::Finding_t finding = LockFile::look(lockFile, mark);
  return finding == LockFile::NoPlain ||
         (finding == LockFile::Read && modeOf(mark) == LockingManager::NotLocked);
}

}  // namespace

LockingManager::LockingManager(const QString& suffix)
    : _suffix(suffix.isEmpty() ? QString(".lock") : suffix) {}

QString LockingManager::getLockFileName(const QString& path) const {
  Filename::Name name(path);
  name.setExtension(name.getExtension() + _suffix);
  return name.getFullName();
}

// A lock file that this user may not read counts as not locked, which is given
// (docs/decisions/0006); lock() does not take it for all that.
LockingManager::LockingMode_t LockingManager::isLocked(const QString& path) const {
  LockFile::Mark mark;
  const LockFile::Finding_t finding = LockFile::look(getLockFileName(path), mark);
  if (finding == LockFile::Read) {
    return modeOf(mark);
  }
  return finding == LockFile::Unlooked ? LockedElsewhere : NotLocked;
}

bool LockingManager::lock(const QString& path) const {
  const QString name = getLockFileName(path);
  LockFile::Mark mark;
  const LockFile::Finding_t finding = LockFile::look(name, mark);
  const bool isFree =
      finding == LockFile::Read ? modeOf(mark) == NotLocked : finding == LockFile::Missing;
  if (!isFree) {
    return false;
  }
  std::ofstream stream;
  OS::openStdStream(stream, name, OS::OpenWrite, true);
  stream << QByteArray::number(OS::getPID()).constData() << '\n';
  stream.close();
  return stream.good();
}

void LockingManager::unlock(const QString& path) const {
  const QString name = getLockFileName(path);
  LockFile::Mark mark;
  const LockFile::Finding_t finding = LockFile::look(name, mark);
  if (finding == LockFile::NoPlain || (finding == LockFile::Read && mayBeUnlocked(mark))) {
    OS::unlink(name);
  }
}

void LockingManager::removeStaleLocks(const QString& directory) const {
  QStringList entries;
  if (!OS::readDirectory(directory, &entries)) {
    return;
  }
  std::optional<Platform::DirectoryGuard> guard;
  for (const QString& entry : entries) {
    const QString lockFile = directory + "/" + entry;
    if (!entry.endsWith(_suffix) || !isStale(lockFile)) {
      continue;
    }
    // An ExclusiveLock may have replaced the lock file since it was read; while the guard is held,
    // none does.
    if (!guard) {
      guard.emplace(directory + "/");
    }
    if (guard->isHeld() && isStale(lockFile)) {
      OS::unlink(lockFile);
    }
  }
}

}  // namespace Kyr

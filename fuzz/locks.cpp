#include "Fuzz.h"

#include <kyr/files/KyrLockingManager.h>
#include <kyr/os/KyrOS.h>

#include <QDir>
#include <QFile>

namespace KyrFuzz {

namespace {

constexpr qint64 nobody = 99999999;  // beyond every number that Linux gives

/// The documented owner: the number at the start of the file, behind white space.
qint64 ownerIn(const QByteArray& text) {
  const QByteArray trimmed = text.left(1024).trimmed();
  int digits = trimmed.startsWith('-') || trimmed.startsWith('+') ? 1 : 0;
  while (digits < trimmed.size() && trimmed[digits] >= '0' && trimmed[digits] <= '9') {
    ++digits;
  }
  bool fits = false;
  const qint64 number = trimmed.left(digits).toLongLong(&fits);
  return fits && number == static_cast<int>(number) ? number : 0;
}

/// Whether the file tells of nothing but a number.
bool isPlain(const QByteArray& text) {
  return !text.contains("host") && !text.contains("space") && !text.contains("machine") &&
         !text.contains("kept") && !text.contains("start");
}

void write(const QString& path, const QByteArray& bytes) {
  QFile file(path);
  expect(file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size(), "there is room");
}

QStringList entries() {
  return QDir(folder()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

/// Who took a lock has it until it gives it back; nothing stays then.
void checkTaken(Kyr::ExclusiveLock& lock, const QString& path) {
  expect(lock.isHeld() && lock.getOwner().pid == Kyr::OS::getPID(), "its owner is this process");
  expect(!Kyr::ExclusiveLock(path).tryLock(), "nobody else gets the lock");
  const Kyr::LockingManager locks;
  expect(locks.isLocked(path) != Kyr::LockingManager::NotLocked && !locks.lock(path),
         "the other kind of lock sees it");
  locks.unlock(path);
  locks.removeStaleLocks(folder());
  expect(contentOf(path + ".lock").startsWith(QByteArray::number(Kyr::OS::getPID())),
         "and leaves it alone");
  lock.unlock();
  expect(entries().isEmpty(), "nothing is left of a lock");
}

}  // namespace

/// A lock file of any bytes; "$" stands for the number of this process, "!" for that of nobody.
void harness(Choices input) {
  const bool exclusive = input.yes();
  QByteArray text = arrayOf(input.rest());
  text.replace("$", QByteArray::number(Kyr::OS::getPID()));
  text.replace("!", QByteArray::number(nobody));
  const QString path = folder() + "/scan.dat";
  const QString file = path + ".lock";
  write(file, text);

  const Kyr::LockingManager locks;
  const qint64 owner = ownerIn(text);
  const bool isOwn = owner == Kyr::OS::getPID();
  const bool isFree = owner == 0 || owner == nobody;
  const bool isPlainMark = isPlain(text);
  const auto mode = locks.isLocked(path);
  expect(mode != Kyr::LockingManager::LockedHere || isOwn, "only its own number makes a lock ours");
  expect(!isPlainMark || !isFree || mode == Kyr::LockingManager::NotLocked,
         "nobody's lock is free");
  expect(!isPlainMark || !isOwn || mode == Kyr::LockingManager::LockedHere, "ours is ours");
  expect(Kyr::ExclusiveLock(path).getOwner().pid == owner, "the owner is who the file names");
  if (exclusive) {
    Kyr::ExclusiveLock lock(path);
    const bool taken = lock.tryLock();
    expect(!isPlainMark || !isFree || taken, "a stale lock is replaced");
    expect(!isPlainMark || !isOwn || !taken, "a living owner keeps its lock");
    if (taken) {
      return checkTaken(lock, path);
    }
  } else if (locks.lock(path)) {
    expect(!isPlainMark || !isOwn, "a living owner keeps its lock");
    expect(locks.isLocked(path) == Kyr::LockingManager::LockedHere, "who took it has it");
    locks.unlock(path);
    return expect(entries().isEmpty(), "nothing is left of a lock");
  }
  expect(entries() == QStringList("scan.dat.lock") && contentOf(file) == text,
         "a lock that is not taken is left alone");
  QFile::remove(file);
}

}  // namespace KyrFuzz

/// \file
/// Lock files: marks beside files that say which process uses them.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

#include <cstdint>
#include <memory>

namespace Kyr {

/// Marks files as in use by a lock file beside each, with the process's number in it.
///
/// A lock whose process no longer exists is stale and counts as none. Looking at a lock and
/// taking it are two steps: of two processes that do so at the same moment both may succeed.
/// Where that matters, use ExclusiveLock, whose locks this class sees and never takes, changes or
/// removes while somebody has them, or while they tell of another machine. It
/// leaves alone, too, what cannot be read: only what was seen to be nobody's lock is stale. The
/// format: docs/formats/lock-file.md.
/// \code
/// const LockingManager locks;
/// if (locks.lock(name)) {  // makes "NAME.lock"
///   save(room, sizeof room);
///   locks.unlock(name);
/// }
/// \endcode
/// \threadsafety any thread
class KYR_EXPORT LockingManager {
 public:
  /// Who holds a lock. The numbers are part of the interface.
  enum LockingMode_t {
    NotLocked = 0,        ///< no lock file, one that this user may not read, or a stale one
    LockedHere = 1,       ///< by this process
    LockedElsewhere = 2,  ///< by another process, which lives, or one of another machine; also when
                          ///< the system cannot look, as for a lack of descriptors
  };

  /// \param suffix what a lock file's name has behind that of its file; an empty one, with which
  ///        the file would be its own lock file, means ".lock"
  LockingManager(const QString& suffix = ".lock");

  /// The lock file of \a path: "scan.dat.lock" beside "scan.dat".
  QString getLockFileName(const QString& path) const;

  /// Who holds the lock of \a path at this moment. Changes nothing: a stale lock stays.
  LockingMode_t isLocked(const QString& path) const;

  /// Takes the lock if nobody has it, a stale one included.
  /// \return false when somebody has it, be it this process, or may have it, as the lock file
  ///         cannot be read; also when the file cannot be written
  bool lock(const QString& path) const;

  /// Removes the lock file, unless it names another process, be that alive or not, cannot be read
  /// or belongs to an ExclusiveLock that is held.
  void unlock(const QString& path) const;

  /// Removes the lock files of a directory whose processes no longer exist, and those without a
  /// process's number; does nothing when the directory cannot be read. What cannot be read stays.
  void removeStaleLocks(const QString& directory) const;

 private:
  QString _suffix;
};

/// Who took an ExclusiveLock, as its lock file tells. A LockingManager leaves the number alone.
/// \threadsafety a value
struct LockOwner {
  std::int64_t pid = 0;  ///< 0 when nobody can be told
  QString start;  ///< no other process of this number on that host has the same; may be empty
  QString host;   ///< may be empty
};

/// A lock file that never has two owners, also when many processes ask at the same moment.
///
/// It is the lock file of LockingManager with more lines, so each class sees the locks of the
/// other; the promise holds among objects of this class only. The file appears complete or not at
/// all. Its owner keeps it open and locked by the system until unlock() or the end of the process,
/// however that comes: a lock is stale when nobody does so any more. Processes that find a stale
/// one take turns in replacing it. The lock of another machine, or of another container on this
/// one, is never taken for stale, and neither is one that cannot be looked at.
/// \code
/// ExclusiveLock lock(name);
/// if (!lock.tryLock()) {
///   std::cerr << "used by process " << lock.getOwner().pid << '\n';
/// }
/// \endcode
///
/// A child process that was forked and has not started a program has the file open as well: if the
/// owner ends first, its lock counts as held until the child ends. Where a file system has no
/// locks, an owner is known by its number and its start. Where it can neither rename without
/// replacing nor make hard links, as some shared folders of virtual machines, two processes that
/// take a free lock within the same moment may both get it.
/// \threadsafety one thread per object; objects of one path exclude each other across threads too
class KYR_EXPORT ExclusiveLock {
 public:
  /// \param path the file to be locked, which need not exist
  /// \param names gives the lock file its name
  explicit ExclusiveLock(const QString& path, const LockingManager& names = LockingManager());
  /// Gives the lock back.
  ~ExclusiveLock();
  ExclusiveLock(const ExclusiveLock&) = delete;
  ExclusiveLock& operator=(const ExclusiveLock&) = delete;

  /// Takes the lock without waiting for its owner.
  /// \return whether this call took it; false also when the lock file cannot be written, or is
  ///         nothing that can be read, and for a stale one where the file system has no locks on
  ///         directories. Leaves nothing behind then
  /// \throws std::bad_alloc; the lock is then as it was
  bool tryLock();

  /// Removes the lock file if this object and this process took it; a second call does nothing.
  /// Needs neither memory nor descriptors.
  void unlock();

  /// Whether tryLock() took the lock and unlock() did not give it back.
  bool isHeld() const { return _holder != nullptr; }

  /// Who has the lock now, for messages; also when the lock is stale.
  LockOwner getOwner() const;

 private:
  class Holder;

  QString _lockFile;
  std::unique_ptr<Holder> _holder;
};

}  // namespace Kyr

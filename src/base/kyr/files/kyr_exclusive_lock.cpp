#include <kyr/files/KyrLockingManager.h>

#include <kyr/files/KyrFilename.h>
#include <kyr/files/leftovers_p.h>
#include <kyr/files/lock_file_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_directory_p.h>
#include <kyr/os/os_file_p.h>
#include <kyr/os/os_process_p.h>

#include <QThread>

namespace Kyr {

namespace {

QString directoryOf(const QString& lockFile) {
  return Filename::Name(lockFile).getDirectory() + "/";
}

bool isFree(const QString& lockFile) {
  LockFile::Mark mark;
  const LockFile::Finding_t finding = LockFile::look(lockFile, mark);
  return finding == LockFile::Missing || (finding == LockFile::Read && LockFile::isStale(mark));
}

/// Removes a file; tries again for a moment, as some systems do not remove what a reader has open.
void removePatiently(const std::filesystem::path& name) noexcept {
  constexpr int attempts = 100;
  constexpr unsigned long pause = 5;  // in milliseconds
  std::error_code error;
  std::filesystem::remove(name, error);
  for (int i = 1; i < attempts && error; ++i) {
    QThread::msleep(pause);
    std::filesystem::remove(name, error);
  }
}

}  // namespace

/// The file of a lock that is being taken or held. It can be given back without memory.
class KYR_HIDDEN ExclusiveLock::Holder {
 public:
  explicit Holder(const QString& lockFile);
  ~Holder();
  Holder(const Holder&) = delete;
  Holder& operator=(const Holder&) = delete;

  bool take();

 private:
  bool takeOver();

  unsigned _process = OS::getPID();
  QString _lockFile;
  QString _temporary;
  std::filesystem::path _nativeLockFile;
  std::filesystem::path _nativeTemporary;
  QByteArray _text;
  Platform::KeptFile _file;
};

ExclusiveLock::Holder::Holder(const QString& lockFile)
    : _lockFile(lockFile),
      _temporary(TemporaryFile::besideOf(lockFile)),
      _nativeLockFile(Platform::nativePath(_lockFile)),
      _nativeTemporary(Platform::nativePath(_temporary)) {}

bool ExclusiveLock::Holder::take() {
  if (!_file.create(_nativeTemporary)) {
    return false;
  }
  _text = LockFile::ownText(_file.isKept());
  return _file.write(_text) && (Platform::renameToFree(_temporary, _lockFile) || takeOver());
}

// The guard lets processes replace a stale lock one after the other; nobody else changes one, as
// its owner is gone. If the owner has given the lock back meanwhile, the name is free for everybody
// and must be won as at first.
bool ExclusiveLock::Holder::takeOver() {
  const Platform::DirectoryGuard guard(directoryOf(_lockFile));
  if (!guard.isHeld()) {
    return false;
  }
  LockFile::Mark mark;
  switch (LockFile::look(_lockFile, mark)) {
    case LockFile::Missing:
      return Platform::renameToFree(_temporary, _lockFile);
    case LockFile::Read:
      return LockFile::isStale(mark) && Platform::renameOver(_temporary, _lockFile);
    default:
      return false;
  }
}

// Removes the file unless others have put theirs into its place, or written into it. It is closed,
// and so free for the system, only afterwards: nobody takes it for stale meanwhile. A forked child
// has the file open as well, but does not own it.
ExclusiveLock::Holder::~Holder() {
  if (_process != OS::getPID()) {
    return;
  }
  if (_file.isAt(_nativeTemporary)) {
    removePatiently(_nativeTemporary);
  } else if (_file.isAt(_nativeLockFile) && !_file.holdsOther(_text)) {
    removePatiently(_nativeLockFile);
  }
}

ExclusiveLock::ExclusiveLock(const QString& path, const LockingManager& names)
    : _lockFile(names.getLockFileName(path)) {}

ExclusiveLock::~ExclusiveLock() = default;

bool ExclusiveLock::tryLock() {
  if (_holder || !isFree(_lockFile)) {
    return false;
  }
  Leftovers::sweep(directoryOf(_lockFile));
  auto holder = std::make_unique<Holder>(_lockFile);
  if (holder->take()) {
    _holder = std::move(holder);
  }
  return isHeld();
}

void ExclusiveLock::unlock() {
  _holder.reset();
}

LockOwner ExclusiveLock::getOwner() const {
  LockFile::Mark mark;
  return LockFile::look(_lockFile, mark) == LockFile::Read ? LockFile::ownerIn(mark.text)
                                                           : LockOwner();
}

}  // namespace Kyr

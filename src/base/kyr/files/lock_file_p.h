/// \file
/// What both kinds of locks know of lock files.
#pragma once

#include <kyr/files/KyrLockingManager.h>

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <filesystem>

namespace Kyr::LockFile {

/// What there is under the name of a lock file. Only what was read can be judged.
enum Finding_t {
  Missing,   ///< nothing, or a link that leads nowhere
  NoPlain,   ///< something that is no plain file, and so nobody's lock
  Refused,   ///< a file that this user may not read
  Unlooked,  ///< the system could not look, as for a lack of descriptors or memory
  Read,
};

/// Whether the system keeps a file locked for a process that has it open; Untold where it does not
/// say.
enum Keeping_t { Free, Kept, Untold };

/// What was read of a lock file.
struct Mark {
  QByteArray text;  ///< the first 1024 bytes
  Keeping_t keeping = Untold;
};

/// Reads a lock file. Never waits, as for the other end of a pipe. Platform files define it.
Finding_t look(const QString& name, Mark& mark);

/// The first number of a lock file's text is that of a process.
/// \return 0 when there is none
std::int64_t processOf(const QByteArray& bytes);

/// The text of a lock file of this process.
/// \param isKept whether the system keeps the file locked
QByteArray ownText(bool isKept);

LockOwner ownerIn(const QByteArray& text);

/// Whether a mark tells of another machine or container, where the number of its process does not
/// mean the one that has it here.
bool isElsewhere(const Mark& mark);

/// Whether the text of a mark promises that its owner keeps the file locked, and the system does
/// not say that it is free.
bool isKept(const Mark& mark);

/// Whether nobody can be the owner any more, as far as that can be known here.
bool isStale(const Mark& mark);

}  // namespace Kyr::LockFile

namespace Kyr::Platform {

/// A new file that the system keeps locked from its creation to the end of the process or of this
/// object, whichever comes first, however that comes. On file systems without locks it is a plain
/// file.
class KeptFile {
 public:
  KeptFile() = default;
  ~KeptFile() { close(); }
  KeptFile(const KeptFile&) = delete;
  KeptFile& operator=(const KeptFile&) = delete;

  /// Creates a file that is not there.
  bool create(const std::filesystem::path& name) noexcept;
  bool isKept() const noexcept { return _isKept; }
  bool write(const QByteArray& text) noexcept;
  /// Whether somebody has written into the file: it has another text than this one. Where it cannot
  /// be read, that it still is kept and in its place has to do.
  /// \param text of at most 1023 bytes
  bool holdsOther(const QByteArray& text) const noexcept;
  /// Whether the name is that of this very file.
  bool isAt(const std::filesystem::path& name) const noexcept;
  void close() noexcept;

 private:
  static constexpr std::intptr_t none = -1;
  std::intptr_t _handle = none;
  bool _isKept = false;
};

/// Keeps out the other processes of this host that ask for the guard of the same directory. The
/// system gives it back when the process ends, however that happens.
class DirectoryGuard {
 public:
  /// Waits some seconds at most.
  explicit DirectoryGuard(const QString& directory);
  ~DirectoryGuard();
  DirectoryGuard(const DirectoryGuard&) = delete;
  DirectoryGuard& operator=(const DirectoryGuard&) = delete;

  bool isHeld() const noexcept { return _handle != none; }

 private:
  static constexpr std::intptr_t none = -1;
  std::intptr_t _handle = none;
};

}  // namespace Kyr::Platform

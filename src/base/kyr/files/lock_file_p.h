/// \file
/// What both kinds of locks know of lock files.
#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>

namespace Kyr::LockFile {

enum Reading {
  Missing,     ///< there is nothing of this name
  Unreadable,  ///< not a file, or the system refuses
  Read,
};

/// Reads the first 1024 bytes. Never waits, as for the other end of a pipe.
Reading read(const QString& name, QByteArray& bytes);

/// The number of a process at the start of a lock file.
/// \return 0 when there is none
std::int64_t processOf(const QByteArray& bytes);

}  // namespace Kyr::LockFile

namespace Kyr::Platform {

/// Keeps the other processes of this host out that ask for the same directory's guard. The system
/// gives it back when the process ends, however that happens.
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

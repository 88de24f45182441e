/// \file
/// What safe saving asks of the platforms. Whoever answers false leaves the reason in
/// lastError().
#pragma once

#include <kyr/os/os_file_p.h>

#include <QString>

#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace Kyr::Platform {

/// A file that is being written.
class OutputFile {
 public:
  OutputFile() = default;
  ~OutputFile() { close(); }
  OutputFile(const OutputFile&) = delete;
  OutputFile& operator=(const OutputFile&) = delete;

  /// Creates a file that is not there.
  /// \param model the file whose permissions it gets, if that is there
  /// \return false also when it was created, but not with these permissions; it is open then
  bool create(const std::filesystem::path& name, const QString& model);
  bool isOpen() const { return _handle != none; }
  bool write(const char* bytes, std::size_t count) { return writeAll(_handle, bytes, count); }
  /// Brings everything to the disk; returns when it is there.
  bool flushToDisk();
  /// \return negative on failure
  std::int64_t size() const;
  /// \return false when the system only now tells of a failure; it is closed even so
  bool close();

 private:
  static constexpr std::intptr_t none = -1;
  std::intptr_t _handle = none;
};

/// The full path of the file that a name means, behind all links; of a link that leads nowhere,
/// the place where it leads.
bool resolve(const QString& name, QString& target);

/// Whether the user may write the file.
bool mayWrite(const QString& name);

/// Whether the last renaming failed because of another program, which may soon let go.
bool isHeldByOther();

/// Brings the names in a directory to the disk, where the system can do so; returns when they are
/// there.
bool flushDirectory(const std::filesystem::path& directory) noexcept;

}  // namespace Kyr::Platform

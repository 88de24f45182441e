/// \file
/// How a crash handler reads folders.
#pragma once

#include <array>
#include <cstddef>

namespace Kyr::Crash {

/// The names in a folder, without the heap that readdir() takes.
class FolderReader {
 public:
  explicit FolderReader(const char* name) noexcept;
  ~FolderReader();
  FolderReader(const FolderReader&) = delete;
  FolderReader& operator=(const FolderReader&) = delete;

  /// \return null behind the last name and on failure
  const char* next() noexcept;

  /// The folder's descriptor; negative when it could not be opened.
  int descriptor() const noexcept { return _folder; }
  bool failed() const noexcept { return _failed; }

 private:
  bool refill() noexcept;

  int _folder;
  bool _failed = false;
  std::size_t _position = 0;
  std::size_t _length = 0;
  std::array<char, 4096> _entries{};
};

}  // namespace Kyr::Crash

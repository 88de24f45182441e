/// \file
/// Directories as Windows reads them.
#pragma once

namespace Kyr::Platform {

/// A search for files, which ends itself and leaves lastError() alone.
class Search {
 public:
  /// \param handle from FindFirstFileW()
  explicit Search(void* handle) : _handle(handle) {}
  ~Search();
  Search(const Search&) = delete;
  Search& operator=(const Search&) = delete;

  bool isOpen() const;
  void* handle() const { return _handle; }

 private:
  void* _handle;
};

}  // namespace Kyr::Platform

/// \file
/// Directories as POSIX reads them.
#pragma once

#include <string>

namespace Kyr::Platform {

/// Reads the names in a directory, one after the other. The iterators of the C++ library end the
/// process when there is no memory for a name, also those that report errors otherwise.
class EntryReader {
 public:
  explicit EntryReader(const std::string& directory);
  /// \param directory a descriptor, which is closed at the end; negative for one that could not be
  ///        opened
  explicit EntryReader(int directory);
  ~EntryReader();
  EntryReader(const EntryReader&) = delete;
  EntryReader& operator=(const EntryReader&) = delete;

  bool isOpen() const { return _directory != nullptr; }
  /// \return the next name but "." and ".."; null at the end, and on a failure
  const char* next();
  /// Whether next() has come to the end; otherwise the reason is in lastError().
  bool isComplete() const { return _isComplete; }

 private:
  void* _directory;  ///< the system's stream
  bool _isComplete = false;
};

}  // namespace Kyr::Platform

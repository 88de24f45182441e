/// \file
/// A file to write into.
#pragma once

#include <kyr/files/KyrSafeFile.h>

#include <QString>

#include <fstream>
#include <memory>
#include <ostream>

namespace KyrTool {

/// Refuses an output that would replace the input before it is read.
/// \param input may be "-" for standard input
/// \param output may be "-" for standard output
/// \throws FileError when both are the same file, by whatever names and links
void expectOtherFile(const QString& input, const QString& output);

/// The place for the finished file. A regular file appears there complete or not at all, and an
/// older one stays until then; devices and pipes are written straight away.
class Target {
 public:
  /// \throws FileError when it cannot be written
  explicit Target(const QString& name);
  Target(const Target&) = delete;
  Target& operator=(const Target&) = delete;

  std::ostream& stream() { return _saved ? _saved->stream() : _device; }
  /// The name of the unfinished file; empty when there is none.
  QString temporaryName() const { return _saved ? _saved->getTemporaryName() : QString(); }

  /// Puts the finished file in its place.
  /// \throws FileError when not everything has been written, Kyr::Stopped when work is to stop
  void complete();

 private:
  QString _name;
  std::unique_ptr<Kyr::SafeFile> _saved;
  std::ofstream _device;
};

}  // namespace KyrTool

/// \file
/// A file to write into.
#pragma once

#include <kyr/files/KyrSafeFile.h>

#include <QString>

#include <fstream>
#include <memory>
#include <ostream>

namespace KyrTool {

/// For commands whose input would be lost under what they make of it.
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

  /// \throws FileError when the stream did not take everything, or does not now
  void complete();

 private:
  QString _name;
  std::unique_ptr<Kyr::SafeFile> _saved;
  std::ofstream _device;
};

}  // namespace KyrTool

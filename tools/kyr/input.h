/// \file
/// A file, or standard input, to read bytes from.
#pragma once

#include <kyr/core/KyrStructVector.h>

#include <QString>

#include <fstream>
#include <istream>

namespace KyrTool {

/// An open input.
class Input {
 public:
  /// \param name a file, or "-" for standard input
  /// \throws FileError when it cannot be opened
  explicit Input(const QString& name);

  std::istream& stream() { return *_stream; }
  /// Reads the next bytes.
  /// \param piece gets \a size bytes, fewer only at the end of the input
  /// \throws FileError when reading fails
  void read(Kyr::StructVector<unsigned char>& piece, std::size_t size);
  /// How messages call it.
  const QString& name() const { return _name; }
  /// \throws FileError when reading has failed for another reason than the end
  void expectNoFailure() const;

 private:
  QString _name;
  std::ifstream _file;
  std::istream* _stream;
};

}  // namespace KyrTool

/// \file
/// A file, or standard input, to read bytes from.
#pragma once

#include <kyr/core/KyrStructVector.h>

#include <kyr/jobs/KyrProgressScope.h>

#include <QString>

#include <fstream>
#include <istream>
#include <optional>
#include <streambuf>

namespace KyrTool {

/// Reads from another buffer, moves the progress by what it reads, and comes to an end when work is
/// to stop.
class WatchedBuffer : public std::streambuf {
 public:
  /// \param source never null
  /// \param size of what is to be read in bytes; 0 if nobody knows
  WatchedBuffer(std::streambuf* source, std::uint64_t size, bool isStandardInput);
  /// Whether the source could not be read once; not its end.
  bool hasFailed() const { return _hasFailed; }

 protected:
  int_type underflow() override;
  int_type uflow() override;
  std::streamsize xsgetn(char* bytes, std::streamsize count) override;
  pos_type seekoff(off_type offset, std::ios_base::seekdir way, std::ios_base::openmode) override;
  pos_type seekpos(pos_type position, std::ios_base::openmode) override;

 private:
  std::streamsize available(std::streamsize most);
  std::streamsize readFromSource(char* bytes, std::streamsize count);

  std::streambuf* const _source;
  const std::uint64_t _size;
  const bool _isStandardInput;
  bool _hasFailed = false;
  Kyr::ProgressScope _progress;
};

/// An open input.
class Input {
 public:
  /// \param name a file, or "-" for standard input
  /// \throws FileError when it cannot be opened
  explicit Input(const QString& name);

  std::istream& stream() { return _stream; }
  /// Reads the next bytes.
  /// \param piece gets \a size bytes, fewer only at the end of the input
  /// \throws FileError when reading fails, Kyr::Stopped when work is to stop
  void read(Kyr::StructVector<unsigned char>& piece, std::size_t size);
  /// What messages call the input.
  const QString& name() const { return _name; }
  /// Ends the command if reading has failed for another reason than the end.
  /// \throws FileError, Kyr::Stopped
  void expectNoFailure() const;
  /// The same, if something could not be read also when others have gone on without it: what looks
  /// for an index takes one that it cannot read for none.
  void expectAllRead() const;

 private:
  [[noreturn]] void refuse() const;

  QString _name;
  std::ifstream _file;
  std::optional<WatchedBuffer> _buffer;
  std::istream _stream;
};

}  // namespace KyrTool

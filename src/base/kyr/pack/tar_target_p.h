/// \file
/// Where the bytes of an archive go.
#pragma once

#include <kyr/core/KyrStructVector.h>
#include <kyr/pack/KyrZipPieces.h>

#include <QString>

#include <cstddef>
#include <memory>
#include <ostream>

namespace Kyr {

/// Gathers what is written into pieces of one size and compresses them. The same bytes give the
/// same archive, whatever the sizes of the writes, and small writes cost nothing.
class TarTarget {
 public:
  /// \param pieces who compresses; null when it is not done in pieces
  static std::unique_ptr<TarTarget> inMemory(StructVector<unsigned char>* out,
                                             const ZipPieces* pieces = nullptr);
  /// \param name how failures call it
  static std::unique_ptr<TarTarget> onStream(std::ostream* target, const QString& name,
                                             const ZipPieces* pieces = nullptr);
  /// Opens a file.
  static std::unique_ptr<TarTarget> inFile(const QString& name, const ZipPieces* pieces = nullptr);

  TarTarget(const TarTarget&) = delete;
  TarTarget& operator=(const TarTarget&) = delete;
  virtual ~TarTarget() = default;

  /// Room for the next bytes; take some of it by added().
  unsigned char* room() { return &_buffer[_filled]; }
  std::size_t roomSize() const { return bufferSize - _filled; }
  void added(std::size_t count);
  void write(const unsigned char* bytes, std::size_t count);
  /// Finishes the compression, once. Afterwards, as after a failure, everything else throws
  /// std::bad_alloc.
  void finish();
  /// Lets everything arrive that was written, but withholds the checksum at the end, without which
  /// nobody takes the archive for whole. Does nothing after finish() or a failure.
  void abandon();

 protected:
  TarTarget();
  /// How many bytes of what compresses the end are not to arrive.
  unsigned withheld() const { return _withheld; }

 private:
  static constexpr std::size_t bufferSize = 65536;

  virtual void compress(const unsigned char* bytes, unsigned count) = 0;
  virtual void complete() = 0;
  void send();
  void close();

  std::unique_ptr<unsigned char[]> _buffer;
  std::size_t _filled = 0;
  unsigned _withheld = 0;
  bool _closed = false;  // finished, or failed for good
  bool _finished = false;
};

}  // namespace Kyr

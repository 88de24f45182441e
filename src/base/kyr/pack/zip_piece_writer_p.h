/// \file
/// The content of a zip stream, written in pieces.
#pragma once

#include <kyr/pack/piece_packer_p.h>
#include <kyr/pack/zip_index_p.h>

#include <cstddef>
#include <functional>

namespace Kyr {

/// Writes all that stands behind a stream's header. After a failure nothing is written any more.
class ZipPieceWriter {
 public:
  /// Takes bytes for the file on the thread that calls this object.
  /// \return whether they could be written; throws nothing
  using Send = std::function<bool(const char* bytes, std::size_t count)>;

  /// \throws std::bad_alloc
  ZipPieceWriter(const ZipPieces& pieces, Send send);

  bool begin();
  /// Where to put the next pieceSize bytes of content.
  char* room() const { return reinterpret_cast<char*>(_packer.room()); }
  /// Hands over a piece that was put into room().
  bool add(std::size_t size) { return size == 0 || _packer.add(size); }
  /// Writes all that was handed over.
  bool settle() { return _packer.settle(); }
  /// The same, and the end of the stream and its index.
  bool finish();

 private:
  bool send(const PackedPiece& piece);

  const Send _send;
  ZipIndex _index;
  Checksums _checksums;
  PiecePacker _packer;
};

}  // namespace Kyr

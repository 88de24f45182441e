/// \file
/// A whole zlib stream or gzip member, written in pieces.
#pragma once

#include <kyr/pack/deflate_engine_p.h>
#include <kyr/pack/piece_packer_p.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace Kyr {

/// Cuts what is written into pieces, and sends them with what stands around them. The same bytes
/// give the same stream, whatever the sizes of the writes, for every number of workers. After a
/// failure nothing is sent any more.
/// \threadsafety one thread at a time
class PieceStream {
 public:
  /// Takes bytes of the stream, on the thread that calls this object. What it throws is a failure.
  using Send = std::function<bool(const unsigned char* bytes, std::size_t count)>;

  /// \param container Zlib or Gzip
  /// \throws std::bad_alloc
  PieceStream(Container_t container, const ZipPieces& pieces, Send send);

  /// \return false when something could not be compressed or sent
  bool write(const void* bytes, std::size_t count);
  /// Sends all that was written, and the end.
  /// \param withheld bytes of that which are not sent, at most the 8 of gzip's checksum and size
  /// \return as write()
  bool finish(std::size_t withheld = 0);

 private:
  bool add();
  bool take(const PackedPiece& piece);
  bool begin();
  bool send(const unsigned char* bytes, std::size_t count) noexcept;
  bool send(const std::string& bytes) noexcept;
  std::string end() const;

  const Container_t _container;
  const Send _send;
  Checksums _checksums;
  std::uint64_t _plainSize = 0;
  std::size_t _filled = 0;  // of the packer's room
  bool _hasBegun = false;
  bool _failed = false;
  PiecePacker _packer;
};

}  // namespace Kyr

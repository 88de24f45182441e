#include <kyr/pack/zip_piece_writer_p.h>

#include <kyr/pack/zip_header_p.h>

#include <cstring>
#include <new>
#include <utility>

namespace Kyr {

using ZipFormat::blockSize;
using ZipFormat::lengthSize;

namespace {

/// Puts the lengths of blocks between the bytes of a piece, the last first.
std::size_t cutIntoBlocks(unsigned char* bytes, std::size_t size) {
  const std::size_t blocks = (size + blockSize - 1) / blockSize;
  for (std::size_t i = blocks; i > 0; --i) {
    const std::size_t begin = (i - 1) * blockSize;
    const std::size_t length = i == blocks ? size - begin : blockSize;
    unsigned char* const block = bytes + begin + (i - 1) * lengthSize;
    std::memmove(block + lengthSize, bytes + begin, length);
    ZipFormat::storeUInt16(reinterpret_cast<char*>(block), static_cast<unsigned>(length));
  }
  return size + blocks * lengthSize;
}

static_assert((PieceDeflater::roomFor(pieceSize) / blockSize + 1) * lengthSize <=
              PiecePacker::frameRoom);

}  // namespace

ZipPieceWriter::ZipPieceWriter(const ZipPieces& pieces, Send send)
    : _send(std::move(send)), _packer(pieces, &cutIntoBlocks, [this](const PackedPiece& piece) {
        return this->send(piece);
      }) {
  _index.endPlace = ZipFormat::headerSize;
}

bool ZipPieceWriter::begin() {
  const std::string front = ZipIndex::front();
  _index.endPlace += front.size();
  return _send(front.data(), front.size());
}

bool ZipPieceWriter::send(const PackedPiece& piece) {
  try {
    _index.add(_index.endPlace, static_cast<std::uint32_t>(piece.plainSize), piece.checksums.crc);
  } catch (const std::bad_alloc&) {
    return false;
  }
  _checksums = combined(_checksums, piece.checksums, piece.plainSize);
  _index.endPlace += piece.size;
  return _send(reinterpret_cast<const char*>(piece.bytes), piece.size);
}

bool ZipPieceWriter::finish() {
  if (!settle()) {
    return false;
  }
  _index.adler = _checksums.adler;
  try {
    const std::string end = _index.end() + _index.encode();
    return _send(end.data(), end.size());
  } catch (const std::bad_alloc&) {
    return false;
  }
}

}  // namespace Kyr

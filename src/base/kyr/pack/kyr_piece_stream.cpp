#include <kyr/pack/piece_stream_p.h>

#include <algorithm>
#include <cstring>
#include <utility>

namespace Kyr {

namespace {

/// The headers of both formats. They tell of level 1 and name no system, so that every system
/// writes the same bytes.
const std::string zlibFront("\x78\x01", 2);
const std::string gzipFront("\x1F\x8B\x08\0\0\0\0\0\x04\xFF", 10);

std::string lowestFirst(std::uint32_t value) {
  return {static_cast<char>(value & 0xFFU), static_cast<char>((value >> 8U) & 0xFFU),
          static_cast<char>((value >> 16U) & 0xFFU), static_cast<char>(value >> 24U)};
}

std::string highestFirst(std::uint32_t value) {
  const std::string bytes = lowestFirst(value);
  return {bytes.rbegin(), bytes.rend()};
}

}  // namespace

PieceStream::PieceStream(Container_t container, const ZipPieces& pieces, Send send)
    : _container(container),
      _send(std::move(send)),
      _packer(pieces, nullptr, [this](const PackedPiece& piece) { return take(piece); }) {}

bool PieceStream::write(const void* bytes, std::size_t count) {
  const auto* next = static_cast<const unsigned char*>(bytes);
  for (std::size_t left = count; left > 0 && !_failed;) {
    const std::size_t portion = std::min(left, pieceSize - _filled);
    std::memcpy(_packer.room() + _filled, next, portion);
    next += portion;
    left -= portion;
    _filled += portion;
    _failed = _filled == pieceSize && !add();
  }
  return !_failed;
}

bool PieceStream::finish(std::size_t withheld) {
  _failed = _failed || !add() || !_packer.settle() || !begin();
  if (!_failed) {
    const std::string bytes = end();
    _failed = !send(bytes.substr(0, bytes.size() - withheld));
  }
  return !_failed;
}

bool PieceStream::add() {
  const std::size_t size = std::exchange(_filled, 0);
  return size == 0 || _packer.add(size);
}

bool PieceStream::take(const PackedPiece& piece) {
  _checksums = combined(_checksums, piece.checksums, piece.plainSize);
  _plainSize += piece.plainSize;
  return begin() && send(piece.bytes, piece.size);
}

bool PieceStream::begin() {
  return std::exchange(_hasBegun, true) ||
         send(_container == Container_t::Gzip ? gzipFront : zlibFront);
}

bool PieceStream::send(const unsigned char* bytes, std::size_t count) noexcept {
  try {
    return _send(bytes, count);
  } catch (...) {
    return false;
  }
}

bool PieceStream::send(const std::string& bytes) noexcept {
  return send(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size());
}

std::string PieceStream::end() const {
  const std::string final(reinterpret_cast<const char*>(emptyFinalBlock), sizeof(emptyFinalBlock));
  return final +
         (_container == Container_t::Gzip
              ? lowestFirst(_checksums.crc) + lowestFirst(static_cast<std::uint32_t>(_plainSize))
              : highestFirst(_checksums.adler));
}

}  // namespace Kyr

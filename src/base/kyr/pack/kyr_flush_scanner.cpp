#include <kyr/pack/flush_scanner_p.h>

#include <kyr/pack/zip_header_p.h>
#include <kyr/pack/zip_index_p.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <string_view>

namespace Kyr {

using ZipFormat::blockSize;
using ZipFormat::lengthSize;

namespace {

/// How a piece may end in the file: with the bytes of an empty stored block, between which the
/// length of the file's next block stands when that begins within them. If that block gets three
/// of the bytes, the last four are those of the first row again.
constexpr std::string_view pieceEnds[] = {
    {"\0\0\xFF\xFF", 4}, {"\0\0\2\0\xFF\xFF", 6}, {"\0\0\xFF\1\0\xFF", 6}};
constexpr std::size_t longestEnd = 6;
/// So many blocks in a row, each with a length that can be, random bytes do not hold.
constexpr int blocksEnough = 4;

bool endsPiece(std::string_view bytes) {
  return std::any_of(std::begin(pieceEnds), std::end(pieceEnds), [&](std::string_view end) {
    return bytes.size() >= end.size() && bytes.substr(bytes.size() - end.size()) == end;
  });
}

/// Whether bytes may begin with the length of a block; those that are too few may.
bool mayBeginBlock(std::string_view bytes) {
  const unsigned length = bytes.size() < lengthSize ? 1 : ZipFormat::loadUInt16(bytes.data());
  return length > 0 && length <= blockSize;
}

}  // namespace

/// The bytes of the window from a place on; those of the next window when it has too few for the
/// longest end of a piece.
std::string_view FlushScanner::bytesFrom(std::streamoff place) {
  constexpr std::size_t windowSize = 1U << 16U;
  const auto end = _place + static_cast<std::streamoff>(_size);
  const bool isHeld = place >= _place && place + std::streamoff{longestEnd} <= end;
  if (!isHeld) {
    _window.resize(windowSize);
    _place = place;
    _size = seekTo(_source, place) ? readFrom(_source, _window.data(), windowSize) : 0;
  }
  const auto skipped = static_cast<std::size_t>(place - _place);
  return std::string_view(_window.data(), _size).substr(skipped);
}

std::size_t FlushScanner::read(std::streamoff place, char* room, std::size_t count) {
  const auto end = _place + static_cast<std::streamoff>(_size);
  if (place >= _place && place + static_cast<std::streamoff>(count) <= end) {
    _window.copy(room, count, static_cast<std::size_t>(place - _place));
    return count;
  }
  return seekTo(_source, place) ? readFrom(_source, room, count) : 0;
}

bool FlushScanner::endsPiece(std::streamoff behind) {
  char bytes[longestEnd];
  return read(behind - std::streamoff{longestEnd}, bytes, longestEnd) == longestEnd &&
         Kyr::endsPiece(std::string_view(bytes, longestEnd));
}

/// Whether a place has full blocks, and then one that ends the piece, or the source's end.
bool FlushScanner::hasBlocks(std::streamoff place) {
  for (int i = 0; i < blocksEnough; ++i) {
    char bytes[lengthSize];
    if (read(place, bytes, lengthSize) < lengthSize) {
      return i > 0;
    }
    const unsigned length = ZipFormat::loadUInt16(bytes);
    if (length == 0 || length > blockSize) {
      return false;
    }
    place += std::streamoff{lengthSize} + length;
    if (length < blockSize) {
      return endsPiece(place);
    }
  }
  return true;
}

std::optional<std::uint64_t> FlushScanner::next(std::uint64_t from) {
  for (std::streamoff place = _start + static_cast<std::streamoff>(from);;) {
    const std::string_view bytes = bytesFrom(place);
    for (std::size_t at = bytes.find('\xFF'); at != std::string_view::npos;
         at = bytes.find('\xFF', at + 1)) {
      const auto behind = place + static_cast<std::streamoff>(at + 1);
      if (Kyr::endsPiece(bytes.substr(0, at + 1)) && mayBeginBlock(bytes.substr(at + 1)) &&
          hasBlocks(behind)) {
        return static_cast<std::uint64_t>(behind - _start);
      }
    }
    if (bytes.size() < longestEnd) {
      return std::nullopt;
    }
    place += static_cast<std::streamoff>(bytes.size() - longestEnd + 1);
  }
}

}  // namespace Kyr

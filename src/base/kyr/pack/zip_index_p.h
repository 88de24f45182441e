/// \file
/// The index behind the end mark of a zip stream that was written in pieces.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <streambuf>
#include <string>
#include <vector>

namespace Kyr {

/// All places are counted in bytes from the first one of the stream's header.
struct ZipIndex {
  struct Piece {
    std::uint64_t place = 0;       ///< of the length of its first block
    std::uint64_t plainPlace = 0;  ///< bytes of content in front of it
    std::uint32_t plainSize = 0;
    std::uint32_t crc = 0;  ///< of its plain bytes
  };

  /// \throws std::bad_alloc
  void add(std::uint64_t place, std::uint32_t plainSize, std::uint32_t crc);
  /// The bytes for the file.
  /// \throws std::bad_alloc
  std::string encode() const;
  /// Looks for the index at the end of a source, whose position may then be any.
  /// \param start where in the source the stream begins
  /// \return nothing when there is none, it is damaged, of another version, or does not fit the
  ///         stream
  /// \throws std::bad_alloc
  static std::optional<ZipIndex> find(std::streambuf& source, std::streamoff start);

  std::uint64_t sizeOf(std::size_t piece) const;
  /// The piece that holds a byte of the content; pieces.size() behind the last.
  std::size_t pieceAt(std::uint64_t plainPlace) const;
  std::size_t largestPiece() const;       ///< in bytes of the file
  std::size_t largestPlainPiece() const;  ///< in plain bytes

  /// What stands in front of the first piece: the zlib stream's header, in a block of its own.
  static std::string front();
  /// What stands behind the last: the end of the zlib stream in a block, and the end mark.
  std::string end() const;

  std::vector<Piece> pieces;
  std::uint64_t endPlace = 0;  ///< behind the last piece
  std::uint64_t plainSize = 0;
  std::uint32_t adler = 1;  ///< of the content
};

/// Moves a source to a place in front of which it may have failed.
/// \return whether it is there
bool seekTo(std::streambuf& source, std::streamoff place) noexcept;
/// Reads from a source, whatever it throws.
/// \return how many bytes there were
std::size_t readFrom(std::streambuf& source, char* room, std::size_t count) noexcept;
/// How many bytes a source has in all; nothing when it cannot be moved to other places.
std::optional<std::streamoff> endOf(std::streambuf& source) noexcept;
/// Where a source is; nothing when it cannot say so.
std::optional<std::streamoff> placeOf(std::streambuf& source) noexcept;

}  // namespace Kyr

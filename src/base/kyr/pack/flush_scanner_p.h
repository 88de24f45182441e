/// \file
/// The places in a stream without an index where pieces seem to begin.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <streambuf>
#include <string>
#include <string_view>

namespace Kyr {

/// Looks for places where deflate can be taken up: behind the end of a piece, followed by blocks as
/// a writer of pieces cuts them. Hostile bytes may hold such a place every few bytes: what was read
/// is kept, as if nobody else moved the source and nothing in it changed.
class FlushScanner {
 public:
  /// \param start where in the source the stream begins
  FlushScanner(std::streambuf& source, std::streamoff start) : _source(source), _start(start) {}

  /// \param from in bytes from the start, as is the result: of the length of a block
  /// \return nothing when there is no such place, or the source cannot be moved
  /// \throws std::bad_alloc
  std::optional<std::uint64_t> next(std::uint64_t from);

 private:
  std::string_view bytesFrom(std::streamoff place);
  std::size_t read(std::streamoff place, char* room, std::size_t count);
  bool endsPiece(std::streamoff behind);
  bool hasBlocks(std::streamoff place);

  std::streambuf& _source;
  const std::streamoff _start;
  std::string _window;
  std::streamoff _place = 0;  // of the window
  std::size_t _size = 0;      // of what was read into it
};

}  // namespace Kyr

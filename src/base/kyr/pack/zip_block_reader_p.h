/// \file
/// The blocks of a zip stream, taken out of their source.
#pragma once

#include <kyr/pack/zip_header_p.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <istream>
#include <memory>

namespace Kyr {

/// Reads up to \a count bytes, whatever the source is in and whether it throws.
/// \return how many there were
std::size_t readBytes(std::istream& source, char* room, std::size_t count);

/// Takes blocks out of a source, several at a time and without the lengths between them:
/// inflate is slow at both ends of its input.
class ZipBlockReader {
 public:
  static constexpr unsigned blocksAtOnce = 8;

  /// Why no block follows.
  enum class Stop_t {
    None,       ///< blocks may follow
    EndMark,    ///< a length of 0
    SourceEnd,  ///< the source ended within a length or a block
    BadLength,  ///< a length that no writer writes
    LastBlock,  ///< the source ended behind a full block, where streams need no end mark
  };

  /// \param source must outlive this object
  /// \param offset bytes of the stream that were read from it already
  /// \param firstBlocks how many to take the first time, at most blocksAtOnce; twice as many each
  ///        time after that
  /// \throws std::bad_alloc
  ZipBlockReader(std::istream& source, std::uint64_t offset, unsigned firstBlocks = blocksAtOnce);

  /// Replaces the input by the next blocks; of a block that is cut short, what is there.
  /// \return bytes of the new input; 0 when no block follows
  unsigned next();

  const char* input() const { return _input.get(); }
  Stop_t stop() const { return _stop; }
  std::uint64_t blocks() const { return _blocks; }
  std::uint64_t compressedBytes() const { return _compressedBytes; }
  /// Where in the stream the byte at a position of the input lies. Between two blocks, and in
  /// front of the first, the place of the length.
  std::uint64_t offsetOf(unsigned position) const;
  /// Where reading stopped: at the end mark or the bad length, or where the source ends.
  std::uint64_t endOffset() const { return _offset; }

 private:
  void readBlock();
  void takeBlock(unsigned length);

  std::istream& _source;
  const std::unique_ptr<char[]> _input;
  std::array<unsigned, blocksAtOnce> _lengths{};
  unsigned _atOnce;    ///< blocks to take
  unsigned _held = 0;  ///< blocks in the input
  unsigned _size = 0;  ///< bytes in the input
  Stop_t _stop = Stop_t::None;
  std::uint64_t _inputOffset = 0;  ///< of the first length of the input
  std::uint64_t _offset;
  std::uint64_t _blocks = 0;
  std::uint64_t _compressedBytes = 0;
  bool _lastIsFull = false;
};

}  // namespace Kyr

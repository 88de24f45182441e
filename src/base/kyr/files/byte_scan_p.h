/// \file
/// What the reader of keyed text takes from a stream at once, and what it sees in those bytes.
#pragma once

#include <kyr/os/os_stream_p.h>

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstring>

namespace Kyr::FileParse {

/// Room for a read, the final zero byte of fgets() included; so a read gives at most 4095 bytes.
constexpr std::size_t BufferSize = 4096;

/// What is in some text, as bits.
enum Content_t : unsigned { Plain = 0, HasTab = 1, HasBeyondAscii = 2 };

/// Collects what is in eight bytes; zero bytes count for nothing.
struct Look {
  void at(const char* bytes, std::size_t count) {
    constexpr std::uint64_t ones = 0x0101010101010101U;
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, count);
    const std::uint64_t zeroForTab = word ^ (ones * '\t');
    tabs |= (zeroForTab - ones) & ~zeroForTab;
    beyondAscii |= word;
  }
  unsigned content() const {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    return ((tabs & highBits) != 0 ? HasTab : Plain) |
           ((beyondAscii & highBits) != 0 ? HasBeyondAscii : Plain);
  }

  std::uint64_t tabs = 0;
  std::uint64_t beyondAscii = 0;
};

inline unsigned contentOf(const char* begin, std::size_t length) {
  constexpr std::size_t step = 8;
  Look look;
  if (length < step) {
    look.at(begin, length);
    return look.content();
  }
  for (std::size_t at = 0; at < length - step; at += step) {
    look.at(begin + at, step);
  }
  look.at(begin + length - step, step);  // may overlap; a loop over the rest costs more
  return look.content();
}

inline std::size_t lengthWithoutLineEnd(const char* bytes, std::size_t length) {
  while (length > 0 && (bytes[length - 1] == '\n' || bytes[length - 1] == '\r')) {
    --length;
  }
  return length;
}

/// Counts line feeds from the stream's position on, without the first byte.
std::int64_t countLineFeeds(std::FILE* stream);

/// What one read of the stream gave.
struct Read {
  std::size_t length = 0;  ///< up to the first zero byte, which may stand before the line end
  bool endsLine = false;   ///< false for the front part of a line longer than the buffer
};

/// Reads a line, or the next part of a long one.
/// \param bytes room for BufferSize bytes
/// \return false at the end of the stream and on a read error
inline bool readFrom(std::FILE* stream, char* bytes, Read* read) {
  bytes[BufferSize - 1] = 1;  // overwritten only by a read that fills the buffer
  if (stream == nullptr || !Stream::readLine(bytes, BufferSize, stream)) {
    return false;
  }
  read->length = std::strlen(bytes);
  read->endsLine = bytes[BufferSize - 1] != 0 || bytes[BufferSize - 2] == '\n';
  return true;
}

}  // namespace Kyr::FileParse

#include <kyr/pack/zip_block_reader_p.h>

#include <algorithm>

namespace Kyr {

using ZipFormat::blockSize;
using ZipFormat::lengthSize;

std::size_t readBytes(std::istream& source, char* room, std::size_t count) {
  if (source.fail()) {
    return 0;
  }
  try {
    source.read(room, static_cast<std::streamsize>(count));
  } catch (...) {
    // The source was told to throw. How much was read says whether it failed.
  }
  return static_cast<std::size_t>(source.gcount());
}

ZipBlockReader::ZipBlockReader(std::istream& source, std::uint64_t offset, unsigned firstBlocks)
    : _source(source),
      _input(new char[std::size_t{blocksAtOnce} * blockSize]),
      _atOnce(firstBlocks),
      _offset(offset) {}

unsigned ZipBlockReader::next() {
  _inputOffset = _offset;
  _held = 0;
  _size = 0;
  while (_stop == Stop_t::None && _held < _atOnce) {
    readBlock();
  }
  _atOnce = std::min(2 * _atOnce, blocksAtOnce);
  return _size;
}

void ZipBlockReader::readBlock() {
  char bytes[lengthSize];
  const std::size_t bytesRead = readBytes(_source, bytes, lengthSize);
  const unsigned length = bytesRead == lengthSize ? ZipFormat::loadUInt16(bytes) : 0;
  if (bytesRead < lengthSize) {
    _stop = bytesRead == 0 && _lastIsFull ? Stop_t::LastBlock : Stop_t::SourceEnd;
    _offset += bytesRead;
  } else if (length == 0) {
    _stop = Stop_t::EndMark;
  } else if (length > blockSize) {
    _stop = Stop_t::BadLength;
  } else {
    takeBlock(length);
  }
}

void ZipBlockReader::takeBlock(unsigned length) {
  const auto bytesRead = static_cast<unsigned>(readBytes(_source, &_input[_size], length));
  if (bytesRead < length) {
    _stop = Stop_t::SourceEnd;
  } else {
    ++_blocks;
  }
  _lastIsFull = bytesRead == blockSize;
  _lengths[_held++] = bytesRead;
  _size += bytesRead;
  _compressedBytes += bytesRead;
  _offset += lengthSize + bytesRead;
}

std::uint64_t ZipBlockReader::offsetOf(unsigned position) const {
  std::uint64_t offset = _inputOffset;
  unsigned left = position;
  for (unsigned i = 0; i < _held && left > 0; ++i) {
    const unsigned used = std::min(left, _lengths[i]);
    offset += lengthSize + used;
    left -= used;
  }
  return offset;
}

}  // namespace Kyr

#include <kyr/files/unfinished_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/pack/KyrZipStream.h>
#include <kyr/pack/deflate_engine_p.h>
#include <kyr/pack/zip_header_p.h>
#include <kyr/pack/zip_piece_writer_p.h>
#include <kyr/time/KyrTime.h>

#include <algorithm>

namespace Kyr {

using ZipFormat::blockSize;
using ZipFormat::lengthSize;

namespace {
constexpr std::streamsize areaSize = blockSize;
}

ZipOutStreamBuffer::ZipOutStreamBuffer(const QString& fileName, unsigned fileVersion)
    : _file(std::make_unique<std::ofstream>()), _target(_file.get()) {
  _traced.setDetail(fileName);
  OS::openStdStream(*_file, fileName, OS::OpenWrite, false);
  start(fileVersion, nullptr);
}

ZipOutStreamBuffer::ZipOutStreamBuffer(std::ostream* target, unsigned fileVersion)
    : _target(target) {
  start(fileVersion, nullptr);
}

ZipOutStreamBuffer::ZipOutStreamBuffer(const QString& fileName, unsigned fileVersion,
                                       const ZipPieces& pieces)
    : _file(std::make_unique<std::ofstream>()), _target(_file.get()) {
  _traced.setDetail(fileName);
  OS::openStdStream(*_file, fileName, OS::OpenWrite, false);
  start(fileVersion, &pieces);
}

ZipOutStreamBuffer::ZipOutStreamBuffer(std::ostream* target, unsigned fileVersion,
                                       const ZipPieces& pieces)
    : _target(target) {
  start(fileVersion, &pieces);
}

ZipOutStreamBuffer::~ZipOutStreamBuffer() {
  if (std::uncaught_exceptions() > _exceptionsBefore) {
    abandon();
  } else {
    close();
  }
}

void ZipOutStreamBuffer::start(unsigned fileVersion, const ZipPieces* pieces) {
  const ZipFormat::Header header =
      ZipFormat::makeHeader(fileVersion, Time::currentTime().wholeSeconds());
  if (!_target || !send(header.data(), header.size())) {
    release();
    return;
  }
  if (pieces && !startPieces(*pieces)) {
    release();
    return;
  }
  if (!pieces) {
    _putArea = std::make_unique<char[]>(blockSize);
    _block = std::make_unique<char[]>(lengthSize + blockSize + lengthSize);
    _engine = DeflateEngine::make(Container_t::Zlib);
    provideRoom();
    setp(_putArea.get(), _putArea.get() + blockSize);
  }
  Unfinished::mark(*_target);
  _failed = false;
}

bool ZipOutStreamBuffer::startPieces(const ZipPieces& pieces) {
  const auto sendAll = [this](const char* bytes, std::size_t count) { return send(bytes, count); };
  _pieces = std::make_unique<ZipPieceWriter>(pieces, sendAll);
  setp(_pieces->room(), _pieces->room() + pieceSize);
  return _pieces->begin();
}

/// Hands the put area over and gets another one.
bool ZipOutStreamBuffer::addPiece() {
  const auto size = static_cast<std::size_t>(pptr() - pbase());
  _failed = !_pieces->add(size);
  _failed ? setp(nullptr, nullptr) : setp(_pieces->room(), _pieces->room() + pieceSize);
  return !_failed;
}

bool ZipOutStreamBuffer::isOpen() const {
  return _target && !_failed;
}

bool ZipOutStreamBuffer::close() {
  if (isOpen()) {
    _failed = !(finish() && settleTarget());
    if (!_failed) {
      Unfinished::clear(*_target);
    }
  }
  release();
  return !_failed;
}

/// Promises a block that does not come: some readers take the end of the source between two blocks
/// for the end of the stream. For those who salvage what there is, all of it comes before.
void ZipOutStreamBuffer::abandon() {
  if (isOpen()) {
    if (_pieces) {
      addPiece() && _pieces->settle();
    } else {
      sendWhatIsHeld();
    }
    char promise[lengthSize];
    ZipFormat::storeUInt16(promise, blockSize);
    send(promise, lengthSize);
    _failed = true;
  }
  release();
}

void ZipOutStreamBuffer::sendWhatIsHeld() {
  _engine->setInput(pbase(), static_cast<unsigned>(pptr() - pbase()));
  unsigned length = 0;
  do {
    _engine->flush();
    length = blockSize - _engine->outputLeft();
    if (length > 0) {
      sendBlock(length, false);
    }
    provideRoom();
  } while (length == blockSize);
}

void ZipOutStreamBuffer::release() {
  setp(nullptr, nullptr);
  _target = nullptr;
  _pieces.reset();
  _file.reset();
  _traced.end();
}

ZipOutStreamBuffer::int_type ZipOutStreamBuffer::overflow(int_type character) {
  if (!isOpen() || !compressPutArea(false)) {
    return traits_type::eof();
  }
  if (traits_type::eq_int_type(character, traits_type::eof())) {
    return traits_type::not_eof(character);
  }
  return sputc(traits_type::to_char_type(character));
}

int ZipOutStreamBuffer::sync() {
  if (isOpen() && !_pieces && pptr() > pbase()) {
    compressPutArea(false);
  }
  return _failed ? -1 : 0;
}

std::streamsize ZipOutStreamBuffer::xsputn(const char* bytes, std::streamsize count) {
  std::streamsize done = 0;
  while (done < count && isOpen()) {
    // A put area that is just full waits for the next byte, whoever fills it: the pieces that
    // deflate sees, and with them the file, do not depend on the sizes of the writes.
    const std::streamsize left = count - done;
    if (pptr() == epptr()) {
      compressPutArea(false);
    } else if (!_pieces && pptr() == pbase() && left > areaSize) {
      done += compress(bytes + done, blockSize, false) ? areaSize : 0;
    } else {
      const std::streamsize room = std::min<std::streamsize>(left, epptr() - pptr());
      store(bytes + done, room);
      done += room;
    }
  }
  return done;
}

bool ZipOutStreamBuffer::compressPutArea(bool finish) {
  if (_pieces) {
    return addPiece() && (!finish || _pieces->finish());
  }
  const auto length = static_cast<unsigned>(pptr() - pbase());
  setp(pbase(), epptr());
  return compress(pbase(), length, finish);
}

bool ZipOutStreamBuffer::compress(const char* bytes, unsigned length, bool finish) {
  _engine->setInput(bytes, length);
  Step_t step = _engine->run(finish);
  while (_engine->outputLeft() == 0 && sendBlock(blockSize, false)) {
    provideRoom();
    step = _engine->run(finish);
  }
  const bool blockIsStuck = _engine->outputLeft() == 0;
  if (blockIsStuck || step != (finish ? Step_t::Ended : Step_t::Progressed)) {
    _failed = true;
    setp(nullptr, nullptr);
  }
  return !_failed;
}

bool ZipOutStreamBuffer::finish() {
  const bool isCompressed = compressPutArea(true);
  if (!isCompressed || _pieces) {
    return isCompressed;
  }
  const unsigned length = blockSize - _engine->outputLeft();
  // Readers know the end of a stream that ends with a full block; it gets no end mark.
  return length == 0 || sendBlock(length, true);
}

void ZipOutStreamBuffer::provideRoom() {
  _engine->setOutput(&_block[lengthSize], blockSize);
}

bool ZipOutStreamBuffer::sendBlock(unsigned length, bool withEndMark) {
  ZipFormat::storeUInt16(&_block[0], length);
  ZipFormat::storeUInt16(&_block[lengthSize + length], 0);
  return send(_block.get(), lengthSize + length + (withEndMark ? lengthSize : 0));
}

bool ZipOutStreamBuffer::send(const char* bytes, std::size_t count) {
  try {
    // Not fail(): a stream that was read to its end takes nothing, and does not call that a
    // failure.
    return _target->write(bytes, static_cast<std::streamsize>(count)).good();
  } catch (...) {
    return false;  // a target that was told to throw
  }
}

/// Brings to light what the target still holds back.
bool ZipOutStreamBuffer::settleTarget() {
  try {
    if (_file) {
      _file->close();
    }
    return _file ? _file->good() : _target->flush().good();
  } catch (...) {
    return false;
  }
}

ZipOutStream::ZipOutStream(const QString& fileName, unsigned fileVersion)
    : std::ostream(nullptr), _buffer(std::make_unique<ZipOutStreamBuffer>(fileName, fileVersion)) {
  start();
}

ZipOutStream::ZipOutStream(std::ostream* target, unsigned fileVersion)
    : std::ostream(nullptr), _buffer(std::make_unique<ZipOutStreamBuffer>(target, fileVersion)) {
  start();
}

ZipOutStream::ZipOutStream(const QString& fileName, unsigned fileVersion, const ZipPieces& pieces)
    : std::ostream(nullptr),
      _buffer(std::make_unique<ZipOutStreamBuffer>(fileName, fileVersion, pieces)) {
  start();
}

ZipOutStream::ZipOutStream(std::ostream* target, unsigned fileVersion, const ZipPieces& pieces)
    : std::ostream(nullptr),
      _buffer(std::make_unique<ZipOutStreamBuffer>(target, fileVersion, pieces)) {
  start();
}

ZipOutStream::~ZipOutStream() = default;

void ZipOutStream::start() {
  rdbuf(_buffer.get());
  if (!_buffer->isOpen()) {
    setstate(badbit);
  }
}

void ZipOutStream::close() {
  if (!_buffer->close()) {
    setstate(badbit);
  }
}

void ZipOutStream::abandon() {
  _buffer->abandon();
  close();
}

}  // namespace Kyr

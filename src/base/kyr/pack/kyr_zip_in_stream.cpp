#include <kyr/core/KyrVersion.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/i18n/KyrTranslator.h>
#include <kyr/os/KyrOS.h>
#include <kyr/pack/KyrZipStream.h>
#include <kyr/pack/deflate_engine_p.h>
#include <kyr/pack/zip_block_reader_p.h>
#include <kyr/pack/zip_header_p.h>

#include <QCoreApplication>

#include <algorithm>
#include <cstring>
#include <limits>
#include <utility>

namespace Kyr {

using ZipFormat::blockSize;
using ZipFormat::lengthSize;

namespace {

constexpr std::streamsize areaSize = blockSize;

constexpr const char* unreadable =
    QT_TRANSLATE_NOOP("Kyr_zip_err", "cannot read zip stream header");
constexpr const char* invalid = QT_TRANSLATE_NOOP("Kyr_zip_err", "invalid zip stream header");
constexpr const char* transferred =
    QT_TRANSLATE_NOOP("Kyr_zip_err",
                      "invalid header: the file was transferred by ascii-ftp.\n"
                      "it must be transferred by binary-ftp.");
constexpr const char* newer = QT_TRANSLATE_NOOP(
    "Kyr_zip_err",
    "invalid file version: %1. the file is newer than the actual program version: %2");
constexpr const char* unknownVersion = QT_TRANSLATE_NOOP("Kyr_zip_err", "unknown file version");

/// Files are also read before the translator is there and after its end; a bad one among them
/// must not end an application, as Kyr::translate() would.
QString translated(const char* text) {
  return Translator::instance() ? translate("Kyr_zip_err", text) : QString::fromUtf8(text);
}

QString newerFileText(const QString& writer) {
  // Both at once: the text from the file may itself hold a placeholder.
  return translated(newer).arg(writer.isEmpty() ? translated(unknownVersion) : writer,
                               QString::fromLatin1(libraryVersion()));
}

/// Bytes in memory as the source of a stream.
class MemoryBuffer : public std::streambuf {
 public:
  explicit MemoryBuffer(const std::vector<char>& bytes) {
    char* const begin = const_cast<char*>(bytes.data());  // only ever read
    setg(begin, begin, begin + bytes.size());
  }
};

}  // namespace

ZipInStreamBuffer::ZipInStreamBuffer(const QString& fileName, unsigned newestVersion)
    : _file(std::make_unique<std::ifstream>()), _source(_file.get()) {
  OS::openStdStream(*_file, fileName, OS::OpenRead, true);
  start(newestVersion);
}

ZipInStreamBuffer::ZipInStreamBuffer(std::istream* source, unsigned newestVersion)
    : _source(source) {
  start(newestVersion);
}

ZipInStreamBuffer::~ZipInStreamBuffer() = default;

void ZipInStreamBuffer::start(unsigned newestVersion) {
  readHeader(newestVersion);
  if (_headerError == ZipInStream::HeaderGood) {
    _getArea = std::make_unique<char[]>(blockSize);
    _aheadArea = std::make_unique<char[]>(blockSize);
    _blocks = std::make_unique<ZipBlockReader>(*_source, _offset);
    _engine = std::make_unique<InflateEngine>(Container::Zlib);
  }
}

// The older form of the header has another mark in front; no reader for it exists, so it is as
// invalid as any other bytes.
void ZipInStreamBuffer::readHeader(unsigned newestVersion) {
  ZipFormat::Header header;
  _offset = _source ? readBytes(*_source, header.data(), header.size()) : 0;
  if (_offset < header.size()) {
    return refuse(ZipInStream::HeaderUnreadable, translated(unreadable));
  }
  if (!ZipFormat::constantBlockFits(header.data(), header.size())) {
    return refuse(ZipInStream::HeaderInvalid, translated(invalid));
  }
  // Before the fields behind it, which a text-mode transfer has moved or changed as well.
  if (!ZipFormat::transferCheckFits(header.data(), header.size())) {
    return refuse(ZipInStream::HeaderInvalid, translated(transferred));
  }
  if (!ZipFormat::sizeFieldFits(header.data(), header.size())) {
    return refuse(ZipInStream::HeaderInvalid, translated(invalid));
  }
  _headerInfo = ZipFormat::describe(header);
  if (_headerInfo.fileVersion > newestVersion) {
    refuse(ZipInStream::HeaderFromNewer, newerFileText(_headerInfo.libraryVersion));
  }
}

void ZipInStreamBuffer::refuse(ZipInStream::HeaderError_t error, const QString& text) {
  _headerError = error;
  _headerErrorText = text;
  _state = ZipInStream::StreamRefused;
  _source = nullptr;
  _file.reset();
}

ZipInStreamBuffer::int_type ZipInStreamBuffer::underflow() {
  if (gptr() < egptr()) {
    return traits_type::to_int_type(*gptr());
  }
  const bool hasMore = fillGetArea();
  if (isFaulty() && _reader) {
    _reader->setstate(hasMore ? std::ios_base::badbit
                              : std::ios_base::badbit | std::ios_base::eofbit);
  }
  return hasMore ? traits_type::to_int_type(*gptr()) : traits_type::eof();
}

std::streamsize ZipInStreamBuffer::xsgetn(char* room, std::streamsize count) {
  std::streamsize done = 0;
  bool hasMore = true;
  bool hasFilled = false;
  while (done < count && hasMore) {
    const std::streamsize left = count - done;
    if (gptr() < egptr()) {
      const std::streamsize length = std::min<std::streamsize>(left, egptr() - gptr());
      fetch(room + done, length);
      done += length;
      continue;
    }
    hasFilled = true;
    if (left < areaSize) {
      hasMore = fillGetArea();
    } else {
      const std::streamsize length = fillAreas(room + done, left);
      done += length;
      hasMore = length > 0;
    }
  }
  if (hasFilled && isFaulty()) {
    reportFault(done, count);
  }
  return done;
}

/// Decompresses whole areas straight to the caller; he gets the last part out of the get area.
std::streamsize ZipInStreamBuffer::fillAreas(char* room, std::streamsize count) {
  std::size_t done = takeAhead();
  std::copy_n(_aheadArea.get(), done, room);
  done += produce(room + done, (static_cast<std::size_t>(count) - done) / blockSize * blockSize);
  lookAhead();
  if (done > 0) {
    keepForUnget(room[done - 1]);
  }
  return static_cast<std::streamsize>(done);
}

bool ZipInStreamBuffer::fillGetArea() {
  const std::size_t length = takeAhead();
  std::swap(_getArea, _aheadArea);
  char* const area = _getArea.get();
  setg(area, area, area + length);
  lookAhead();
  return length > 0;
}

/// Keeps one area in hand: who reads only the bytes that he expects has met the end of the stream
/// with the last of them, and with it a wrong checksum.
void ZipInStreamBuffer::lookAhead() {
  _aheadSize = produce(_aheadArea.get(), blockSize);
}

/// \return how many bytes are in hand; the first time there are none yet
std::size_t ZipInStreamBuffer::takeAhead() {
  if (_aheadSize == 0) {
    lookAhead();
  }
  return _aheadSize;
}

/// Bytes that went straight to the caller must not leave older ones to unget().
void ZipInStreamBuffer::keepForUnget(char last) {
  char* const area = _getArea.get();
  *area = last;
  setg(area, area + 1, area + 1);
}

bool ZipInStreamBuffer::isFaulty() const {
  return _state != ZipInStream::StreamOpen && _state != ZipInStream::StreamComplete;
}

/// Tells the stream of the fault that was met on the way to the bytes that it gets now.
void ZipInStreamBuffer::reportFault(std::streamsize delivered, std::streamsize wanted) {
  try {
    if (_reader) {
      _reader->setstate(std::ios_base::badbit);
    }
  } catch (const std::ios_base::failure&) {
    // Given less than it wanted, the operation at work throws it again, once it has counted.
    if (delivered == wanted) {
      ZipInStream::setCount(*_reader, delivered, 0);
      throw;
    }
  }
}

std::size_t ZipInStreamBuffer::produce(char* room, std::size_t length) {
  if (_state != ZipInStream::StreamOpen) {
    return 0;
  }
  const auto portion =
      static_cast<unsigned>(std::min<std::size_t>(length, std::numeric_limits<unsigned>::max()));
  _engine->setOutput(room, portion);
  while (_state == ZipInStream::StreamOpen && _engine->outputLeft() > 0) {
    if (_needsInput) {
      provideInput();
    } else {
      inflateOnce();
    }
  }
  const unsigned produced = portion - _engine->outputLeft();
  _plainBytes += produced;
  return produced;
}

void ZipInStreamBuffer::inflateOnce() {
  const Step step = _engine->run();
  const unsigned inputLeft = _engine->inputLeft();
  _ended = step == Step::Ended;
  _offset = _blocks->offsetOf(_inputSize - inputLeft);
  // Room that is used up may leave bytes waiting within inflate, without any input.
  _needsInput = _ended || (inputLeft == 0 && _engine->outputLeft() > 0);
  const bool stuck = step != Step::Progressed && inputLeft > 0;
  if (stuck || step == Step::Failed) {
    _state = ZipInStream::StreamDamaged;
  }
}

void ZipInStreamBuffer::provideInput() {
  _inputSize = _blocks->next();
  if (_inputSize == 0) {
    judgeEnd();
  } else if (_ended) {
    _state = ZipInStream::StreamDamaged;
  } else {
    _engine->setInput(_blocks->input(), _inputSize);
    _needsInput = false;
  }
}

void ZipInStreamBuffer::judgeEnd() {
  using Stop = ZipBlockReader::Stop;
  const Stop stop = _blocks->stop();
  const bool endMark = stop == Stop::EndMark;
  _offset = _blocks->endOffset();
  if (_ended && (endMark || stop == Stop::LastBlock)) {
    _offset += endMark ? lengthSize : 0;
    _state = ZipInStream::StreamComplete;
  } else {
    _state = endMark || stop == Stop::BadLength ? ZipInStream::StreamDamaged
                                                : ZipInStream::StreamCutShort;
  }
}

ZipStatistics ZipInStreamBuffer::statistics() const {
  ZipStatistics statistics;
  if (_blocks) {
    statistics.blocks = _blocks->blocks();
    statistics.compressedBytes = _blocks->compressedBytes();
  }
  statistics.plainBytes = _plainBytes;
  statistics.offset = _offset;
  return statistics;
}

ZipInStream::ZipInStream(const QString& fileName, unsigned newestVersion)
    : std::istream(nullptr), _buffer(std::make_unique<ZipInStreamBuffer>(fileName, newestVersion)) {
  start();
}

ZipInStream::ZipInStream(std::istream* source, unsigned newestVersion)
    : std::istream(nullptr), _buffer(std::make_unique<ZipInStreamBuffer>(source, newestVersion)) {
  start();
}

ZipInStream::~ZipInStream() = default;

void ZipInStream::start() {
  rdbuf(_buffer.get());
  _buffer->_reader = this;
  if (getHeaderError() != HeaderGood) {
    setstate(badbit | eofbit);
  }
}

ZipInStream::HeaderError_t ZipInStream::getHeaderError() const {
  return _buffer->headerError();
}

QString ZipInStream::getHeaderErrorText() const {
  return _buffer->headerErrorText();
}

ZipHeaderInfo ZipInStream::getHeaderInfo() const {
  return _buffer->headerInfo();
}

ZipInStream::State_t ZipInStream::getState() const {
  return _buffer->state();
}

ZipStatistics ZipInStream::getStatistics() const {
  return _buffer->statistics();
}

bool ZipInStream::isZipStream(const std::vector<char>& bytes) {
  const char* const begin = bytes.data();
  const std::size_t count = bytes.size();
  return ZipFormat::beginsWithOlderMark(begin, count) ||
         (count >= ZipFormat::certainSize && ZipFormat::constantBlockFits(begin, count) &&
          ZipFormat::transferCheckFits(begin, count) && ZipFormat::sizeFieldFits(begin, count));
}

bool ZipInStream::decompressHeader(const std::vector<char>& in, std::vector<char>& out) {
  return decompressHeader(in, out, mostHeaderBytes);
}

bool ZipInStream::decompressHeader(const std::vector<char>& in, std::vector<char>& out,
                                   std::size_t limit) {
  MemoryBuffer bytes(in);
  std::istream source(&bytes);
  ZipInStreamBuffer stream(&source, std::numeric_limits<unsigned>::max());
  std::vector<char> plain;
  char piece[blockSize];
  std::size_t length = 1;
  while (length > 0 && plain.size() < limit) {
    const std::size_t most = std::min(sizeof(piece), limit - plain.size());
    length = static_cast<std::size_t>(stream.sgetn(piece, static_cast<std::streamsize>(most)));
    plain.insert(plain.end(), piece, piece + length);
  }
  out.swap(plain);
  return stream.headerError() == HeaderGood && stream.state() != StreamDamaged;
}

}  // namespace Kyr

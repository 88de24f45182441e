#include <kyr/core/KyrVersion.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/i18n/KyrTranslator.h>
#include <kyr/os/KyrOS.h>
#include <kyr/pack/KyrZipStream.h>
#include <kyr/pack/deflate_engine_p.h>
#include <kyr/pack/zip_block_reader_p.h>
#include <kyr/pack/zip_header_p.h>
#include <kyr/pack/zip_piece_reader_p.h>

#include <QCoreApplication>

#include <algorithm>
#include <cstring>
#include <limits>
#include <optional>
#include <stdexcept>
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
  // Both places are filled at once: the text from the file may itself hold a placeholder.
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

/// Where a stream keeps what gcount() gives, also through a std::istream&. The member is
/// libstdc++'s, fixed by its ABI; with another standard library read() takes no short cut. It is
/// worth it: records of 12 bytes that compress well take twice as long through std::istream.
struct KYR_HIDDEN ZipInStream::Count {
  template <class Stream>
  static auto of(Stream& stream, int) -> decltype(&stream._M_gcount) {
    return &stream._M_gcount;
  }
  template <class Stream>
  static std::streamsize* of(Stream&, long) {
    return nullptr;
  }
};

ZipInStreamBuffer::ZipInStreamBuffer(const QString& fileName, unsigned newestVersion)
    : _file(std::make_unique<std::ifstream>()), _source(_file.get()) {
  _traced.setDetail(fileName);
  OS::openStdStream(*_file, fileName, OS::OpenRead, true);
  start(newestVersion);
}

ZipInStreamBuffer::ZipInStreamBuffer(std::istream* source, unsigned newestVersion)
    : _source(source) {
  start(newestVersion);
}

ZipInStreamBuffer::~ZipInStreamBuffer() = default;

void ZipInStreamBuffer::start(unsigned newestVersion) {
  std::streambuf* const buffer = _source && !_source->fail() ? _source->rdbuf() : nullptr;
  const std::streamoff place = buffer ? placeOf(*buffer).value_or(-1) : -1;
  // The index is looked for before anything is read: a pipe that claims to be movable loses what it
  // has read ahead.
  std::optional<ZipIndex> index = place < 0 ? std::nullopt : ZipIndex::find(*buffer, place);
  if (place >= 0 && placeOf(*buffer) != place && !seekTo(*buffer, place)) {
    return refuse(ZipInStream::HeaderUnreadable, translated(unreadable));
  }
  readHeader(newestVersion);
  if (_headerError != ZipInStream::HeaderGood) {
    return;
  }
  _getArea = std::make_unique<char[]>(blockSize);
  _aheadArea = std::make_unique<char[]>(blockSize);
  if (index) {
    _pieces = std::make_unique<ZipPieceReader>(*buffer, place, *std::move(index));
  } else {
    _blocks = std::make_unique<ZipBlockReader>(*_source, _offset);
    _engine = InflateEngine::make(Container_t::Zlib);
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
  // The check bytes come before the fields behind them, which a transfer in text mode has moved or
  // changed as well.
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
  _aheadSize = static_cast<std::uint16_t>(produce(_aheadArea.get(), blockSize));
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
    // An operation of std::istream that gets fewer bytes than it wanted counts them, and then
    // throws by itself; one that gets them all would not.
    if (delivered == wanted) {
      if (_count) {
        *_count = delivered;
      }
      throw;
    }
  }
}

std::size_t ZipInStreamBuffer::produce(char* room, std::size_t length) {
  if (_state != ZipInStream::StreamOpen) {
    return 0;
  }
  if (_pieces) {
    return producePieces(room, length);
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

std::size_t ZipInStreamBuffer::producePieces(char* room, std::size_t length) {
  std::size_t done = 0;
  while (done < length && _state == ZipInStream::StreamOpen) {
    const ZipPieceReader::View* const piece = _pieces->front();
    if (!piece) {
      judgeFrame();
      continue;
    }
    _offset = _pieces->index().pieces[piece->number].place;
    if (!piece->isGood) {
      _state = piece->isRead ? ZipInStream::StreamDamaged : ZipInStream::StreamUnreadable;
      continue;
    }
    const std::size_t portion = std::min(length - done, piece->size - _inPiece);
    std::memcpy(room + done, piece->bytes + _inPiece, portion);
    done += portion;
    _inPiece += portion;
    if (_inPiece == piece->size) {
      _offset += _pieces->index().sizeOf(piece->number);
      _pieceBlocks += piece->blocks;
      _pieceBytes += piece->compressedBytes;
      _pieces->pop();
      _inPiece = 0;
    }
  }
  _plainBytes += done;
  _position += done;
  return done;
}

/// The pieces are good: what remains is what other readers need around them.
void ZipInStreamBuffer::judgeFrame() {
  const ZipIndex& index = _pieces->index();
  using Frame_t = ZipPieceReader::Frame_t;
  const Frame_t front = _pieces->judgeFront();
  const bool isFrontGood = front == Frame_t::Good;
  const Frame_t worst = isFrontGood ? _pieces->judgeEnd() : front;
  _state = worst == Frame_t::Good  ? ZipInStream::StreamComplete
           : worst == Frame_t::Bad ? ZipInStream::StreamDamaged
                                   : ZipInStream::StreamUnreadable;
  _offset = !isFrontGood ? ZipFormat::headerSize : index.endPlace;
  if (_state == ZipInStream::StreamComplete) {
    _offset += index.end().size();
    _pieceBlocks += 2;  // which hold the two ends of the zlib stream, without the end mark
    _pieceBytes += ZipIndex::front().size() + index.end().size() - std::size_t{3} * lengthSize;
  }
}

void ZipInStreamBuffer::setWorkers(const ZipPieces& pieces) {
  if (_pieces) {
    _pieces->setWorkers(pieces);
  }
}

ZipInStreamBuffer::pos_type ZipInStreamBuffer::seekoff(off_type offset, std::ios_base::seekdir from,
                                                       std::ios_base::openmode which) {
  const pos_type refused(off_type(-1));
  if (!_pieces || !(which & std::ios_base::in)) {
    return refused;
  }
  const auto here = static_cast<off_type>(_position - _aheadSize) - (egptr() - gptr());
  const auto end = static_cast<off_type>(_pieces->index().plainSize);
  const off_type base = from == std::ios_base::beg ? 0 : from == std::ios_base::cur ? here : end;
  if (offset < -base || offset > end - base) {
    return refused;
  }
  const bool isQuestion = from == std::ios_base::cur && offset == 0;
  if (!isQuestion) {
    goTo(static_cast<std::uint64_t>(base + offset));
  }
  return base + offset;
}

ZipInStreamBuffer::pos_type ZipInStreamBuffer::seekpos(pos_type position,
                                                       std::ios_base::openmode which) {
  return seekoff(off_type(position), std::ios_base::beg, which);
}

void ZipInStreamBuffer::goTo(std::uint64_t position) {
  const ZipIndex& index = _pieces->index();
  const std::size_t piece = index.pieceAt(position);
  const bool isInPiece = piece < index.pieces.size();
  _pieces->goTo(piece);
  _inPiece = isInPiece ? static_cast<std::size_t>(position - index.pieces[piece].plainPlace) : 0;
  _offset = isInPiece ? index.pieces[piece].place : index.endPlace;
  _position = position;
  _aheadSize = 0;
  _state = ZipInStream::StreamOpen;
  setg(nullptr, nullptr, nullptr);
}

void ZipInStreamBuffer::inflateOnce() {
  const Step_t step = _engine->run();
  const unsigned inputLeft = _engine->inputLeft();
  _ended = step == Step_t::Ended;
  _offset = _blocks->offsetOf(_inputSize - inputLeft);
  // Room that is used up may leave bytes waiting within inflate, without any input.
  _needsInput = _ended || (inputLeft == 0 && _engine->outputLeft() > 0);
  const bool stuck = step != Step_t::Progressed && inputLeft > 0;
  if (stuck || step == Step_t::Failed) {
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
  using Stop_t = ZipBlockReader::Stop_t;
  const Stop_t stop = _blocks->stop();
  const bool endMark = stop == Stop_t::EndMark;
  _offset = _blocks->endOffset();
  if (_ended && (endMark || stop == Stop_t::LastBlock)) {
    _offset += endMark ? lengthSize : 0;
    _state = ZipInStream::StreamComplete;
  } else {
    _state = endMark || stop == Stop_t::BadLength ? ZipInStream::StreamDamaged
                                                  : ZipInStream::StreamCutShort;
  }
}

ZipStatistics ZipInStreamBuffer::statistics() const {
  ZipStatistics statistics;
  if (_blocks) {
    statistics.blocks = _blocks->blocks();
    statistics.compressedBytes = _blocks->compressedBytes();
  }
  if (_pieces) {
    statistics.hasIndex = true;
    statistics.pieces = _pieces->index().pieces.size();
    statistics.blocks = _pieceBlocks;
    statistics.compressedBytes = _pieceBytes;
  }
  statistics.plainBytes = _plainBytes;
  statistics.offset = _offset;
  return statistics;
}

ZipPieceInfo ZipInStreamBuffer::piece(std::uint64_t number) const {
  if (number >= statistics().pieces) {
    throw std::out_of_range("a piece that no zip stream has");
  }
  const ZipIndex& index = _pieces->index();
  const auto at = static_cast<std::size_t>(number);
  const ZipIndex::Piece& piece = index.pieces[at];
  return {piece.place, index.sizeOf(at), piece.plainPlace, piece.plainSize, piece.crc};
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
  _buffer->_count = Count::of(*this, 0);
  if (getHeaderError() != HeaderGood) {
    setstate(badbit | eofbit);
  }
}

void ZipInStream::setWorkers(const ZipPieces& pieces) {
  _buffer->setWorkers(pieces);
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

ZipPieceInfo ZipInStream::getPiece(std::uint64_t number) const {
  return _buffer->piece(number);
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

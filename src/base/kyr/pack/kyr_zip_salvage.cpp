#include <kyr/pack/KyrZipSalvage.h>

#include <kyr/os/KyrOS.h>
#include <kyr/pack/deflate_engine_p.h>
#include <kyr/pack/flush_scanner_p.h>
#include <kyr/pack/zip_block_reader_p.h>
#include <kyr/pack/zip_header_p.h>
#include <kyr/pack/zip_index_p.h>
#include <kyr/pack/zip_piece_reader_p.h>

#include <algorithm>
#include <fstream>
#include <limits>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

namespace Kyr {

namespace {

constexpr unsigned anyVersion = std::numeric_limits<unsigned>::max();
constexpr unsigned partSize = 262144;

/// Decompresses from a place on where a piece begins, without any checks but those of deflate.
class LooseEnd {
 public:
  LooseEnd(std::streambuf& source, std::uint64_t offset)
      : _source(&source),
        _blocks(_source, offset, 1),  // most often it is no piece that seems to begin
        _engine(InflateEngine::make(Container_t::None)),
        _offset(offset) {}

  /// \return how many bytes; fewer than \a size only at the end
  std::size_t read(char* room, unsigned size) {
    _engine->setOutput(room, size);
    while (!_ended && _engine->outputLeft() > 0) {
      step();
    }
    return size - _engine->outputLeft();
  }

  /// Whether the stream ends here, or its source does.
  bool isLast() const { return _isLast; }
  bool isCutShort() const { return _isCutShort; }
  std::uint64_t offset() const { return _offset; }

 private:
  void step() {
    if (_engine->inputLeft() == 0 && _isInputUsed) {
      _inputSize = _blocks.next();
      _engine->setInput(_blocks.input(), _inputSize);
      if (_inputSize == 0) {
        endWith(_blocks.stop());
        return;
      }
    }
    const Step_t step = _engine->run();
    _offset = _blocks.offsetOf(_inputSize - _engine->inputLeft());
    // Room that is used up may leave bytes waiting within inflate.
    _isInputUsed = _engine->inputLeft() == 0 && _engine->outputLeft() > 0;
    _isLast = step == Step_t::Ended;
    _ended = _isLast || step == Step_t::Failed ||
             (step != Step_t::Progressed && _engine->inputLeft() > 0);
  }

  void endWith(ZipBlockReader::Stop_t stop) {
    using Stop_t = ZipBlockReader::Stop_t;
    _ended = true;
    _offset = _blocks.endOffset();
    _isCutShort = stop == Stop_t::SourceEnd || stop == Stop_t::LastBlock;
    _isLast = _isCutShort;
  }

  std::istream _source;
  ZipBlockReader _blocks;
  const std::unique_ptr<InflateEngine> _engine;
  unsigned _inputSize = 0;
  bool _isInputUsed = true;
  bool _ended = false;
  bool _isLast = false;
  bool _isCutShort = false;
  std::uint64_t _offset;
};

}  // namespace

class KYR_HIDDEN ZipSalvage::Reader {
 public:
  explicit Reader(const QString& fileName) : _source(&_file) {
    OS::openStdStream(_file, fileName, OS::OpenRead, true);
    start();
  }
  explicit Reader(std::istream* source) : _source(source) { start(); }

  void setWorkers(const ZipPieces& pieces) {
    if (_pieces) {
      _pieces->setWorkers(pieces);
    }
  }
  const ZipIndex* index() const { return _pieces ? &_pieces->index() : nullptr; }
  const ZipInStream& front() const { return *_front; }
  bool isWhole() const { return _isDone && _isWhole; }

  bool next(ZipPart& part) {
    part.bytes.clear();
    part.isUnreadable = false;
    const bool hasPart = _pieces   ? nextPiece(part)
                         : _isDone ? false
                         : _lostAt ? nextLoss(part)
                         : _loose  ? nextLoose(part)
                                   : nextOfFront(part);
    _isDone = _isDone || !hasPart;
    return hasPart;
  }

 private:
  void start() {
    std::streambuf* const buffer = _source ? _source->rdbuf() : nullptr;
    const std::optional<std::streamoff> place = buffer ? placeOf(*buffer) : std::nullopt;
    if (place) {
      _start = *place;
      std::optional<ZipIndex> index = ZipIndex::find(*buffer, *place);
      seekTo(*buffer, *place);
      _canMove = true;
      _scanner.emplace(*buffer, *place);
      if (index) {
        readHeader(*buffer);
        _pieces = std::make_unique<ZipPieceReader>(*buffer, *place, *std::move(index));
      }
    }
    _front = std::make_unique<ZipInStream>(_pieces ? &_header : _source, anyVersion);
    _isWhole = _pieces || _front->getHeaderError() == ZipInStream::HeaderGood;
  }

  /// Gives the usual reader the header alone: the pieces of a stream with an index are read here.
  void readHeader(std::streambuf& source) {
    std::string bytes(ZipFormat::headerSize, '\0');
    bytes.resize(readFrom(source, bytes.data(), bytes.size()));
    _header.str(bytes);
  }

  bool nextPiece(ZipPart& part) {
    const ZipPieceReader::View* const view = _pieces->front();
    if (!view) {
      return false;
    }
    const ZipIndex::Piece& piece = index()->pieces[view->number];
    if (view->isGood) {
      part.bytes.assign(view->bytes, view->bytes + view->size);
    }
    part.state = view->isGood ? ZipPart::Checked : ZipPart::Lost;
    part.offset = piece.place;
    part.size = index()->sizeOf(view->number);
    part.plainOffset = piece.plainPlace;
    part.plainSize = piece.plainSize;
    part.isSizeKnown = true;
    part.isUnreadable = !view->isRead;
    _isWhole = _isWhole && view->isGood;
    _pieces->pop();
    return true;
  }

  /// What the usual reader delivers, which is all of a good stream.
  bool nextOfFront(ZipPart& part) {
    if (_front->getHeaderError() != ZipInStream::HeaderGood) {
      return false;
    }
    const std::uint64_t offset = _front->getStatistics().offset;
    part.bytes.resize(partSize);
    _front->clear();
    _front->read(part.bytes.data(), partSize);
    part.bytes.resize(static_cast<std::size_t>(_front->gcount()));
    const ZipInStream::State_t state = _front->getState();
    if (part.bytes.empty() && state == ZipInStream::StreamOpen) {
      throw std::bad_alloc();  // nothing else keeps a stream from its end
    }
    if (_front->eof() && state != ZipInStream::StreamComplete) {
      lose(_front->getStatistics().offset, state == ZipInStream::StreamCutShort);
    }
    return part.bytes.empty() ? hasLoss(part) : give(part, offset, _front->getStatistics().offset);
  }

  bool nextLoose(ZipPart& part) {
    if (_held == 0) {
      readLoose();
    }
    part.bytes.assign(_room.begin(), _room.begin() + static_cast<std::ptrdiff_t>(_held));
    const std::uint64_t offset = std::exchange(_looseAt, _loose->offset());
    if (std::exchange(_held, 0) < partSize) {
      isLooseWhole() ? void(_isDone = true) : lose(_looseAt, _loose->isCutShort());
      _loose.reset();
    }
    return part.bytes.empty() ? hasLoss(part) : give(part, offset, _looseAt);
  }

  void readLoose() {
    _room.resize(partSize);
    _held = _loose->read(_room.data(), partSize);
  }
  bool isLooseWhole() const { return _loose->isLast() && !_loose->isCutShort(); }

  bool give(ZipPart& part, std::uint64_t offset, std::uint64_t end) {
    part.state = ZipPart::Unchecked;
    part.offset = offset;
    part.size = end - offset;
    part.plainOffset = _plainOffset;
    part.plainSize = part.bytes.size();
    part.isSizeKnown = true;
    _plainOffset += part.plainSize;
    return true;
  }

  void lose(std::uint64_t offset, bool isEnd) {
    _isWhole = false;
    _lostAt = offset;
    _isLostToEnd = isEnd;
  }

  bool hasLoss(ZipPart& part) { return _lostAt && nextLoss(part); }

  /// Goes to where content goes on again, and tells what is between.
  bool nextLoss(ZipPart& part) {
    part.state = ZipPart::Lost;
    part.offset = *_lostAt;
    part.plainOffset = _plainOffset;
    part.plainSize = 0;
    part.isSizeKnown = false;
    const std::optional<std::uint64_t> next = _isLostToEnd ? std::nullopt : takeUp(*_lostAt);
    part.size = (next ? *next : endOffset(*_lostAt)) - part.offset;
    _isDone = !next;
    _lostAt.reset();
    return true;
  }

  /// Goes on reading at the next place that gives content, or the end of all.
  std::optional<std::uint64_t> takeUp(std::uint64_t offset) {
    std::optional<std::uint64_t> next = findNext(offset);
    for (; next; next = findNext(_loose->offset())) {
      _loose = std::make_unique<LooseEnd>(*_source->rdbuf(), *next);
      _tried = *next;
      _looseAt = *next;
      readLoose();
      if (_held > 0 || isLooseWhole()) {
        return next;
      }
    }
    _loose.reset();
    return std::nullopt;
  }

  /// The damage may have been noticed within the end of its piece, or beyond.
  std::optional<std::uint64_t> findNext(std::uint64_t offset) {
    constexpr std::uint64_t pieceEnd = 6;  // with the length of a block in between
    const std::optional<std::uint64_t> next =
        _canMove ? _scanner->next(std::max(offset - pieceEnd, _tried)) : std::nullopt;
    const bool isThere =
        next && seekTo(*_source->rdbuf(), _start + static_cast<std::streamoff>(*next));
    return isThere ? next : std::nullopt;
  }

  std::uint64_t endOffset(std::uint64_t otherwise) {
    const std::optional<std::streamoff> end = _canMove ? endOf(*_source->rdbuf()) : std::nullopt;
    return std::max(end ? static_cast<std::uint64_t>(*end - _start) : otherwise, otherwise);
  }

  std::ifstream _file;
  std::istream* _source;
  std::streamoff _start = 0;
  bool _canMove = false;
  std::istringstream _header;
  std::unique_ptr<ZipPieceReader> _pieces;
  std::unique_ptr<ZipInStream> _front;
  std::unique_ptr<LooseEnd> _loose;
  std::optional<std::uint64_t> _lostAt;
  std::optional<FlushScanner> _scanner;
  std::vector<char> _room;     // what was read of the loose end and not given yet
  std::size_t _held = 0;       // bytes of that
  std::uint64_t _looseAt = 0;  // where they begin
  std::uint64_t _tried = 0;    // the last place where reading was taken up
  std::uint64_t _plainOffset = 0;
  bool _isLostToEnd = false;
  bool _isWhole = false;
  bool _isDone = false;
};

ZipSalvage::ZipSalvage(const QString& fileName) : _reader(std::make_unique<Reader>(fileName)) {}

ZipSalvage::ZipSalvage(std::istream* source) : _reader(std::make_unique<Reader>(source)) {}

ZipSalvage::~ZipSalvage() = default;

void ZipSalvage::setWorkers(const ZipPieces& pieces) {
  _reader->setWorkers(pieces);
}

bool ZipSalvage::next(ZipPart* part) {
  return _reader->next(*part);
}

ZipInStream::HeaderError_t ZipSalvage::getHeaderError() const {
  return _reader->front().getHeaderError();
}

QString ZipSalvage::getHeaderErrorText() const {
  return _reader->front().getHeaderErrorText();
}

std::uint64_t ZipSalvage::getPieceCount() const {
  return hasIndex() ? _reader->index()->pieces.size() : 0;
}

bool ZipSalvage::hasIndex() const {
  return _reader->index() != nullptr;
}

bool ZipSalvage::isWhole() const {
  return _reader->isWhole();
}

}  // namespace Kyr

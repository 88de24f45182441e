#include <kyr/pack/zip_piece_reader_p.h>

#include <kyr/pack/piece_packer_p.h>
#include <kyr/pack/zip_header_p.h>

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace Kyr {

using ZipFormat::blockSize;
using ZipFormat::lengthSize;

class ZipPieceReader::Slot : public PieceTask {
 public:
  Slot(ZipPieceReader& reader, std::size_t packedRoom, std::size_t plainRoom)
      : packed(new unsigned char[packedRoom + sizeof(emptyFinalBlock)]),
        _reader(reader),
        _plain(new unsigned char[plainRoom]) {}

  void run(unsigned worker) noexcept override {
    const ZipIndex::Piece& piece = _reader._index.pieces[view.number];
    view.size = piece.plainSize;
    view.bytes = reinterpret_cast<const char*>(_plain.get());
    view.blocks = 0;
    _lacksMemory = false;
    view.isGood = view.isRead && joinBlocks() && unpack(worker, piece);
  }

  /// Loads on the owner's thread, which has its tools from the beginning, the piece for which a
  /// helper had no memory.
  void makeUp() {
    if (std::exchange(_lacksMemory, false)) {
      view.isGood = unpack(0, _reader._index.pieces[view.number]);
    }
  }

  const std::unique_ptr<unsigned char[]> packed;
  std::size_t packedSize = 0;
  View view;

 private:
  /// Takes out the lengths between the blocks.
  bool joinBlocks() {
    unsigned char* end = packed.get();
    std::size_t at = 0;
    while (packedSize - at > lengthSize) {
      const unsigned length =
          ZipFormat::loadUInt16(reinterpret_cast<const char*>(packed.get() + at));
      at += lengthSize;
      if (length == 0 || length > blockSize || length > packedSize - at) {
        return false;
      }
      std::memmove(end, packed.get() + at, length);
      end += length;
      at += length;
      ++view.blocks;
    }
    view.compressedBytes = static_cast<std::uint64_t>(end - packed.get());
    return at == packedSize;
  }

  bool unpack(unsigned worker, const ZipIndex::Piece& piece) noexcept {
    std::unique_ptr<PieceInflater>& inflater = _reader._inflaters[worker];
    try {
      inflater = inflater ? std::move(inflater) : PieceInflater::make(_reader._engine);
    } catch (const std::bad_alloc&) {
      _lacksMemory = true;
      return false;
    }
    return inflater->unpack(packed.get(), static_cast<std::size_t>(view.compressedBytes),
                            _plain.get(), piece.plainSize) &&
           inflater->crcOf(_plain.get(), piece.plainSize) == piece.crc;
  }

  ZipPieceReader& _reader;
  const std::unique_ptr<unsigned char[]> _plain;
  bool _lacksMemory = false;
};

ZipPieceReader::ZipPieceReader(std::streambuf& source, std::streamoff start, ZipIndex index)
    : _source(source), _start(start), _index(std::move(index)) {
  setWorkers({});
}

ZipPieceReader::~ZipPieceReader() = default;

void ZipPieceReader::setWorkers(const ZipPieces& pieces) {
  const unsigned workers = allowedWorkers(pieces.workers);
  auto crew = std::make_unique<PieceCrew>(workers);
  std::vector<std::unique_ptr<PieceInflater>> inflaters(workers);
  inflaters[0] = PieceInflater::make(pieces.engine);
  makeRoomFor(piecesInHand(workers));
  const std::size_t next = _loaded.empty() ? _next : _loaded.front()->view.number;
  if (_crew) {
    goTo(_index.pieces.size());  // nobody works any more
  }
  _crew = std::move(crew);
  _inflaters = std::move(inflaters);
  _engine = pieces.engine;
  _most = piecesInHand(workers);
  _ahead = _most;
  _next = next;
}

/// With one slot and room for its place nothing that comes later needs memory.
void ZipPieceReader::makeRoomFor(std::size_t slots) {
  _free.reserve(std::max(slots, _free.size() + _loaded.size()));
  _loaded.reserve(slots);
  if (_free.empty() && _loaded.empty() && !_index.pieces.empty()) {
    _free.push_back(makeSlot());
  }
}

void ZipPieceReader::goTo(std::size_t piece) {
  while (!_loaded.empty() && _loaded.front()->view.number < piece &&
         piece <= _loaded.back()->view.number) {
    pop();
  }
  const View* const loaded = _loaded.empty() ? nullptr : &_loaded.front()->view;
  if (!loaded || loaded->number != piece || !loaded->isRead) {
    _crew->recall();
    std::move(_loaded.begin(), _loaded.end(), std::back_inserter(_free));
    _loaded.clear();
    _next = piece;
    _ahead = 1;
  }
}

const ZipPieceReader::View* ZipPieceReader::front() {
  readAhead();
  if (_loaded.empty()) {
    return nullptr;
  }
  Slot& slot = *_loaded.front();
  _crew->await(slot);
  slot.makeUp();
  return &slot.view;
}

void ZipPieceReader::pop() {
  _crew->await(*_loaded.front());
  _free.push_back(std::move(_loaded.front()));
  _loaded.erase(_loaded.begin());
  _ahead = std::min(2 * _ahead, _most);
}

void ZipPieceReader::readAhead() {
  while (_next < _index.pieces.size() && _loaded.size() < _ahead && loadNext()) {
  }
}

/// \return false when there is no memory for more pieces than those that are loaded
bool ZipPieceReader::loadNext() {
  std::unique_ptr<Slot> slot = provideSlot();
  if (!slot) {
    return false;
  }
  load(*slot, _next);
  _crew->submit(*slot);
  _loaded.push_back(std::move(slot));
  ++_next;
  return true;
}

std::unique_ptr<ZipPieceReader::Slot> ZipPieceReader::provideSlot() {
  std::unique_ptr<Slot> slot;
  if (!_free.empty()) {
    slot = std::move(_free.back());
    _free.pop_back();
    return slot;
  }
  try {
    slot = makeSlot();
  } catch (const std::bad_alloc&) {
    // Fewer slots are slower, and enough: one piece at least is loaded.
  }
  return slot;
}

std::unique_ptr<ZipPieceReader::Slot> ZipPieceReader::makeSlot() {
  return std::make_unique<Slot>(*this, _index.largestPiece(), _index.largestPlainPiece());
}

void ZipPieceReader::load(Slot& slot, std::size_t piece) {
  const auto place = _start + static_cast<std::streamoff>(_index.pieces[piece].place);
  slot.view.number = piece;
  slot.packedSize = static_cast<std::size_t>(_index.sizeOf(piece));
  const bool isThere = placeOf(_source) == place || seekTo(_source, place);
  char* const room = reinterpret_cast<char*>(slot.packed.get());
  slot.view.isRead = isThere && readFrom(_source, room, slot.packedSize) == slot.packedSize;
}

ZipPieceReader::Frame_t ZipPieceReader::judge(std::uint64_t place, const std::string& bytes) {
  std::string read(bytes.size(), '\0');
  const bool isRead = seekTo(_source, _start + static_cast<std::streamoff>(place)) &&
                      readFrom(_source, read.data(), read.size()) == read.size();
  return !isRead ? Frame_t::Unreadable : read == bytes ? Frame_t::Good : Frame_t::Bad;
}

ZipPieceReader::Frame_t ZipPieceReader::judgeFront() {
  return judge(ZipFormat::headerSize, ZipIndex::front());
}

ZipPieceReader::Frame_t ZipPieceReader::judgeEnd() {
  return judge(_index.endPlace, _index.end());
}

}  // namespace Kyr

#include <kyr/pack/piece_packer_p.h>

#include <algorithm>
#include <new>
#include <utility>

namespace Kyr {

unsigned allowedWorkers(unsigned workers) {
  constexpr unsigned most = 64;
  return std::clamp(workers, 1U, most);
}

std::size_t piecesInHand(unsigned workers) {
  return workers > 1 ? std::size_t{3} * workers : 1;
}

class PiecePacker::Slot : public PieceTask {
 public:
  explicit Slot(PiecePacker& packer)
      : plain(new unsigned char[pieceSize]),
        _packer(packer),
        _packed(new unsigned char[PieceDeflater::roomFor(pieceSize) + frameRoom]) {}

  void run(unsigned worker) noexcept override {
    std::unique_ptr<PieceDeflater>& deflater = _packer._deflaters[worker];
    try {
      deflater = deflater ? std::move(deflater) : PieceDeflater::make(_packer._engine);
      lacksMemory = false;
    } catch (const std::bad_alloc&) {
      lacksMemory = true;
      return;
    }
    piece.bytes = _packed.get();
    piece.size = deflater->pack(plain.get(), piece.plainSize, _packed.get());
    piece.checksums = deflater->checksumsOf(plain.get(), piece.plainSize);
    isGood = piece.size > 0;
    if (!isGood) {
      _packer._isOneBad = true;
    } else if (_packer._frame) {
      piece.size = _packer._frame(_packed.get(), piece.size);
    }
  }

  const std::unique_ptr<unsigned char[]> plain;
  PackedPiece piece;
  bool isGood = false;
  bool lacksMemory = false;

 private:
  PiecePacker& _packer;
  const std::unique_ptr<unsigned char[]> _packed;
};

PiecePacker::PiecePacker(const ZipPieces& pieces, Frame frame, Taker take)
    : _frame(frame),
      _take(std::move(take)),
      _engine(pieces.engine),
      _mostSlots(piecesInHand(allowedWorkers(pieces.workers))),
      _deflaters(allowedWorkers(pieces.workers)),
      _current(std::make_unique<Slot>(*this)),
      _crew(allowedWorkers(pieces.workers)) {
  _free.reserve(_mostSlots);
  _waiting.reserve(_mostSlots);
  _deflaters[0] = PieceDeflater::make(_engine);
}

PiecePacker::~PiecePacker() = default;

unsigned char* PiecePacker::room() const {
  return _current->plain.get();
}

bool PiecePacker::add(std::size_t size) {
  if (_isOneBad) {
    _failed = true;
    return false;
  }
  _current->piece.plainSize = size;
  _crew.submit(*_current);
  _waiting.push_back(std::move(_current));
  while (!_waiting.empty() && _crew.isDone(*_waiting.front())) {
    takeFirst();
  }
  provideSlot();
  return !_failed;
}

bool PiecePacker::settle() {
  while (!_waiting.empty()) {
    takeFirst();
  }
  return !_failed;
}

/// Waits for the first piece, hands it on and keeps its slot.
void PiecePacker::takeFirst() {
  std::unique_ptr<Slot> slot = std::move(_waiting.front());
  _waiting.erase(_waiting.begin());
  _crew.await(*slot);
  if (slot->lacksMemory) {
    slot->run(0);  // the owner's thread has its tools from the beginning
  }
  _failed = _failed || !slot->isGood || !_take(slot->piece);
  _free.push_back(std::move(slot));
}

/// Makes a slot the current one: a new one, or that of the first piece, once it is done.
void PiecePacker::provideSlot() {
  if (_free.empty() && _waiting.size() < _mostSlots) {
    try {
      _current = std::make_unique<Slot>(*this);
      return;
    } catch (const std::bad_alloc&) {
      // Fewer slots are slower, and enough: the piece of one at least is waiting.
    }
  }
  if (_free.empty()) {
    takeFirst();
  }
  _current = std::move(_free.back());
  _free.pop_back();
}

}  // namespace Kyr

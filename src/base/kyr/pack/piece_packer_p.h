/// \file
/// Cuts what is written into pieces, and gives them back compressed and in order.
#pragma once

#include <kyr/pack/KyrZipPieces.h>
#include <kyr/pack/piece_crew_p.h>
#include <kyr/pack/piece_engine_p.h>

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <vector>

namespace Kyr {

/// A piece that was compressed.
struct PackedPiece {
  const unsigned char* bytes = nullptr;
  std::size_t size = 0;
  std::size_t plainSize = 0;
  Checksums checksums;
};

/// Compresses pieces on the workers that it is allowed, and on the calling thread alone if that is
/// the only one. Three pieces for each worker are in memory at most; without the memory for so many
/// there are fewer.
/// \threadsafety one thread at a time
class PiecePacker {
 public:
  /// Puts into a packed piece what its format has in between. Runs on any thread.
  /// \param bytes with room for frameRoom bytes more
  /// \return the new size
  using Frame = std::size_t (*)(unsigned char* bytes, std::size_t size);
  static constexpr std::size_t frameRoom = 256;
  /// Takes the next piece, on the thread that calls this object.
  /// \return false when it failed
  using Taker = std::function<bool(const PackedPiece&)>;

  /// \param frame may be null
  /// \throws std::bad_alloc
  PiecePacker(const ZipPieces& pieces, Frame frame, Taker take);
  ~PiecePacker();

  /// Where to put the next pieceSize bytes, until add().
  unsigned char* room() const;
  /// Compresses the first \a size bytes of room(). Pieces are taken then or later.
  /// \return false when a piece could not be compressed or taken, also a later one than those that
  ///         were taken; none is taken any more
  bool add(std::size_t size);
  /// Lets everything be taken that was added.
  /// \return as add()
  bool settle();

 private:
  class Slot;
  void takeFirst();
  void provideSlot();

  const Frame _frame;
  const Taker _take;
  const ZipPieces::Engine_t _engine;
  const std::size_t _mostSlots;
  std::vector<std::unique_ptr<PieceDeflater>> _deflaters;  // one of each worker
  std::vector<std::unique_ptr<Slot>> _free;
  std::vector<std::unique_ptr<Slot>> _waiting;
  std::unique_ptr<Slot> _current;
  bool _failed = false;
  std::atomic<bool> _isOneBad{false};  // of those that were compressed so far
  PieceCrew _crew;                     // the last, as its end waits for what works on all of these
};

/// The workers that are meant by a number from outside.
unsigned allowedWorkers(unsigned workers);
/// How many pieces so many workers have in hand.
std::size_t piecesInHand(unsigned workers);

}  // namespace Kyr

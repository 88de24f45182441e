/// \file
/// The content of a zip stream that has an index, piece by piece.
#pragma once

#include <kyr/pack/KyrZipPieces.h>
#include <kyr/pack/piece_crew_p.h>
#include <kyr/pack/piece_engine_p.h>
#include <kyr/pack/zip_index_p.h>

#include <cstddef>
#include <cstdint>
#include <memory>
#include <streambuf>
#include <vector>

namespace Kyr {

/// Reads pieces one after the other and checks each before anybody sees a byte of it. With several
/// workers it reads ahead.
/// \threadsafety one thread at a time; the source is read on that thread
class ZipPieceReader {
 public:
  /// \param source must outlive this object, which moves it to any place
  /// \param start where in the source the stream begins
  /// \throws std::bad_alloc
  ZipPieceReader(std::streambuf& source, std::streamoff start, ZipIndex index);
  ~ZipPieceReader();

  /// Lets others work from now on; the calling thread alone does at first.
  /// \throws std::bad_alloc; nothing has changed then
  void setWorkers(const ZipPieces& pieces);
  const ZipIndex& index() const { return _index; }

  /// A piece that was read.
  struct View {
    std::size_t number = 0;
    bool isRead = false;  ///< whether the source gave its bytes
    bool isGood = false;  ///< whether it holds what was written
    const char* bytes = nullptr;
    std::size_t size = 0;
    std::uint64_t blocks = 0;
    std::uint64_t compressedBytes = 0;
  };
  /// Reads the piece that is next, if that was not done. Takes no memory.
  /// \return null behind the last
  const View* front();
  /// Goes on to the next piece.
  void pop();
  /// Makes a piece the next one. What the source did not give of it is asked for again.
  /// \param piece up to the number of pieces
  void goTo(std::size_t piece);

  enum class Frame_t { Good, Bad, Unreadable };
  /// Whether what stands in front of the pieces is what it must be.
  Frame_t judgeFront();
  /// The same for what stands behind them; the source is then behind the end mark if it is.
  Frame_t judgeEnd();

 private:
  class Slot;
  using Slots = std::vector<std::unique_ptr<Slot>>;
  Frame_t judge(std::uint64_t place, const std::string& bytes);
  void makeRoomFor(std::size_t slots);
  void readAhead();
  bool loadNext();
  std::unique_ptr<Slot> provideSlot();
  std::unique_ptr<Slot> makeSlot();
  void load(Slot& slot, std::size_t piece);

  std::streambuf& _source;
  const std::streamoff _start;
  const ZipIndex _index;
  ZipPieces::Engine_t _engine = ZipPieces::ZlibEngine;
  std::vector<std::unique_ptr<PieceInflater>> _inflaters;  // one of each worker
  Slots _free;
  Slots _loaded;           // in the order of the pieces
  std::size_t _next = 0;   // the piece to load next
  std::size_t _most = 1;   // slots at a time
  std::size_t _ahead = 1;  // pieces to be loaded at a time; grows with each that follows another
  std::unique_ptr<PieceCrew> _crew;  // the last, as its end waits for what works on all of these
};

}  // namespace Kyr

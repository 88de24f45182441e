#include <kyr/pack/tar_target_p.h>

#include <kyr/core/KyrException.h>
#include <kyr/files/unfinished_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/pack/deflate_engine_p.h>
#include <kyr/pack/piece_stream_p.h>

#include <algorithm>
#include <cstring>
#include <fstream>
#include <new>
#include <utility>

namespace Kyr {

namespace {

std::unique_ptr<DeflateEngine> makeEngine(const ZipPieces* pieces) {
  return pieces ? nullptr : DeflateEngine::make(Container_t::Gzip);
}

std::unique_ptr<PieceStream> makePieces(const ZipPieces* pieces, PieceStream::Send send) {
  if (!pieces) {
    return nullptr;
  }
  return std::make_unique<PieceStream>(Container_t::Gzip, *pieces, std::move(send));
}

/// Compresses straight into the vector. That grows by small steps, not by doubling: what is set
/// aside and not used must stay below what is promised for it.
class MemoryTarget : public TarTarget {
 public:
  MemoryTarget(StructVector<unsigned char>* out, const ZipPieces* pieces)
      : _out(out),
        _engine(makeEngine(pieces)),
        _pieces(makePieces(pieces, [this](const unsigned char* bytes, std::size_t count) {
          append(bytes, count);
          return true;
        })) {
    _out->clear();
    _out->trim();
  }

 private:
  static constexpr std::ptrdiff_t stepSize = 524288;

  void compress(const unsigned char* bytes, unsigned count) override { run(bytes, count, false); }
  void complete() override {
    run(nullptr, 0, true);
    _out->setSize(_out->size() - withheld());
    _out->trim();
  }

  void append(const unsigned char* bytes, std::size_t count) {
    if (_out->capacity() - _out->size() < count) {
      _out->changeCapacity(stepSize);
    }
    _out->append(bytes, count);
  }

  void run(const unsigned char* bytes, unsigned count, bool finish) {
    if (!(_pieces ? toPieces(bytes, count, finish) : toEngine(bytes, count, finish))) {
      throw std::bad_alloc();
    }
  }

  bool toPieces(const unsigned char* bytes, unsigned count, bool finish) {
    return finish ? _pieces->finish() : _pieces->write(bytes, count);
  }

  bool toEngine(const unsigned char* bytes, unsigned count, bool finish) {
    Step_t step = Step_t::Progressed;
    _engine->setInput(bytes, count);
    do {
      if (_out->size() == _out->capacity()) {
        _out->changeCapacity(stepSize);
      }
      const auto room = static_cast<unsigned>(_out->capacity() - _out->size());
      _engine->setOutput(_out->end(), room);
      step = _engine->run(finish);
      _out->setSize(_out->size() + room - _engine->outputLeft());
    } while (step == Step_t::Progressed && _engine->outputLeft() == 0);
    return step != Step_t::Failed && (!finish || step == Step_t::Ended);
  }

  StructVector<unsigned char>* _out;
  const std::unique_ptr<DeflateEngine> _engine;
  const std::unique_ptr<PieceStream> _pieces;  // in place of the engine
};

class StreamTarget : public TarTarget {
 public:
  StreamTarget(std::ostream* target, const QString& name, const ZipPieces* pieces)
      : _target(target),
        _name(name),
        _engine(makeEngine(pieces)),
        _pieces(makePieces(pieces, [this](const unsigned char* bytes, std::size_t count) {
          return deliver(bytes, count);
        })) {
    Unfinished::mark(*_target);
  }

 private:
  static constexpr unsigned pieceSize = 65536;

  void compress(const unsigned char* bytes, unsigned count) override { run(bytes, count, false); }
  void complete() override {
    run(nullptr, 0, true);
    settle();
    expect(_target->good());
    if (withheld() == 0) {
      Unfinished::clear(*_target);
    }
  }
  virtual void settle() { _target->flush(); }

  void run(const unsigned char* bytes, unsigned count, bool finish) {
    _pieces ? toPieces(bytes, count, finish) : toEngine(bytes, count, finish);
  }

  void toPieces(const unsigned char* bytes, unsigned count, bool finish) {
    const bool isGood = finish ? _pieces->finish(withheld()) : _pieces->write(bytes, count);
    expect(_target->good());
    if (!isGood) {
      throw std::bad_alloc();
    }
  }

  void toEngine(const unsigned char* bytes, unsigned count, bool finish) {
    Step_t step = Step_t::Progressed;
    _engine->setInput(bytes, count);
    do {
      _engine->setOutput(_piece.get(), pieceSize);
      step = _engine->run(finish);
      const unsigned produced = pieceSize - _engine->outputLeft();
      // What is withheld comes from the last output only, which has a byte at least; an archive
      // that lacks its last byte is no complete one.
      send(produced - (step == Step_t::Ended ? std::min(produced, withheld()) : 0));
    } while (step == Step_t::Progressed && _engine->outputLeft() == 0);
    expect(step != Step_t::Failed && (!finish || step == Step_t::Ended));
  }

  void send(unsigned count) { expect(deliver(_piece.get(), count)); }

  bool deliver(const unsigned char* bytes, std::size_t count) {
    _target->write(reinterpret_cast<const char*>(bytes), static_cast<std::streamsize>(count));
    return _target->good();
  }

  void expect(bool good) const {
    if (!good) {
      throw Exception(_name);
    }
  }

  std::ostream* _target;
  QString _name;
  const std::unique_ptr<DeflateEngine> _engine;
  const std::unique_ptr<PieceStream> _pieces;  // in place of the engine
  std::unique_ptr<unsigned char[]> _piece{new unsigned char[pieceSize]};
};

/// First of its target's bases, so that the stream lives before and after it.
struct OpenedFile {
  explicit OpenedFile(const QString& name) {
    OS::openStdStream(file, name, OS::OpenWrite, true);
    if (!file) {
      throw Exception(name);
    }
  }
  std::ofstream file;
};

class FileTarget : private OpenedFile, public StreamTarget {
 public:
  FileTarget(const QString& name, const ZipPieces* pieces)
      : OpenedFile(name), StreamTarget(&file, name, pieces) {}

 private:
  void settle() override { file.close(); }
};

}  // namespace

std::unique_ptr<TarTarget> TarTarget::inMemory(StructVector<unsigned char>* out,
                                               const ZipPieces* pieces) {
  return std::make_unique<MemoryTarget>(out, pieces);
}

std::unique_ptr<TarTarget> TarTarget::onStream(std::ostream* target, const QString& name,
                                               const ZipPieces* pieces) {
  return std::make_unique<StreamTarget>(target, name, pieces);
}

std::unique_ptr<TarTarget> TarTarget::inFile(const QString& name, const ZipPieces* pieces) {
  return std::make_unique<FileTarget>(name, pieces);
}

TarTarget::TarTarget() : _buffer(new unsigned char[bufferSize]) {}

void TarTarget::added(std::size_t count) {
  if (_closed) {
    throw std::bad_alloc();
  }
  _filled += count;
  if (_filled == bufferSize) {
    send();
  }
}

void TarTarget::write(const unsigned char* bytes, std::size_t count) {
  while (count > 0) {
    const std::size_t portion = std::min(count, roomSize());
    std::memcpy(room(), bytes, portion);
    added(portion);
    bytes += portion;
    count -= portion;
  }
}

void TarTarget::send() {
  const auto count = static_cast<unsigned>(_filled);
  _filled = 0;
  if (count > 0) {
    _closed = true;  // a hole in the archive must not look like a good one
    compress(_buffer.get(), count);
    _closed = false;
  }
}

void TarTarget::finish() {
  if (_finished) {
    return;
  }
  if (_closed) {
    throw std::bad_alloc();
  }
  close();
}

void TarTarget::abandon() {
  constexpr unsigned trailer = 8;  // of gzip: checksum and size
  if (!_closed) {
    send();
    _withheld = trailer;
    close();
  }
}

void TarTarget::close() {
  send();
  _closed = true;
  complete();
  _finished = true;
}

}  // namespace Kyr

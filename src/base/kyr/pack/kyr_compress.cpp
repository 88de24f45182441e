#include <kyr/pack/KyrCompress.h>

#include <kyr/pack/deflate_engine_p.h>
#include <kyr/pack/piece_stream_p.h>

#include <algorithm>
#include <limits>
#include <new>

namespace Kyr {

namespace {

/// Room given to deflate at a time, straight in the output vector.
constexpr unsigned chunkSize = 262144;
/// Inflate works on the stack when the output vector has less room than this, so that the
/// vector grows only for bytes that exist.
constexpr unsigned stackSize = 10240;

template <class Format>
Container_t containerOf(Format format) {
  return format == 0 ? Container_t::Zlib : Container_t::Gzip;
}

/// As much of a size as an engine takes at once.
unsigned portionOf(std::size_t size) {
  return static_cast<unsigned>(std::min<std::size_t>(size, std::numeric_limits<unsigned>::max()));
}

}  // namespace

Compress::Compress(StructVector<unsigned char>* out) : Compress(ZlibFormat, out) {}

Compress::Compress(Format format, StructVector<unsigned char>* out)
    : _out(out), _engine(DeflateEngine::make(containerOf(format))) {
  _out->clear();
  _out->trim();
}

Compress::Compress(Format format, StructVector<unsigned char>* out, const ZipPieces& pieces)
    : _out(out),
      _pieces(std::make_unique<PieceStream>(containerOf(format), pieces,
                                            [out](const unsigned char* bytes, std::size_t count) {
                                              out->append(bytes, count);
                                              return true;
                                            })) {
  _out->clear();
  _out->trim();
}

Compress::~Compress() {
  try {
    if (_state == Open) {
      flush();
    }
  } catch (const std::bad_alloc&) {
    // A stream without its end is visibly incomplete.
  }
}

void Compress::write(const void* data, unsigned int length) {
  if (length == 0) {
    flush();
    return;
  }
  if (_state != Open) {
    throw std::bad_alloc();
  }
  compress(data, length, false);
}

void Compress::flush() {
  if (_state == Finished) {
    return;
  }
  if (_state == Failed) {
    throw std::bad_alloc();
  }
  compress(nullptr, 0, true);
  _out->trim();
  _state = Finished;
}

void Compress::compress(const void* data, unsigned length, bool finish) {
  // The object counts as failed until all data is through: a stream with a hole must not look good.
  _state = Failed;
  if (!(_pieces ? toPieces(data, length, finish) : toEngine(data, length, finish))) {
    throw std::bad_alloc();
  }
  _state = Open;
}

bool Compress::toPieces(const void* data, unsigned length, bool finish) {
  return finish ? _pieces->finish() : data && _pieces->write(data, length);
}

bool Compress::toEngine(const void* data, unsigned length, bool finish) {
  _engine->setInput(data, length);
  provideRoom();
  Step_t step = _engine->run(finish);
  while (step == Step_t::Progressed && _engine->outputLeft() == 0) {
    commit();
    provideRoom();
    step = _engine->run(finish);
  }
  if (step == Step_t::Ended) {
    commit();
  }
  return step == (finish ? Step_t::Ended : Step_t::Progressed);
}

void Compress::provideRoom() {
  if (_engine->outputLeft() == 0) {
    _out->reserve(_out->size() + chunkSize);
    _engine->setOutput(_out->end(), chunkSize);
  }
}

void Compress::commit() {
  _out->setSize(_out->size() + chunkSize - _engine->outputLeft());
  _engine->setOutput(nullptr, 0);
}

Decompress::Decompress(const StructVector<unsigned char>& in) : Decompress(ZlibFormat, in) {}

Decompress::Decompress(Format format, const StructVector<unsigned char>& in)
    : _rest(in.data()), _restSize(in.size()), _engine(InflateEngine::make(containerOf(format))) {}

Decompress::~Decompress() = default;

bool Decompress::inflateInto(void* room, unsigned length, unsigned* produced, bool* ended) {
  _engine->setOutput(room, length);
  Step_t step = Step_t::Progressed;
  do {
    const unsigned portion = portionOf(_restSize);
    _engine->setInput(_rest, portion);
    step = _engine->run();
    const unsigned used = portion - _engine->inputLeft();
    _rest += used;
    _restSize -= used;
  } while (step == Step_t::Progressed && _engine->outputLeft() > 0 && _restSize > 0);
  *produced = length - _engine->outputLeft();
  *ended = step == Step_t::Ended;
  return step == Step_t::Progressed || *ended;
}

bool Decompress::read(void* buffer, unsigned int length) {
  unsigned produced = 0;
  bool ended = false;
  return length == 0 || (inflateInto(buffer, length, &produced, &ended) && produced == length);
}

bool Decompress::read(StructVector<unsigned char>* out) {
  unsigned char stack[stackSize];
  for (;;) {
    const std::size_t room = out->capacity() - out->size();
    unsigned produced = 0;
    bool ended = false;
    bool good = false;
    if (room >= stackSize) {
      good = inflateInto(out->end(), portionOf(room), &produced, &ended);
      out->setSize(out->size() + produced);
    } else {
      good = inflateInto(stack, stackSize, &produced, &ended);
      out->append(stack, produced);
    }
    if (ended || !good) {
      return ended;
    }
  }
}

}  // namespace Kyr

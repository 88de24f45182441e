#include <kyr/pack/deflate_engine_p.h>

#include <new>

#include <zlib.h>

namespace Kyr {

namespace {

constexpr int fastest = 1;
constexpr int memoryLevel = 8;
/// The largest window, and 16 for the wrapper of gzip instead of zlib's own.
constexpr int gzipWindowBits = MAX_WBITS + 16;

Step stepOf(int result) {
  switch (result) {
    case Z_OK:
      return Step::Progressed;
    case Z_STREAM_END:
      return Step::Ended;
    case Z_BUF_ERROR:
      return Step::Starved;
    default:
      return Step::Failed;
  }
}

int startDeflate(z_stream* stream, Container container) {
  if (container == Container::Zlib) {
    return deflateInit(stream, fastest);
  }
  return deflateInit2(stream, fastest, Z_DEFLATED, gzipWindowBits, memoryLevel, Z_DEFAULT_STRATEGY);
}

int startInflate(z_stream* stream, Container container) {
  return container == Container::Zlib ? inflateInit(stream) : inflateInit2(stream, gzipWindowBits);
}

void requireGood(int result) {
  if (result != Z_OK) {
    throw std::bad_alloc();
  }
}

}  // namespace

EngineBuffers::EngineBuffers() : _stream(std::make_unique<z_stream>()) {}

EngineBuffers::~EngineBuffers() = default;

void EngineBuffers::setInput(const void* bytes, unsigned length) noexcept {
  // zlib only reads; its type lacks the const unless a macro asks for it.
  _stream->next_in = static_cast<Bytef*>(const_cast<void*>(bytes));
  _stream->avail_in = length;
}

void EngineBuffers::setOutput(void* room, unsigned length) noexcept {
  _stream->next_out = static_cast<Bytef*>(room);
  _stream->avail_out = length;
}

unsigned EngineBuffers::inputLeft() const noexcept {
  return _stream->avail_in;
}

unsigned EngineBuffers::outputLeft() const noexcept {
  return _stream->avail_out;
}

DeflateEngine::DeflateEngine(Container container) {
  requireGood(startDeflate(_stream.get(), container));
}

DeflateEngine::~DeflateEngine() {
  deflateEnd(_stream.get());
}

Step DeflateEngine::run(bool finish) noexcept {
  return stepOf(deflate(_stream.get(), finish ? Z_FINISH : Z_NO_FLUSH));
}

void DeflateEngine::flush() noexcept {
  deflate(_stream.get(), Z_SYNC_FLUSH);
}

InflateEngine::InflateEngine(Container container) {
  requireGood(startInflate(_stream.get(), container));
}

InflateEngine::~InflateEngine() {
  inflateEnd(_stream.get());
}

Step InflateEngine::run() noexcept {
  return stepOf(inflate(_stream.get(), Z_SYNC_FLUSH));
}

}  // namespace Kyr

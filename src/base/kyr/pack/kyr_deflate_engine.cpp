#include <kyr/pack/deflate_engine_p.h>

#include <new>

#include <zlib.h>

namespace Kyr {

namespace {

constexpr int fastest = 1;
constexpr int memoryLevel = 8;
constexpr int gzipWrapper = 16;  // added to the bits of the window

Step_t stepOf(int result) {
  switch (result) {
    case Z_OK:
      return Step_t::Progressed;
    case Z_STREAM_END:
      return Step_t::Ended;
    case Z_BUF_ERROR:
      return Step_t::Starved;
    default:
      return Step_t::Failed;
  }
}

/// The largest window, and what stands around the data.
int windowBitsOf(Container_t container) {
  switch (container) {
    case Container_t::Gzip:
      return MAX_WBITS + gzipWrapper;
    case Container_t::None:
      return -MAX_WBITS;
    case Container_t::Zlib:
      break;
  }
  return MAX_WBITS;
}

void requireGood(int result) {
  if (result != Z_OK) {
    throw std::bad_alloc();
  }
}

/// Deflate or inflate of zlib on the buffers of an engine.
template <class Engine>
class ZlibEngine : public Engine {
 protected:
  template <class Call>
  Step_t call(Call function, int flush) noexcept {
    // zlib only reads; its type lacks the const unless a macro asks for it.
    _stream.next_in = const_cast<Bytef*>(this->_input);
    _stream.avail_in = this->_inputLeft;
    _stream.next_out = this->_output;
    _stream.avail_out = this->_outputLeft;
    const int result = function(&_stream, flush);
    this->_input = _stream.next_in;
    this->_inputLeft = _stream.avail_in;
    this->_output = _stream.next_out;
    this->_outputLeft = _stream.avail_out;
    return stepOf(result);
  }

  z_stream _stream{};
};

class ZlibDeflate : public ZlibEngine<DeflateEngine> {
 public:
  explicit ZlibDeflate(Container_t container) {
    requireGood(deflateInit2(&_stream, fastest, Z_DEFLATED, windowBitsOf(container), memoryLevel,
                             Z_DEFAULT_STRATEGY));
  }
  ~ZlibDeflate() override { deflateEnd(&_stream); }

  Step_t run(bool finish) noexcept override {
    return call(deflate, finish ? Z_FINISH : Z_NO_FLUSH);
  }
  void flush() noexcept override { call(deflate, Z_SYNC_FLUSH); }
};

class ZlibInflate : public ZlibEngine<InflateEngine> {
 public:
  explicit ZlibInflate(Container_t container) {
    requireGood(inflateInit2(&_stream, windowBitsOf(container)));
  }
  ~ZlibInflate() override { inflateEnd(&_stream); }

  Step_t run() noexcept override { return call(inflate, Z_SYNC_FLUSH); }
};

}  // namespace

std::unique_ptr<DeflateEngine> DeflateEngine::make(Container_t container) {
  return std::make_unique<ZlibDeflate>(container);
}

std::unique_ptr<InflateEngine> InflateEngine::make(Container_t container) {
  return std::make_unique<ZlibInflate>(container);
}

}  // namespace Kyr

#include <kyr/pack/piece_engines_p.h>

#include <new>

#include <isa-l.h>

namespace Kyr {

namespace {

constexpr unsigned level = 1;

/// Several times as fast as zlib. It uses what the processor can: the bytes may differ from one
/// machine to the next. The last bytes of its room stay unused, for which roomFor() has enough.
class IsalPieceDeflater : public PieceDeflater {
 public:
  IsalPieceDeflater() : _levelBuffer(new std::uint8_t[levelBufferSize]) {
    isal_deflate_init(&_stream);
    _stream.level = level;
    _stream.level_buf = _levelBuffer.get();
    _stream.level_buf_size = levelBufferSize;
    _stream.gzip_flag = IGZIP_DEFLATE;
  }

  std::size_t pack(const unsigned char* plain, std::size_t size,
                   unsigned char* room) noexcept override {
    isal_deflate_reset(&_stream);
    _stream.flush = FULL_FLUSH;
    _stream.end_of_stream = 0;
    _stream.next_in = const_cast<unsigned char*>(plain);  // only ever read
    _stream.avail_in = static_cast<std::uint32_t>(size);
    _stream.next_out = room;
    _stream.avail_out = static_cast<std::uint32_t>(roomFor(size));
    const bool isPacked = isal_deflate(&_stream) == COMP_OK && _stream.avail_in == 0 &&
                          _stream.internal_state.state == ZSTATE_NEW_HDR;
    return isPacked ? roomFor(size) - _stream.avail_out : packByZlib(plain, size, room);
  }
  Checksums checksumsOf(const unsigned char* plain, std::size_t size) noexcept override {
    return {isal_adler32(1, plain, size), crc32_gzip_refl(0, plain, size)};
  }

 private:
  static constexpr std::uint32_t levelBufferSize = ISAL_DEF_LVL1_DEFAULT;

  /// For content that ISA-L makes so much larger that there is no room for it.
  std::size_t packByZlib(const unsigned char* plain, std::size_t size,
                         unsigned char* room) noexcept {
    try {
      return makeZlibPieceDeflater()->pack(plain, size, room);
    } catch (const std::bad_alloc&) {
      return 0;
    }
  }

  isal_zstream _stream{};
  const std::unique_ptr<std::uint8_t[]> _levelBuffer;
};

}  // namespace

std::unique_ptr<PieceDeflater> makeIsalPieceDeflater() {
  return std::make_unique<IsalPieceDeflater>();
}

}  // namespace Kyr

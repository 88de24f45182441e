#include <kyr/pack/piece_engines_p.h>

#include <cstring>
#include <new>

#include <zlib.h>

namespace Kyr {

namespace {

constexpr int fastest = 1;
constexpr int memoryLevel = 8;
constexpr int bare = -MAX_WBITS;  // the largest window, without a wrapper

void requireGood(int result) {
  if (result != Z_OK) {
    throw std::bad_alloc();
  }
}

void setBuffers(z_stream& stream, const unsigned char* in, std::size_t inSize, unsigned char* out,
                std::size_t outSize) {
  stream.next_in = const_cast<Bytef*>(in);  // only ever read
  stream.avail_in = static_cast<uInt>(inSize);
  stream.next_out = out;
  stream.avail_out = static_cast<uInt>(outSize);
}

class ZlibPieceDeflater : public PieceDeflater {
 public:
  ZlibPieceDeflater() {
    requireGood(deflateInit2(&_stream, fastest, Z_DEFLATED, bare, memoryLevel, Z_DEFAULT_STRATEGY));
  }
  ~ZlibPieceDeflater() override { deflateEnd(&_stream); }

  std::size_t pack(const unsigned char* plain, std::size_t size,
                   unsigned char* room) noexcept override {
    deflateReset(&_stream);
    setBuffers(_stream, plain, size, room, roomFor(size));
    const bool isPacked = deflate(&_stream, Z_FULL_FLUSH) == Z_OK && _stream.avail_out > 0;
    return isPacked ? roomFor(size) - _stream.avail_out : 0;
  }
  Checksums checksumsOf(const unsigned char* plain, std::size_t size) noexcept override {
    return plainChecksums(plain, size);
  }

 private:
  z_stream _stream{};
};

class ZlibPieceInflater : public PieceInflater {
 public:
  ZlibPieceInflater() { requireGood(inflateInit2(&_stream, bare)); }
  ~ZlibPieceInflater() override { inflateEnd(&_stream); }

  std::uint32_t crcOf(const unsigned char* plain, std::size_t size) noexcept override {
    return plainCrc(plain, size);
  }

 private:
  bool unpackFinished(const unsigned char* packed, std::size_t packedSize, unsigned char* room,
                      std::size_t plainSize) noexcept override {
    inflateReset(&_stream);
    setBuffers(_stream, packed, packedSize, room, plainSize);
    // Told that this is all, inflate keeps no window for what would follow.
    return inflate(&_stream, Z_FINISH) == Z_STREAM_END && _stream.avail_in == 0 &&
           _stream.avail_out == 0;
  }

  z_stream _stream{};
};

}  // namespace

std::unique_ptr<PieceDeflater> makeZlibPieceDeflater() {
  return std::make_unique<ZlibPieceDeflater>();
}

std::unique_ptr<PieceInflater> makeZlibPieceInflater() {
  return std::make_unique<ZlibPieceInflater>();
}

Checksums combined(const Checksums& first, const Checksums& next, std::size_t sizeOfNext) {
  const auto size = static_cast<z_off_t>(sizeOfNext);
  return {static_cast<std::uint32_t>(adler32_combine(first.adler, next.adler, size)),
          static_cast<std::uint32_t>(crc32_combine(first.crc, next.crc, size))};
}

}  // namespace Kyr

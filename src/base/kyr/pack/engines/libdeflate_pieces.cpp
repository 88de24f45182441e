#include <kyr/pack/piece_engines_p.h>

#include <new>

#include <libdeflate.h>

namespace Kyr {

namespace {

/// Decompresses what lies in memory as a whole, and of which the size is known.
class LibdeflatePieceInflater : public PieceInflater {
 public:
  LibdeflatePieceInflater() : _decompressor(libdeflate_alloc_decompressor()) {
    if (!_decompressor) {
      throw std::bad_alloc();
    }
  }
  ~LibdeflatePieceInflater() override { libdeflate_free_decompressor(_decompressor); }

  std::uint32_t crcOf(const unsigned char* plain, std::size_t size) noexcept override {
    return plainCrc(plain, size);
  }

 private:
  bool unpackFinished(const unsigned char* packed, std::size_t packedSize, unsigned char* room,
                      std::size_t plainSize) noexcept override {
    std::size_t used = 0;
    std::size_t produced = 0;
    return libdeflate_deflate_decompress_ex(_decompressor, packed, packedSize, room, plainSize,
                                            &used, &produced) == LIBDEFLATE_SUCCESS &&
           used == packedSize && produced == plainSize;
  }

  libdeflate_decompressor* const _decompressor;
};

}  // namespace

std::unique_ptr<PieceInflater> makeLibdeflatePieceInflater() {
  return std::make_unique<LibdeflatePieceInflater>();
}

Checksums plainChecksums(const unsigned char* bytes, std::size_t size) noexcept {
  return {libdeflate_adler32(1, bytes, size), plainCrc(bytes, size)};
}

std::uint32_t plainCrc(const unsigned char* bytes, std::size_t size) noexcept {
  return libdeflate_crc32(0, bytes, size);
}

}  // namespace Kyr

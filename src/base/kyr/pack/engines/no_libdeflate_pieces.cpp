#include <kyr/pack/piece_engines_p.h>

#include <zlib.h>

namespace Kyr {

std::unique_ptr<PieceInflater> makeLibdeflatePieceInflater() {
  return nullptr;
}

Checksums plainChecksums(const unsigned char* bytes, std::size_t size) noexcept {
  return {static_cast<std::uint32_t>(adler32_z(1, bytes, size)), plainCrc(bytes, size)};
}

std::uint32_t plainCrc(const unsigned char* bytes, std::size_t size) noexcept {
  return static_cast<std::uint32_t>(crc32_z(0, bytes, size));
}

}  // namespace Kyr

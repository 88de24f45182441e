#include <kyr/pack/piece_engine_p.h>

#include <kyr/pack/piece_engines_p.h>

#include <cstring>
#include <utility>

namespace Kyr {

std::unique_ptr<PieceDeflater> PieceDeflater::make(ZipPieces::Engine_t engine) {
  auto fastest = engine == ZipPieces::FastestEngine ? makeIsalPieceDeflater() : nullptr;
  return fastest ? std::move(fastest) : makeZlibPieceDeflater();
}

std::unique_ptr<PieceInflater> PieceInflater::make(ZipPieces::Engine_t engine) {
  auto fastest = engine == ZipPieces::FastestEngine ? makeLibdeflatePieceInflater() : nullptr;
  return fastest ? std::move(fastest) : makeZlibPieceInflater();
}

bool PieceInflater::unpack(unsigned char* packed, std::size_t packedSize, unsigned char* room,
                           std::size_t plainSize) noexcept {
  std::memcpy(packed + packedSize, emptyFinalBlock, sizeof(emptyFinalBlock));
  return unpackFinished(packed, packedSize + sizeof(emptyFinalBlock), room, plainSize);
}

}  // namespace Kyr

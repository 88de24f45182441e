#include <kyr/pack/piece_engines_p.h>

namespace Kyr {

std::unique_ptr<PieceDeflater> makeIsalPieceDeflater() {
  return nullptr;
}

}  // namespace Kyr

#include <kyr/sync/shared_memory_p.h>

#include <kyr/core/KyrProgError.h>

namespace Kyr {

std::shared_ptr<SharedBlock> SharedBlock::create(unsigned /*size*/) {
  throw ProgError("Not implemented for Windows", true);
}

std::shared_ptr<SharedBlock> SharedBlock::attach(unsigned /*size*/, int /*id*/) {
  throw ProgError("Not implemented for Windows", true);
}

}  // namespace Kyr

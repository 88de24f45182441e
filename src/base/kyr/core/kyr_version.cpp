#include <kyr/core/KyrVersion.h>

namespace Kyr {

const char* libraryVersion() noexcept {
  return KYR_VERSION_TEXT;
}

}  // namespace Kyr

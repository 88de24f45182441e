#include <kyr/files/unfinished_p.h>

namespace Kyr::Unfinished {

namespace {

/// The word that every stream keeps for the library, in which its marks are counted.
long& marks(std::ostream& stream) {
  static const int index = std::ios_base::xalloc();
  return stream.iword(index);
}

}  // namespace

void mark(std::ostream& stream) {
  ++marks(stream);
}

void clear(std::ostream& stream) {
  --marks(stream);
}

bool isMarked(std::ostream& stream) {
  return marks(stream) != 0;
}

}  // namespace Kyr::Unfinished

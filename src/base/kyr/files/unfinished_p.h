/// \file
/// Marks of writers that complete their output only at the end, as compressors do: who keeps the
/// stream sees that its content is not whole yet.
#pragma once

#include <ostream>

namespace Kyr::Unfinished {

/// Marks a stream. The marks of several writers add up.
void mark(std::ostream& stream);
/// Takes one mark back. A writer that has failed leaves its mark for good.
void clear(std::ostream& stream);
bool isMarked(std::ostream& stream);

}  // namespace Kyr::Unfinished

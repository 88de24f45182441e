/// \file
/// How those who complete their output only at the end, as compressors, tell whoever keeps the
/// stream that what stands in it is not whole yet.
#pragma once

#include <ostream>

namespace Kyr::Unfinished {

/// Marks a stream. The marks of several writers add up.
void mark(std::ostream& stream);
/// Takes one mark back; who fails leaves it.
void clear(std::ostream& stream);
bool isMarked(std::ostream& stream);

}  // namespace Kyr::Unfinished

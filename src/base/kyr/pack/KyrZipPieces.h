/// \file
/// Compressing in pieces, each of which can be read by itself, on several processors.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <cstdint>

namespace Kyr {

/// Who compresses what is written in pieces.
///
/// The file is the same for every number of workers. It differs from one engine to the other,
/// but every reader reads it.
/// \code
/// ZipPieces pieces;
/// pieces.workers = 4;
/// ZipOutStream out(name, 1, pieces);
/// \endcode
/// \threadsafety a value
struct ZipPieces {
  /// Who compresses and decompresses; each reads what the other one wrote.
  enum Engine_t {
    ZlibEngine = 0,     ///< the same bytes on every system
    FastestEngine = 1,  ///< the fastest that this library was built with; several times as fast as
                        ///< zlib on 64-bit Linux, for files that are a little larger
  };
  /// Threads that work at the same time, the calling one included: 1 starts none. Each takes up to
  /// three pieces, about 2 MB of memory. Anything but 1 to 64 counts as the nearest of them.
  unsigned workers = 1;
  Engine_t engine = ZlibEngine;  ///< of writers and of readers
  /// For later versions.
  std::uintptr_t spare[4] = {};
};

}  // namespace Kyr

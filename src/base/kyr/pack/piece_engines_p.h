/// \file
/// The libraries that compress and decompress pieces, each in a file of its own. Of those that a
/// build may lack, a second file says so.
#pragma once

#include <kyr/pack/piece_engine_p.h>

#include <memory>

namespace Kyr {

/// All of these throw std::bad_alloc.
std::unique_ptr<PieceDeflater> makeZlibPieceDeflater();
std::unique_ptr<PieceInflater> makeZlibPieceInflater();
/// Null where the library was built without ISA-L.
std::unique_ptr<PieceDeflater> makeIsalPieceDeflater();
/// Null where the library was built without libdeflate.
std::unique_ptr<PieceInflater> makeLibdeflatePieceInflater();

}  // namespace Kyr

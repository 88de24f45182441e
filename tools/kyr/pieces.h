/// \file
/// The options that say who compresses.
#pragma once

#include "arguments.h"

#include <kyr/pack/KyrZipPieces.h>

namespace KyrTool {

/// Whether the caller wants pieces.
bool wantsPieces(const Arguments& arguments);
/// What --workers and --engine say.
/// \throws UsageError
Kyr::ZipPieces piecesOf(const Arguments& arguments);

}  // namespace KyrTool

#include "pieces.h"

#include <kyr/i18n/KyrTranslate.h>

namespace KyrTool {

bool wantsPieces(const Arguments& arguments) {
  return arguments.has("workers") || arguments.has("engine");
}

Kyr::ZipPieces piecesOf(const Arguments& arguments) {
  Kyr::ZipPieces pieces;
  pieces.workers = arguments.number("workers", 1, 64, 1);
  const QString engine = arguments.option("engine");
  if (engine == "fastest") {
    pieces.engine = Kyr::ZipPieces::FastestEngine;
  } else if (arguments.has("engine") && engine != "zlib") {
    throw UsageError{
        Kyr::translate("Kyr_tool", "--engine is zlib or fastest, not \"%1\"").arg(engine)};
  }
  return pieces;
}

}  // namespace KyrTool

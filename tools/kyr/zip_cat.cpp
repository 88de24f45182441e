#include "commands.h"
#include "output.h"
#include "pieces.h"
#include "zip_state.h"

namespace KyrTool {

int zipCat(const Arguments& arguments) {
  const Kyr::ZipPieces pieces = piecesOf(arguments);
  Input input(arguments[0]);
  Kyr::ZipInStream zip(&input.stream(), anyVersion);
  zip.setWorkers(pieces);
  if (!readToEnd(zip, writeBytes)) {
    return Fine;  // what becomes of lost output is decided at the end
  }
  input.expectNoFailure();
  if (codeOf(zip) != Fine) {
    throw FileError{QString("%1: %2").arg(input.name(), stateText(zip))};
  }
  return Fine;
}

}  // namespace KyrTool

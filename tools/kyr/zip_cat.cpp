#include "commands.h"
#include "output.h"
#include "zip_state.h"

#include <vector>

namespace KyrTool {

namespace {

/// \return false when nobody takes the content any more
bool deliver(Kyr::ZipInStream& zip) {
  std::vector<char> piece(1U << 16U);
  do {
    zip.read(piece.data(), static_cast<std::streamsize>(piece.size()));
    if (!writeBytes(piece.data(), static_cast<std::size_t>(zip.gcount()))) {
      return false;
    }
  } while (zip);
  return true;
}

}  // namespace

int zipCat(const Arguments& arguments) {
  Input input(arguments[0]);
  Kyr::ZipInStream zip(&input.stream(), anyVersion);
  if (!deliver(zip)) {
    return Fine;  // what becomes of lost output is decided at the end
  }
  input.expectNoFailure();
  if (codeOf(zip) != Fine) {
    throw FileError{QString("%1: %2").arg(input.name(), stateText(zip))};
  }
  return Fine;
}

}  // namespace KyrTool

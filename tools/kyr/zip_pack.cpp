#include "commands.h"
#include "input.h"
#include "target.h"

#include <kyr/pack/KyrZipStream.h>

#include <iostream>
#include <vector>

namespace KyrTool {

namespace {

void pack(Input& input, std::ostream& target, unsigned fileVersion) {
  Kyr::ZipOutStream zip(&target, fileVersion);
  std::vector<char> piece(1U << 16U);
  do {
    input.stream().read(piece.data(), static_cast<std::streamsize>(piece.size()));
    zip.write(piece.data(), input.stream().gcount());
  } while (input.stream() && zip);
  input.expectNoFailure();
  zip.close();
  target.setstate(zip ? std::ios_base::goodbit : std::ios_base::badbit);
}

}  // namespace

int zipPack(const Arguments& arguments) {
  const unsigned fileVersion = arguments.number("file-version", 0, 0xFFFFFFFFU, 0);
  expectOtherFile(arguments[0], arguments[1]);
  Input input(arguments[0]);
  if (arguments[1] == "-") {
    pack(input, std::cout, fileVersion);  // a failure is reported with standard output's
    return Fine;
  }
  Target target(arguments[1]);
  pack(input, target.stream(), fileVersion);
  target.complete();
  return Fine;
}

}  // namespace KyrTool

#include "commands.h"
#include "input.h"
#include "pieces.h"
#include "target.h"

#include <kyr/pack/KyrZipStream.h>

#include <iostream>
#include <memory>
#include <vector>

namespace KyrTool {

namespace {

std::unique_ptr<Kyr::ZipOutStream> makeStream(std::ostream& target, unsigned fileVersion,
                                              const Arguments& arguments) {
  return wantsPieces(arguments)
             ? std::make_unique<Kyr::ZipOutStream>(&target, fileVersion, piecesOf(arguments))
             : std::make_unique<Kyr::ZipOutStream>(&target, fileVersion);
}

void pack(Input& input, std::ostream& target, const Arguments& arguments) {
  const unsigned fileVersion = arguments.number("file-version", 0, 0xFFFFFFFFU, 0);
  const std::unique_ptr<Kyr::ZipOutStream> stream = makeStream(target, fileVersion, arguments);
  Kyr::ZipOutStream& zip = *stream;
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
  arguments.number("file-version", 0, 0xFFFFFFFFU, 0);
  piecesOf(arguments);  // wrong usage shows before a file is touched
  expectOtherFile(arguments[0], arguments[1]);
  Input input(arguments[0]);
  if (arguments[1] == "-") {
    pack(input, std::cout, arguments);  // a failure is reported with standard output's
    return Fine;
  }
  Target target(arguments[1]);
  pack(input, target.stream(), arguments);
  target.complete();
  return Fine;
}

}  // namespace KyrTool

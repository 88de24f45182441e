// A process that saves one file over and over and tells of its steps, until somebody ends it. Each
// content is one letter, repeated so often that the length tells which one. With a second word the
// file is a zip stream in pieces, of contents that are ten times as long.
#include <kyr/files/KyrSafeFile.h>
#include <kyr/pack/KyrZipStream.h>

#include <iostream>
#include <string>

namespace {

void write(std::ostream& stream, unsigned round, std::size_t size) {
  const std::string part(size, static_cast<char>('a' + round));
  for (unsigned i = 0; i < 100 + round; ++i) {
    stream << part;
    std::cout << (i % 16 == 0 ? "w" : "") << std::flush;
  }
}

}  // namespace

int main(int count, char** words) {
  Kyr::ZipPieces pieces;
  pieces.workers = 3;
  for (unsigned round = 0;; round = (round + 1) % 26) {
    Kyr::SafeFile file(QString::fromUtf8(words[1]));
    std::cout << 'c' << std::flush;
    if (count > 2) {
      Kyr::ZipOutStream zip(&file.stream(), 1, pieces);
      write(zip, round, 10000);
      zip.close();
    } else {
      write(file.stream(), round, 1000);
    }
    file.commit([](const QString& /*name*/) { std::cout << 's' << std::flush; });
    std::cout << 'r' << std::flush;
  }
}

// A process that saves one file over and over and tells of its steps, until somebody ends it. Each
// content is one letter, repeated so often that the length tells which one.
#include <kyr/files/KyrSafeFile.h>

#include <iostream>
#include <string>

int main(int /*count*/, char** words) {
  for (unsigned round = 0;; round = (round + 1) % 26) {
    Kyr::SafeFile file(QString::fromUtf8(words[1]));
    std::cout << 'c' << std::flush;
    const std::string piece(1000, static_cast<char>('a' + round));
    for (unsigned i = 0; i < 100 + round; ++i) {
      file.stream() << piece;
      std::cout << (i % 16 == 0 ? "w" : "") << std::flush;
    }
    file.commit([](const QString& /*name*/) { std::cout << 's' << std::flush; });
    std::cout << 'r' << std::flush;
  }
}

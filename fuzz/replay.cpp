// Hands the files of a folder to a harness, one after the other, and names each: the last one named
// is the one that broke something.
#include <QDir>
#include <QFile>

#include <cstddef>
#include <cstdint>
#include <iostream>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

int main(int count, char** words) {
  const QDir corpus(count == 2 ? QFile::decodeName(words[1]) : QString());
  int replayed = 0;
  for (const QString& name : corpus.entryList(QDir::Files, QDir::Name)) {
    std::cout << name.toStdString() << std::endl;
    QFile file(corpus.filePath(name));
    if (!file.open(QIODevice::ReadOnly)) {
      return 1;
    }
    const QByteArray bytes = file.readAll();
    LLVMFuzzerTestOneInput(reinterpret_cast<const std::uint8_t*>(bytes.constData()),
                           static_cast<std::size_t>(bytes.size()));
    ++replayed;
  }
  if (count != 2 || replayed == 0) {
    std::cerr << "usage: fuzz_NAME FOLDER, which holds inputs\n";
    return 2;
  }
  return 0;
}

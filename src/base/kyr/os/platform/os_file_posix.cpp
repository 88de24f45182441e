#include <kyr/os/os_file_p.h>

#include <QFile>

namespace Kyr {

// The bytes that QFile uses too, so that both mean the same file. Before there is a Qt
// application the locale is "C" and loses letters; the name then is UTF-8, as everywhere today.
std::filesystem::path Platform::nativePath(const QString& name) {
  const QByteArray encoded = QFile::encodeName(name);
  const bool lossless = QFile::decodeName(encoded) == name;
  return (lossless ? encoded : name.toUtf8()).toStdString();
}

std::filesystem::path Platform::verbatimPath(const QString& name) {
  return nativePath(name);
}

QString Platform::nameOf(const std::filesystem::path& native) {
  const QByteArray bytes = QByteArray::fromStdString(native.native());
  const QString name = QFile::decodeName(bytes);
  return QFile::encodeName(name) == bytes ? name : QString::fromUtf8(bytes);
}

bool Platform::isDirectory(const QString& name) {
  std::error_code ignored;
  return std::filesystem::is_directory(nativePath(name), ignored);
}

// Nothing here keeps other writers out: locks between processes are a matter of agreement.
bool Platform::openBuffer(std::filebuf& buffer, const QString& name, std::ios_base::openmode mode,
                          bool /*shared*/) {
  return buffer.open(nativePath(name), mode) != nullptr;
}

FILE* Platform::openFile(const QString& name, const char* mode) {
  return std::fopen(nativePath(name).c_str(), mode);
}

}  // namespace Kyr

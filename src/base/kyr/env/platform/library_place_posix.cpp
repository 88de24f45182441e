#include <kyr/env/library_place_p.h>

#include <QFile>
#include <QFileInfo>

#include <dlfcn.h>

namespace Kyr {

// Links to the library are followed: catalogues lie beside what was installed.
QString Platform::libraryDirectory() {
  Dl_info library = {};
  const bool found = ::dladdr(reinterpret_cast<void*>(&Platform::libraryDirectory), &library) != 0;
  const QString file = found ? QFile::decodeName(library.dli_fname) : QString();
  const QString target = QFileInfo(file).canonicalFilePath();
  return target.isEmpty() ? QString() : QFileInfo(target).path();
}

}  // namespace Kyr

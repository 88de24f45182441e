#include "../same_file_p.h"

#include <QFile>

#include <sys/stat.h>
#include <unistd.h>

namespace KyrTool {

namespace {

bool examine(const QString& name, int standardStream, struct stat& found) {
  const int result = name == "-" ? ::fstat(standardStream, &found)
                                 : ::stat(QFile::encodeName(name).constData(), &found);
  return result == 0 && S_ISREG(found.st_mode);
}

}  // namespace

bool isSameFile(const QString& input, const QString& output) {
  struct stat source = {};
  struct stat target = {};
  return examine(input, STDIN_FILENO, source) && examine(output, STDOUT_FILENO, target) &&
         source.st_dev == target.st_dev && source.st_ino == target.st_ino;
}

}  // namespace KyrTool

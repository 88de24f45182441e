#include <kyr/pack/tar_files_p.h>

#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>

#include <QDir>

#include <array>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>

namespace Kyr {

bool TarFiles::examine(const QString& name, Facts& facts) {
  facts = {};
  const std::string path = Platform::nativePath(name).native();
  struct stat found = {};
  if (::lstat(path.c_str(), &found) != 0) {
    return false;
  }
  facts.isLink = S_ISLNK(found.st_mode);
  facts.isBroken = facts.isLink && ::stat(path.c_str(), &found) != 0;
  if (facts.isBroken) {
    return true;
  }
  facts.isFile = S_ISREG(found.st_mode);
  facts.isDirectory = S_ISDIR(found.st_mode);
  facts.size = found.st_size;
  facts.modified = found.st_mtime;
  return true;
}

// The name stays relative where the system does not tell the current directory, instead of
// beginning at the root.
QString TarFiles::absolute(const QString& name) {
  const QString current = QDir::isAbsolutePath(name) ? QString() : OS::getCurrentDirectory();
  return current.isEmpty() ? name : current + "/" + name;
}

bool TarFiles::canBeName(const QString& /*part*/) {
  return true;
}

void TarFiles::setModified(const QString& name, std::int64_t seconds) {
  const timespec moment{static_cast<time_t>(seconds), 0};
  const std::array<timespec, 2> accessAndChange{moment, moment};
  ::utimensat(AT_FDCWD, Platform::nativePath(name).c_str(), accessAndChange.data(), 0);
}

}  // namespace Kyr

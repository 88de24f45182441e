#include <kyr/os/KyrOS.h>
#include <kyr/os/os_directory_p.h>
#include <kyr/os/os_process_p.h>
#include <kyr/os/os_reason_p.h>

#include <QDir>

#include <cerrno>

namespace Kyr {

namespace {

bool isDirectory(const QString& name) {
  const Platform::KeepLastError keep;
  OS::FileStatus status;
  return OS::stat(name, &status) && status.isDirectory;
}

/// Makes one directory, unless it is there, or another process makes it meanwhile.
/// \return whether it is there
bool ensureDirectory(const QString& name, bool ownerOnly) {
  return isDirectory(name) || Platform::makeDirectory(name, ownerOnly) || isDirectory(name);
}

QString fromTo(const QString& from, const QString& to) {
  return from + " to " + to;
}

bool copyOver(const QString& from, const QString& to) {
  const QString beside = TemporaryFile::besideOf(to);
  if (!Platform::copyFile(from, beside)) {
    return false;
  }
  const bool renamed = Platform::renameOver(beside, to);
  if (!renamed) {
    const Platform::KeepLastError keep;
    Platform::removeFile(beside);
  }
  return renamed;
}

}  // namespace

bool Platform::readEntries(const QString& name, QStringList& entries) {
  int all = 0;
  return readEntries(name, {}, entries, all);
}

bool OS::stat(const QString& name, FileStatus* status) {
  FileStatus unused;
  return Platform::isName(name) && Platform::readStatus(name, status ? *status : unused);
}

OS::FileStatus OS::getStatus(const QString& name) {
  constexpr const char* what = "cannot examine %1";
  Platform::expectName(what, name);
  FileStatus status;
  if (!Platform::readStatus(name, status)) {
    Platform::fail(what, name);
  }
  return status;
}

bool OS::mkdir(const QString& name, bool ownerOnly) {
  if (!Platform::isName(name) || isDirectory(name)) {
    return Platform::isName(name);
  }
  // A directory further up that cannot be made may be a server or a drive: only the last one
  // decides. If it has no place to be made in, the reason is that of the missing place.
  const QString path = QDir::fromNativeSeparators(name);
  Platform::SystemError above;
  for (auto end = path.indexOf('/', 1); end > 0; end = path.indexOf('/', end + 1)) {
    if (!ensureDirectory(path.left(end), ownerOnly) && Platform::lastError().known != ENOENT) {
      above = Platform::lastError();
    }
  }
  const bool made = ensureDirectory(path, ownerOnly);
  if (!made && Platform::lastError().known == ENOENT && above.native != 0) {
    Platform::setLastError(above);
  }
  return made;
}

void OS::makeDirectory(const QString& name, bool ownerOnly) {
  constexpr const char* what = "cannot make the directory %1";
  Platform::expectName(what, name);
  if (!mkdir(name, ownerOnly)) {
    Platform::fail(what, name);
  }
}

bool OS::readDirectory(const QString& name, QStringList* entries) {
  entries->clear();
  if (!Platform::isName(name) || !Platform::readEntries(name, *entries)) {
    const Platform::KeepLastError keep;
    entries->clear();
    return false;
  }
  entries->removeAll(".");
  entries->removeAll("..");
  entries->sort();
  return true;
}

QStringList OS::listDirectory(const QString& name) {
  constexpr const char* what = "cannot read the directory %1";
  Platform::expectName(what, name);
  QStringList entries;
  if (!readDirectory(name, &entries)) {
    Platform::fail(what, name);
  }
  return entries;
}

bool OS::copyFile(const QString& from, const QString& to) {
  FileStatus status;
  return stat(from, &status) && status.isFile && Platform::isName(to) &&
         Platform::copyFile(from, to);
}

void OS::copy(const QString& from, const QString& to, Existing_t existing) {
  constexpr const char* what = "cannot copy %1";
  Platform::expectName(what, to);
  if (!getStatus(from).isFile) {
    Platform::fail(what, fromTo(from, to), "only plain files are copied");
  }
  if (!(existing == ReplaceExisting ? copyOver(from, to) : Platform::copyFile(from, to))) {
    Platform::fail(what, fromTo(from, to));
  }
}

void OS::rename(const QString& from, const QString& to, Existing_t existing) {
  constexpr const char* what = "cannot rename %1";
  Platform::expectName(what, from);
  Platform::expectName(what, to);
  const bool replaces = existing == ReplaceExisting && !Platform::isRealDirectory(from);
  if (!(replaces ? Platform::renameOver(from, to) : Platform::renameToFree(from, to))) {
    Platform::fail(what, fromTo(from, to));
  }
}

bool OS::unlink(const QString& name) {
  return Platform::isName(name) && Platform::removeFile(name);
}

void OS::remove(const QString& name) {
  constexpr const char* what = "cannot remove %1";
  Platform::expectName(what, name);
  const bool isDirectory = Platform::isRealDirectory(name);
  if (!(isDirectory ? Platform::removeDirectory(name) : Platform::removeFile(name))) {
    Platform::fail(what, name);
  }
}

QString OS::convertSeparatorsToUnix(const QString& path) {
  return QString(path).replace('\\', '/');
}

}  // namespace Kyr

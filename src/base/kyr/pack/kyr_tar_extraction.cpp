#include <kyr/core/KyrException.h>
#include <kyr/files/leftovers_p.h>
#include <kyr/files/live_files_p.h>
#include <kyr/files/safe_file_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_directory_p.h>
#include <kyr/os/os_file_p.h>
#include <kyr/os/os_process_p.h>
#include <kyr/os/os_reason_p.h>
#include <kyr/pack/KyrZippedTar.h>
#include <kyr/pack/tar_files_p.h>
#include <kyr/trace/KyrTrace.h>

#include <QDir>
#include <QHash>
#include <QSet>

#include <algorithm>
#include <functional>

namespace Kyr {

namespace {

/// Whether some system takes a part for the directory above: "..", but also ".. " and "...".
bool leadsUp(const QString& part) {
  return part.size() > 1 &&
         std::all_of(part.begin(), part.end(), [](QChar c) { return c == '.' || c == ' '; });
}

/// Whether a name stays below the directory that it is put into, on every system.
bool isHarmless(const QString& name) {
  const QStringList parts = OS::convertSeparatorsToUnix(name).split('/');
  const bool hasDrive = name.size() > 1 && name[0].isLetter() && name[1] == ':';
  return !hasDrive && !parts.first().isEmpty() && !parts.last().isEmpty() && parts.last() != "." &&
         !name.contains(QChar::Null) && std::none_of(parts.begin(), parts.end(), leadsUp);
}

/// Whether files on this system can have a name; the names of devices, for example, they cannot.
bool isPossible(const QString& name) {
  const QStringList parts = OS::convertSeparatorsToUnix(name).split('/');
  return std::all_of(parts.begin(), parts.end(), TarFiles::canBeName);
}

[[noreturn]] void refuse(const char* fault, const QString& what) {
  throw Exception(QString("%1: %2").arg(fault, what));
}

/// The name of a directory within the archive; empty for the archive's own, as "./".
QString directoryIn(QString name) {
  while (name.endsWith('/') || name.endsWith("/.")) {
    name.chop(1);
  }
  return name == "." ? QString() : name;
}

void expectName(const QString& name) {
  if (!isHarmless(name)) {
    refuse("a name in the archive leads out of the directory", name);
  }
  if (!isPossible(name)) {
    refuse("this system has no files of such a name", name);
  }
}

QString pathOf(const QString& directory, const QString& name) {
  return directory + "/" + QDir::fromNativeSeparators(name);
}

void expectFree(const QString& path) {
  TarFiles::Facts facts;
  if (TarFiles::examine(path, facts)) {
    refuse("something of this name is there already", path);
  }
}

/// Throws the Exception for a path, with the reason of the system.
[[noreturn]] void refuseToWrite(const QString& path) {
  const QString reason = Platform::inWords(Platform::lastError());
  LiveFile::stayIfEnding();
  throw Exception(QString("cannot write, as %1: %2").arg(reason, path));
}

void makeDirectory(const QString& path) {
  if (!OS::mkdir(path)) {
    refuse("cannot make the directory", path);
  }
}

bool isPlainFile(const QString& path) {
  TarFiles::Facts facts;
  return TarFiles::examine(path, facts) && facts.isFile && !facts.isLink;
}

/// A file under a name of its own, which goes with it unless the file was put in its place.
class NewFile {
 public:
  explicit NewFile(const QString& path)
      : _path(path),
        _temporary(TemporaryFile::besideOf(path)),
        _nativeTemporary(Platform::nativePath(_temporary)) {}
  ~NewFile() {
    if (_isThere) {
      std::error_code ignored;
      _file.close();
      std::filesystem::remove(_nativeTemporary, ignored);  // needs no memory
    }
  }
  NewFile(const NewFile&) = delete;
  NewFile& operator=(const NewFile&) = delete;

  /// Writes the file under its own name.
  /// \param keepsPermissions whether it gets those of the plain file that has its place
  /// \param written called with the bytes of each part; what it throws comes out of this
  bool write(const std::vector<unsigned char>& contents, bool keepsPermissions,
             const std::function<void(std::size_t)>& written) {
    constexpr std::size_t partSize = 1U << 20U;
    bool isGood = _file.create(_nativeTemporary, keepsPermissions ? _path : _temporary);
    _live.tried();
    _isThere = _file.isOpen();
    const auto* const bytes = reinterpret_cast<const char*>(contents.data());
    for (std::size_t done = 0; isGood && done < contents.size();) {
      const std::size_t part = std::min(partSize, contents.size() - done);
      isGood = _file.write(bytes + done, part);
      done += part;
      if (isGood) {
        written(part);
      }
    }
    return isGood && _file.close();
  }

  /// Puts the file in its place.
  /// \return false when it is still under its own name
  bool put(OS::Existing_t existing) {
    const bool isPut =
        existing == OS::KeepExisting ? Platform::renameToFree(_temporary, _path) : replace();
    _isThere = !isPut;
    return isPut;
  }

  const QString& temporary() const { return _temporary; }

 private:
  /// Replaces what has the name; some systems do not replace links to directories in one step.
  bool replace() {
    if (Platform::renameOver(_temporary, _path)) {
      return true;
    }
    if (isPlainFile(_path)) {
      return false;
    }
    LiveFile::stayIfEnding();  // nothing makes room for a file that is gone
    return Platform::removeFile(_path) && Platform::renameOver(_temporary, _path);
  }

  QString _path;
  QString _temporary;
  std::filesystem::path _nativeTemporary;
  LiveFile _live{_nativeTemporary};
  Platform::OutputFile _file;
  bool _isThere = false;
};

void writeFile(const QString& path, const std::vector<unsigned char>& contents,
               std::int64_t modified, OS::Existing_t existing,
               const std::function<void(std::size_t)>& written) {
  NewFile file(path);
  makeDirectory(path.left(path.lastIndexOf('/')));
  const bool keepsPermissions = existing == OS::ReplaceExisting && isPlainFile(path);
  if (!file.write(contents, keepsPermissions, written)) {
    refuseToWrite(path);
  }
  TarFiles::setModified(file.temporary(), modified);
  if (!file.put(existing)) {
    refuseToWrite(path);
  }
}

/// Removes what killed processes have left in the directories of these files.
void sweepFolders(const std::vector<QString>& paths) {
  QSet<QString> folders;
  for (const QString& path : paths) {
    folders.insert(path.left(path.lastIndexOf('/') + 1));
  }
  std::for_each(folders.cbegin(), folders.cend(), Leftovers::sweep);
}

}  // namespace

void ZippedTarReader::extractTo(const QString& directory) const {
  extractTo(directory, OS::ReplaceExisting);
}

void ZippedTarReader::extractTo(const QString& directory, OS::Existing_t existing) const {
  extractTo(directory, existing, [](std::uint64_t, unsigned) {});
}

void ZippedTarReader::extractTo(const QString& directory, OS::Existing_t existing,
                                const Watcher& watcher) const {
  const TraceSpan span("ZippedTarReader::extractTo", "save");
  if (!isValid()) {
    throw Exception("the archive is damaged or larger than allowed");
  }
  std::vector<QString> paths;
  QHash<QString, std::size_t> last;  // of several files of one name the last counts
  for (const File& file : _files) {
    expectName(file.name);
    paths.push_back(pathOf(directory, file.name));
    last[QDir::cleanPath(paths.back())] = paths.size() - 1;
  }
  std::vector<QString> directories{directory};
  for (const QString& name : _directories) {
    if (const QString inside = directoryIn(name); !inside.isEmpty()) {
      expectName(inside);
      directories.push_back(pathOf(directory, inside));
    }
  }
  if (existing == OS::KeepExisting) {
    std::for_each(paths.begin(), paths.end(), expectFree);
  }
  std::for_each(directories.begin(), directories.end(), makeDirectory);
  sweepFolders(paths);
  unsigned whole = 0;
  for (std::size_t i = 0; i < paths.size(); ++i) {
    if (last[QDir::cleanPath(paths[i])] == i) {
      writeFile(paths[i], _files[i].contents, _files[i].modified, existing,
                [&](std::size_t bytes) { watcher(bytes, whole); });
      watcher(0, ++whole);
    }
  }
}

}  // namespace Kyr

#include <kyr/files/KyrDirectoryTree.h>

#include <kyr/files/tree_walker_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>
#include <kyr/os/os_reason_p.h>

#include <QDir>

#include <cerrno>

namespace Kyr {

namespace {

using Platform::NativeName;

/// Deletes one tree, in a loop and not recursively: a tree may be deeper than a stack.
class Eraser {
 public:
  /// \param parent with "/" at its end, or empty for the current directory
  Eraser(const QString& parent, ErrorLog* log)
      : _parent(parent), _walker(parent.isEmpty() ? "." : parent), _log(log) {}

  bool erase(const NativeName& name);

 private:
  /// A directory whose entries are on their way out.
  struct Level {
    NativeName name;
    std::vector<NativeName> left;
    bool isComplete = true;  ///< nothing stays in it
  };

  void eraseEntry(const NativeName& name);
  void enter(const NativeName& name);
  void leave();
  void report(const NativeName& name, const Platform::SystemError& error);

  QString _parent;
  Platform::TreeWalker _walker;
  ErrorLog* _log;
  std::vector<Level> _levels;
};

bool Eraser::erase(const NativeName& name) {
  _levels.push_back({{}, {name}});
  if (!_walker.isOpen()) {
    const Platform::SystemError error = Platform::lastError();
    if (error.known != ENOENT) {
      report(name, error);
    }
    return error.known == ENOENT;
  }
  while (_walker.isOpen() && (_levels.size() > 1 || !_levels.front().left.empty())) {
    std::vector<NativeName>& left = _levels.back().left;
    if (left.empty()) {
      leave();
    } else {
      const NativeName next = left.back();
      left.pop_back();
      eraseEntry(next);
    }
  }
  return _levels.front().isComplete;
}

void Eraser::eraseEntry(const NativeName& name) {
  if (_walker.removeOther(name)) {
    return;
  }
  const Platform::SystemError error = Platform::lastError();
  if (error.known == ENOENT) {
    return;  // somebody else has removed the entry meanwhile
  }
  if (_walker.kindOf(name) == Platform::TreeWalker::Directory) {
    enter(name);
  } else {
    report(name, error);
  }
}

void Eraser::enter(const NativeName& name) {
  if (!_walker.enter(name)) {
    const Platform::SystemError error = Platform::lastError();
    if (!_walker.removeDirectory(name)) {  // an empty directory need not be readable
      report(name, error);
    }
    return;
  }
  _levels.push_back({name, {}});
  if (!_walker.list(_levels.back().left)) {
    _levels.back().isComplete = false;
    report({}, Platform::lastError());
  }
}

void Eraser::leave() {
  const Level left = _levels.back();
  if (!_walker.leave()) {
    report({}, Platform::lastError());
    _levels.front().isComplete = false;
    return;
  }
  _levels.pop_back();
  if (!left.isComplete) {
    _levels.back().isComplete = false;
  } else if (!_walker.removeDirectory(left.name)) {
    const Platform::SystemError error = Platform::lastError();
    if (error.known != ENOENT) {
      report(left.name, error);
    }
  }
}

/// \param name in the directory where it stands, or empty for that itself
void Eraser::report(const NativeName& name, const Platform::SystemError& error) {
  _levels.back().isComplete = false;
  if (!_log) {
    return;
  }
  std::filesystem::path path;
  for (const Level& level : _levels) {
    path /= level.name;
  }
  if (!name.empty()) {
    path /= name;
  }
  *_log << "cannot delete " << _parent + QDir::fromNativeSeparators(Platform::nameOf(path)) << ": "
        << Platform::inWords(error) << END_LOG;
}

bool refuse(const QString& name, const char* reason, ErrorLog* log) {
  if (log) {
    *log << "cannot delete " << name << ": " << reason << END_LOG;
  }
  return false;
}

/// Whether a name leads to something that is no directory, and no tree to be deleted.
bool isNoDirectory(const QString& name) {
  OS::FileStatus status;
  return OS::stat(name, &status) && !status.isDirectory;
}

}  // namespace

bool deleteDirectoryTree(const QString& directory, ErrorLog* log) {
  if (!Platform::isName(directory)) {
    return refuse(directory, Platform::badName, log);
  }
  const QString path = Platform::withoutEndSlashes(QDir::fromNativeSeparators(directory));
  const auto start = path.lastIndexOf('/') + 1;
  const QString name = path.mid(start);
  if (name.isEmpty() || name == "." || name == "..") {
    return refuse(directory, "its last part is no name of a directory", log);
  }
  if (isNoDirectory(path)) {
    return refuse(directory, "it is no directory", log);
  }
  return Eraser(path.left(start), log).erase(Platform::TreeWalker::nativeName(name));
}

// Of a class further down, which knows of a log only that there is such a class.
bool OS::deleteDirectoryRecursion(const QString& dir, ErrorLog* log) {
  return deleteDirectoryTree(dir, log);
}

}  // namespace Kyr

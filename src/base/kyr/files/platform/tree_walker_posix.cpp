#include <kyr/files/tree_walker_p.h>

#include <kyr/os/os_directory_posix_p.h>
#include <kyr/os/os_file_p.h>
#include <kyr/os/os_reason_p.h>

#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace Kyr::Platform {

namespace {

constexpr std::intptr_t closed = -1;
/// How many directories are kept open: a tree may be deeper than a process may have files open.
constexpr std::size_t mostOpen = 64;
constexpr int toEnter = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

int descriptor(std::intptr_t handle) {
  return static_cast<int>(handle);
}

void close(std::intptr_t& handle) {
  if (handle != closed) {
    const KeepLastError keep;
    ::close(descriptor(handle));
    handle = closed;
  }
}

/// Where a directory is.
struct Place {
  std::uint64_t device = 0;
  std::uint64_t number = 0;
};

/// Finds the device, number and mount of a directory; one that is mounted a second time differs in
/// the mount only.
bool findPlace(int directory, Place& place) {
  struct statx found = {};
  if (::statx(directory, "", AT_EMPTY_PATH, STATX_INO | STATX_MNT_ID, &found) != 0) {
    return false;
  }
  const bool isMountKnown = (found.stx_mask & STATX_MNT_ID) != 0;
  place.device =
      isMountKnown ? found.stx_mnt_id : makedev(found.stx_dev_major, found.stx_dev_minor);
  place.number = found.stx_ino;
  return true;
}

}  // namespace

TreeWalker::TreeWalker(const QString& start) {
  const int opened = ::open(nativePath(start).c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened >= 0) {
    push(opened, {});
  }
}

TreeWalker::~TreeWalker() {
  for (Level& level : _levels) {
    close(level.handle);
  }
}

NativeName TreeWalker::nativeName(const QString& name) {
  return nativePath(name).native();
}

bool TreeWalker::push(std::intptr_t handle, const NativeName& path) {
  Place place;
  if (!findPlace(descriptor(handle), place)) {
    close(handle);
    return false;
  }
  if (_levels.size() >= mostOpen) {
    close(_levels[_levels.size() - mostOpen].handle);
  }
  _levels.push_back({handle, place.device, place.number, path});
  return true;
}

NativeName TreeWalker::pathOf(const NativeName& name) const {
  return name;  // the system takes it together with the descriptor of its directory
}

TreeWalker::Kind_t TreeWalker::kindOf(const NativeName& name) const {
  struct stat found = {};
  if (::fstatat(descriptor(_levels.back().handle), name.c_str(), &found, AT_SYMLINK_NOFOLLOW) !=
      0) {
    return Missing;
  }
  return S_ISDIR(found.st_mode) ? Directory : Other;
}

bool TreeWalker::list(std::vector<NativeName>& names) const {
  EntryReader reader(::openat(descriptor(_levels.back().handle), ".", toEnter));
  if (!reader.isOpen()) {
    return false;
  }
  while (const char* const entry = reader.next()) {
    names.emplace_back(entry);
  }
  return reader.isComplete();
}

bool TreeWalker::removeOther(const NativeName& name) const {
  return ::unlinkat(descriptor(_levels.back().handle), name.c_str(), 0) == 0;
}

bool TreeWalker::removeDirectory(const NativeName& name) const {
  return ::unlinkat(descriptor(_levels.back().handle), name.c_str(), AT_REMOVEDIR) == 0;
}

bool TreeWalker::enter(const NativeName& name) {
  const std::uint64_t device = _levels.back().device;
  const int opened = ::openat(descriptor(_levels.back().handle), name.c_str(), toEnter);
  if (opened < 0 || !push(opened, {})) {
    return false;
  }
  if (_levels.back().device == device || _levels.size() == 2) {
    return true;
  }
  close(_levels.back().handle);
  _levels.pop_back();
  errno = EBUSY;
  return false;
}

bool TreeWalker::leave() {
  const int left = descriptor(_levels.back().handle);
  Level& above = _levels[_levels.size() - 2];
  if (above.handle == closed) {
    Place place;
    above.handle = ::openat(left, "..", toEnter);
    const bool isSame = above.handle >= 0 && findPlace(descriptor(above.handle), place) &&
                        place.device == above.device && place.number == above.number;
    if (!isSame) {
      close(above.handle);
    }
  }
  const bool isBack = above.handle != closed;
  close(_levels.back().handle);
  _levels.pop_back();
  if (!isBack) {
    for (Level& level : _levels) {
      close(level.handle);
    }
    _levels.clear();
  }
  return isBack;
}

}  // namespace Kyr::Platform

#include <kyr/files/safe_file_p.h>

#include <kyr/os/os_reason_p.h>

#include <array>
#include <cerrno>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace Kyr::Platform {

namespace {

constexpr mode_t allPermissions = 07777;
constexpr mode_t newFile = 0666;

/// Copies the list of single users and their rights, which some files have. A model without one
/// takes from the new file what that got from its directory.
void copyAccessList(const char* model, int file) {
  constexpr const char* name = "system.posix_acl_access";
  std::array<char, 4096> list{};
  const ssize_t size = ::getxattr(model, name, list.data(), list.size());
  if (size > 0) {
    ::fsetxattr(file, name, list.data(), static_cast<std::size_t>(size), 0);
  } else {
    ::fremovexattr(file, name);
  }
}

/// Gives the new file the old one's owner and group, as far as the user may: only root gives files
/// away, others keep the group if they are in it.
/// \return the permissions that remain: without the owner no right to run as another user, and
///         without the group no more for the group than everybody has
mode_t copyOwner(const struct stat& old, int file) {
  constexpr auto sameUser = static_cast<uid_t>(-1);
  if (::fchown(file, old.st_uid, old.st_gid) == 0) {
    return old.st_mode & allPermissions;
  }
  const bool keepsGroup = ::fchown(file, sameUser, old.st_gid) == 0;
  const mode_t group = keepsGroup ? mode_t{0070} : (old.st_mode & mode_t{0007}) << 3U;
  return old.st_mode & (mode_t{0707} | group);
}

/// Copies owner, list and permissions. That some file systems have none to set is no failure.
bool copyPermissions(const struct stat& old, const char* model, int file) {
  const mode_t kept = copyOwner(old, file);
  copyAccessList(model, file);
  return ::fchmod(file, kept) == 0 || errno == ENOTSUP || errno == ENOSYS;
}

bool makeAbsolute(std::filesystem::path& path) {
  std::error_code error;
  path = std::filesystem::absolute(path, error);
  errno = error ? error.value() : errno;
  return !error;
}

}  // namespace

// The file is created for its owner alone: nobody may open it meanwhile who may not read the old
// one.
bool OutputFile::create(const std::filesystem::path& name, const QString& model) {
  surviveFileLimit();
  struct stat old = {};
  const std::string modelPath = nativePath(model).native();
  const bool hasModel = ::stat(modelPath.c_str(), &old) == 0;
  const mode_t atFirst = hasModel ? old.st_mode & mode_t{0600} : newFile;
  const int file = ::open(name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, atFirst);
  if (file < 0) {
    return false;
  }
  _handle = file;
  return !hasModel || copyPermissions(old, modelPath.c_str(), file);
}

bool OutputFile::flushToDisk() {
  return ::fsync(static_cast<int>(_handle)) == 0;
}

std::int64_t OutputFile::size() const {
  struct stat found = {};
  return ::fstat(static_cast<int>(_handle), &found) == 0 ? std::int64_t{found.st_size} : -1;
}

bool OutputFile::close() {
  const bool good = !isOpen() || ::close(static_cast<int>(_handle)) == 0;
  _handle = none;
  return good;
}

// canonical() would not do, as for that the target must exist.
bool resolve(const QString& name, QString& target) {
  constexpr int mostLinks = 40;
  std::filesystem::path path = nativePath(name);
  if (!makeAbsolute(path)) {
    return false;
  }
  std::error_code error;
  for (int links = 0; std::filesystem::is_symlink(path, error); ++links) {
    if (links == mostLinks) {
      errno = ELOOP;
      return false;
    }
    path = path.parent_path() / std::filesystem::read_symlink(path, error);
  }
  target = nameOf(path);
  return true;
}

bool mayWrite(const QString& name) {
  return ::access(nativePath(name).c_str(), W_OK) == 0;
}

// This system renames open files as well.
bool isHeldByOther() {
  return false;
}

// Some file systems have nothing to flush for a directory, and say so.
bool flushDirectory(const std::filesystem::path& directory) noexcept {
  const int opened = ::open(directory.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  if (opened < 0) {
    return errno == EACCES;  // a directory that may be written, but not read
  }
  const bool flushed = ::fsync(opened) == 0 || errno == EINVAL || errno == ENOTSUP;
  const KeepLastError keep;
  ::close(opened);
  return flushed;
}

}  // namespace Kyr::Platform

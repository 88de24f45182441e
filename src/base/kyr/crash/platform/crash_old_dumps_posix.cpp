#include <kyr/crash/crash_folder_posix_p.h>
#include <kyr/crash/crash_old_dumps_p.h>
#include <kyr/crash/crash_posix_p.h>

#include <algorithm>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Kyr {

namespace {

/// Whether a name is that of a plain file of this user, as a dump is: the temporary directory is
/// everybody's.
/// \param time when it was written, in nanoseconds
bool isOwnDump(int folder, const char* name, std::int64_t& time) noexcept {
  constexpr std::int64_t second = 1'000'000'000;
  struct stat found = {};
  const bool isOwn = ::fstatat(folder, name, &found, AT_SYMLINK_NOFOLLOW) == 0 &&
                     S_ISREG(found.st_mode) && found.st_uid == ::geteuid();
  time = found.st_mtim.tv_sec * second + found.st_mtim.tv_nsec;
  return isOwn;
}

void removeUnlessWritten(int folder, std::uint32_t process) noexcept {
  Crash::Text name;
  appendDumpName(name, process);
  const int dump =
      ::openat(folder, name.data(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
  if (dump < 0) {
    return;
  }
  if (::flock(dump, LOCK_EX | LOCK_NB) == 0) {
    ::unlinkat(folder, name.data(), 0);
  }
  ::close(dump);
}

}  // namespace

void Crash::removeOldDumps(const char* newest) noexcept {
  static std::array<char, 4096> folder;
  const char* const end = std::strrchr(newest, '/');
  const std::size_t length = end ? std::size_t(end - newest) + 1 : folder.size();
  if (length >= folder.size()) {
    return;
  }
  std::copy_n(newest, length, folder.begin());
  const std::uint32_t own = processOfDump(end + 1);
  NewestDumps kept;
  FolderReader names(folder.data());
  while (const char* const name = names.next()) {
    std::int64_t time = 0;
    const std::uint32_t process = processOfDump(name);
    if (process == 0 || process == own || !isOwnDump(names.descriptor(), name, time)) {
      continue;
    }
    if (const std::uint32_t gone = kept.add(process, time)) {
      removeUnlessWritten(names.descriptor(), gone);
    }
  }
}

}  // namespace Kyr

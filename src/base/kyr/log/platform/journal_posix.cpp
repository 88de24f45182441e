#include <kyr/log/journal_file_p.h>

#include <cerrno>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace Kyr {

// A pipe that nobody reads must not hold up the program.
std::intptr_t Platform::openJournal(const std::filesystem::path& name) noexcept {
  return ::open(name.c_str(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC | O_NOCTTY | O_NONBLOCK,
                0666);
}

void Platform::closeJournal(std::intptr_t file) noexcept {
  ::close(static_cast<int>(file));
}

Platform::JournalLook Platform::lookAtJournal(std::intptr_t file,
                                              const std::filesystem::path& name) noexcept {
  JournalLook look;
  struct stat opened = {};
  struct stat named = {};
  if (::fstat(static_cast<int>(file), &opened) == 0) {
    look.isRemoved = opened.st_nlink == 0;
    look.size = static_cast<std::uint64_t>(S_ISREG(opened.st_mode) ? opened.st_size : 0);
    if (::stat(name.c_str(), &named) == 0) {
      look.isCurrent = named.st_dev == opened.st_dev && named.st_ino == opened.st_ino;
    } else {
      look.isCurrent = errno != ENOENT;
    }
  }
  return look;
}

bool Platform::lockJournal(std::intptr_t file) noexcept {
  return ::flock(static_cast<int>(file), LOCK_EX | LOCK_NB) == 0;
}

}  // namespace Kyr

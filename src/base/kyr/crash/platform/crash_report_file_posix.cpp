#include <kyr/crash/crash_handler_p.h>
#include <kyr/crash/crash_posix_p.h>

#include <algorithm>
#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace Kyr {

namespace {

using Path = std::array<char, 4096>;

Path reportFile{};
/// Where standard error went; negative while it goes there.
std::atomic<int> errorsBefore{-1};
int reportDescriptor = -1;

/// Writes what the file holds to standard error.
void copyToErrors(int file) noexcept {
  static std::array<char, 4096> piece;
  off_t at = 0;
  for (ssize_t count = 0; (count = ::pread(file, piece.data(), piece.size(), at)) > 0;) {
    Fatal::writeToStandardError(piece.data(), static_cast<std::size_t>(count));
    at += count;
  }
}

}  // namespace

void Crash::setReportFile(const char* file) noexcept {
  const std::size_t length = std::strlen(file);
  const bool fits = length < reportFile.size();
  std::copy_n(file, fits ? length : 0, reportFile.begin());
  reportFile[fits ? length : 0] = '\0';
}

void Crash::openReportFile() noexcept {
  static Path path;
  if (!nameOwnFile(reportFile.data(), ".log", path)) {
    return;
  }
  const int file = createOwnFile(path.data());
  const int before = file >= 0 ? ::fcntl(STDERR_FILENO, F_DUPFD_CLOEXEC, STDERR_FILENO + 1) : -1;
  if (before < 0) {
    printSystemError("error creating report file", errno);
    return;
  }
  // The process, kyr-backtrace and whoever else writes meanwhile share one position in the file.
  if (::dup2(file, STDERR_FILENO) == STDERR_FILENO) {
    reportDescriptor = file;
    errorsBefore = before;
  }
}

void Crash::closeReportFile() noexcept {
  const int before = errorsBefore.exchange(-1);
  if (before >= 0 && ::dup2(before, STDERR_FILENO) == STDERR_FILENO) {
    copyToErrors(reportDescriptor);
  }
}

}  // namespace Kyr

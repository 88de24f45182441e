#include <kyr/terminal/terminal_p.h>

#include <kyr/os/os_file_p.h>

#include <cstdio>

#include <sys/ioctl.h>
#include <unistd.h>

namespace Kyr::Platform {

unsigned terminalWidth() noexcept {
  constexpr unsigned usual = 80;  // of a terminal that does not know
  winsize size{};
  if (::isatty(STDERR_FILENO) == 0) {
    return 0;
  }
  return ::ioctl(STDERR_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

void writeErrors(const QString& text) noexcept {
  const QByteArray bytes = text.toLocal8Bit();
  std::fflush(stderr);
  writeAll(STDERR_FILENO, bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

}  // namespace Kyr::Platform

#include "../console_p.h"

#include <kyr/jobs/KyrStopToken.h>

#include <QByteArray>

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace KyrTool {

namespace {

/// Fills the place of a closed standard stream. The system gives a new file the lowest free number:
/// without the plug, a message could end up in the file that is being packed. Opened for the wrong
/// direction, the plug fails when used.
void plug(int stream, int wrongDirection) {
  if (::fcntl(stream, F_GETFD) == -1) {
    ::open("/dev/null", wrongDirection);
  }
}

}  // namespace

void prepareStandardStreams() {
  plug(STDIN_FILENO, O_WRONLY);
  plug(STDOUT_FILENO, O_RDONLY);
  plug(STDERR_FILENO, O_RDONLY);
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGXFSZ, SIG_IGN);  // output may go to a file that may not grow
}

std::ptrdiff_t writeToOutput(const char* bytes, std::size_t count) {
  ssize_t written = 0;
  do {
    errno = EIO;  // the reason where the system takes nothing and calls that no failure
    written = ::write(STDOUT_FILENO, bytes, count);
  } while (written < 0 && errno == EINTR);
  return written;
}

void awaitInput() {
  constexpr int milliseconds = 50;
  pollfd input{STDIN_FILENO, POLLIN, 0};
  while (!Kyr::isStopped()) {
    const int ready = ::poll(&input, 1, milliseconds);
    if (ready > 0 || (ready < 0 && errno != EINTR)) {
      return;
    }
  }
}

bool isTerminal(Stream_t stream) {
  return ::isatty(stream) != 0;
}

bool showsColours(Stream_t stream) {
  const QByteArray terminal = qgetenv("TERM");
  return isTerminal(stream) && !terminal.isEmpty() && terminal != "dumb";
}

unsigned outputWidth() {
  constexpr unsigned usual = 80;  // of a terminal that does not know
  winsize size{};
  if (!isTerminal(StandardOutput)) {
    return 0;
  }
  return ::ioctl(STDOUT_FILENO, TIOCGWINSZ, &size) == 0 && size.ws_col > 0 ? size.ws_col : usual;
}

bool readerHasLeft() {
  return errno == EPIPE;
}

}  // namespace KyrTool

#include "../console_p.h"

#include <cerrno>
#include <csignal>

#include <fcntl.h>
#include <unistd.h>

namespace KyrTool {

namespace {

/// The system gives a new file the lowest free number: without the plug, a message could end up in
/// the file that is being packed. Opened for the wrong direction, the plug fails when used.
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
    errno = EIO;  // stays where nothing is taken without a failure
    written = ::write(STDOUT_FILENO, bytes, count);
  } while (written < 0 && errno == EINTR);
  return written;
}

bool readerHasLeft() {
  return errno == EPIPE;
}

}  // namespace KyrTool

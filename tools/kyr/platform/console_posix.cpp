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
}

bool readerHasLeft() {
  return errno == EPIPE;
}

}  // namespace KyrTool

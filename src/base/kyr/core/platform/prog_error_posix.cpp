#include <kyr/core/prog_error_p.h>

#include <cerrno>
#include <csignal>
#include <cstdio>

#include <unistd.h>

namespace Kyr {

namespace {

thread_local bool insideHook = false;

/// Blocks the signals by which a reader of standard error that has gone away, or a file that may
/// not grow, would end the process before the coming fault.
void holdBackSignals() noexcept {
  sigset_t signals;
  sigemptyset(&signals);
  sigaddset(&signals, SIGPIPE);
  sigaddset(&signals, SIGXFSZ);
  pthread_sigmask(SIG_BLOCK, &signals, nullptr);
}

}  // namespace

void Fatal::writeToStandardError(const char* bytes, std::size_t length) noexcept {
  holdBackSignals();
  const int descriptor = fileno(stderr);
  while (length > 0) {
    const ssize_t written = ::write(descriptor, bytes, length);
    if (written < 0 && errno == EINTR) {
      continue;
    }
    if (written <= 0) {
      return;
    }
    bytes += written;
    length -= static_cast<std::size_t>(written);
  }
}

void Fatal::endProcess(int code) noexcept {
  ::_exit(code);
}

bool Fatal::isInsideHook() noexcept {
  return insideHook;
}

void Fatal::setInsideHook(bool inside) noexcept {
  insideHook = inside;
}

}  // namespace Kyr

#include "../console_p.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace KyrTool {

namespace {

UINT codePageBefore = 0;

/// The C runtime gives a new file the lowest free number: without the plug, a message could end up
/// in the file that is being packed. Opened for the wrong direction, the plug fails when used.
void plug(int stream, int wrongDirection) {
  if (_get_osfhandle(stream) == -1) {
    _open("NUL", wrongDirection);
  }
  _setmode(stream, _O_BINARY);
}

/// Consoles show UTF-8, which is what the tool writes. They keep the setting when the tool is gone.
void showUnicode() {
  codePageBefore = ::GetConsoleOutputCP();
  if (codePageBefore != 0 && codePageBefore != CP_UTF8 && ::SetConsoleOutputCP(CP_UTF8) != 0) {
    std::atexit([] { ::SetConsoleOutputCP(codePageBefore); });
  }
}

bool isPipe(int stream) {
  return ::GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(stream))) == FILE_TYPE_PIPE;
}

}  // namespace

void prepareStandardStreams() {
  plug(_fileno(stdin), _O_WRONLY);
  plug(_fileno(stdout), _O_RDONLY);
  plug(_fileno(stderr), _O_RDONLY);
  showUnicode();
}

std::ptrdiff_t writeToOutput(const char* bytes, std::size_t count) {
  constexpr std::size_t most = 1U << 20U;
  errno = EIO;  // stays where nothing is taken without a failure
  return _write(_fileno(stdout), bytes, static_cast<unsigned>(std::min(count, most)));
}

// The C runtime has no number of its own for a pipe that is being closed.
bool readerHasLeft() {
  return errno == EPIPE || (errno == EINVAL && isPipe(_fileno(stdout)));
}

}  // namespace KyrTool

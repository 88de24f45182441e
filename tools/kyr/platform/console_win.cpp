#include "../console_p.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace KyrTool {

namespace {

UINT codePageBefore = 0;

/// Fills the place of a closed standard stream. The C runtime gives a new file the lowest free
/// number: without the plug, a message could end up in the file that is being packed. Opened for
/// the wrong direction, the plug fails when used.
void plug(int stream, int wrongDirection) {
  if (_get_osfhandle(stream) == -1) {
    _open("NUL", wrongDirection);
  }
  _setmode(stream, _O_BINARY);
}

/// Sets consoles to UTF-8, which the tool writes. They keep the setting when the tool is gone.
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
  errno = EIO;  // the reason where the system takes nothing and calls that no failure
  return _write(_fileno(stdout), bytes, static_cast<unsigned>(std::min(count, most)));
}

void awaitInput() {}

bool isTerminal(Stream_t stream) {
  DWORD mode = 0;
  return ::GetConsoleMode(reinterpret_cast<HANDLE>(_get_osfhandle(stream)), &mode) != 0;
}

/// Tells a console to read colours out of the text; consoles of older systems cannot.
bool showsColours(Stream_t stream) {
  static std::array<std::pair<HANDLE, DWORD>, 3> before{};
  const HANDLE console = reinterpret_cast<HANDLE>(_get_osfhandle(stream));
  DWORD mode = 0;
  if (::GetConsoleMode(console, &mode) == 0) {
    return false;
  }
  if ((mode & ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0) {
    return true;
  }
  if (::SetConsoleMode(console, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) == 0) {
    return false;
  }
  before.at(stream) = {console, mode};
  std::atexit([] {
    for (const auto& [handle, itsMode] : before) {
      ::SetConsoleMode(handle, itsMode);
    }
  });
  return true;
}

unsigned outputWidth() {
  CONSOLE_SCREEN_BUFFER_INFO information{};
  return ::GetConsoleScreenBufferInfo(::GetStdHandle(STD_OUTPUT_HANDLE), &information) != 0
             ? static_cast<unsigned>(information.srWindow.Right - information.srWindow.Left + 1)
             : 0;
}

// The C runtime has no number of its own for a pipe that is being closed.
bool readerHasLeft() {
  return errno == EPIPE || (errno == EINVAL && isPipe(_fileno(stdout)));
}

}  // namespace KyrTool

#include "console_p.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace Tour {

namespace {

UINT codePageBefore = 0;

}  // namespace

// Sets the console to UTF-8; it keeps that when the program is gone.
void prepareStandardStreams() {
  _setmode(_fileno(stdout), _O_BINARY);
  _setmode(_fileno(stderr), _O_BINARY);
  codePageBefore = ::GetConsoleOutputCP();
  if (codePageBefore != 0 && codePageBefore != CP_UTF8 && ::SetConsoleOutputCP(CP_UTF8) != 0) {
    std::atexit([] { ::SetConsoleOutputCP(codePageBefore); });
  }
}

QByteArray encoded(const QString& text) {
  return text.toUtf8();
}

bool standardOutputIsTerminal() {
  DWORD mode = 0;
  return GetConsoleMode(GetStdHandle(STD_OUTPUT_HANDLE), &mode) != 0;
}

double userSeconds() {
  FILETIME created{};
  FILETIME ended{};
  FILETIME kernel{};
  FILETIME user{};
  GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
  const std::uint64_t ticks = std::uint64_t{user.dwHighDateTime} << 32 | user.dwLowDateTime;
  return static_cast<double>(ticks) / 1e7;  // ticks have 100 ns
}

}  // namespace Tour

#include "console_p.h"

#include <windows.h>

#include <cstdint>

namespace Tour {

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
  return static_cast<double>(ticks) / 1e7;  // of 100 ns
}

}  // namespace Tour

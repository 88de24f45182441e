#include <kyr/app/start_p.h>

#include <kyr/os/os_file_p.h>

#include <cstddef>
#include <cstdio>
#include <string>

#include <io.h>
#include <windows.h>

namespace Kyr {

namespace {

constexpr std::size_t smallBlock = 1016;  // bytes
constexpr SHORT consoleLines = 1000;
constexpr UINT mainWindowStarted = WM_USER;
static_assert(mainWindowStarted == 1024, "launchers of every version expect this number");

/// Whether a file can be opened for appending. Asked before a stream is reopened, which closes it
/// even if it then fails.
bool canAppend(const wchar_t* path) {
  std::FILE* const tried = _wfopen(path, L"a");
  return tried != nullptr && std::fclose(tried) == 0;
}

/// Gives the console a long memory of lines. Asks the console itself, as the process's standard
/// handles may still be what it inherited.
void makeLong() {
  const HANDLE console =
      ::CreateFileW(L"CONOUT$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
  CONSOLE_SCREEN_BUFFER_INFO information{};
  if (::GetConsoleScreenBufferInfo(console, &information)) {
    ::SetConsoleScreenBufferSize(console, {information.dwSize.X, consoleLines});
  }
  ::CloseHandle(console);
}

}  // namespace

// The function is found by its name: the runtime's headers do not declare it, and its later
// versions do not have it.
void Start::setSmallBlockThreshold() noexcept {
  using Function = int (*)(std::size_t);
  const HMODULE runtime = ::GetModuleHandleW(L"msvcrt.dll");
  const FARPROC address = runtime ? ::GetProcAddress(runtime, "_set_sbh_threshold") : nullptr;
  if (const auto function = reinterpret_cast<Function>(reinterpret_cast<void*>(address))) {
    function(smallBlock);
  }
}

std::intptr_t Start::keepErrors() noexcept {
  const int descriptor = ::_fileno(stderr);
  const intptr_t found = descriptor >= 0 ? ::_get_osfhandle(descriptor) : -1;
  HANDLE kept = nullptr;
  const bool isKept =
      found != -1 && found != -2 &&
      ::DuplicateHandle(::GetCurrentProcess(), reinterpret_cast<HANDLE>(found),
                        ::GetCurrentProcess(), &kept, 0, FALSE, DUPLICATE_SAME_ACCESS);
  return isKept ? reinterpret_cast<std::intptr_t>(kept) : 0;
}

void Start::dropErrors(std::intptr_t kept) noexcept {
  if (kept != 0) {
    ::CloseHandle(reinterpret_cast<HANDLE>(kept));
  }
}

bool Start::redirectOutput(const QString& path, Target_t target) {
  const std::wstring name = Platform::nativePath(path).native();
  if (target == Target_t::Own) {
    ::DeleteFileW(name.c_str());
  }
  return canAppend(name.c_str()) && _wfreopen(name.c_str(), L"a", stdout) != nullptr;
}

bool Start::redirectErrors(const QString& path) {
  const std::wstring name = Platform::nativePath(path).native();
  return canAppend(name.c_str()) && _wfreopen(name.c_str(), L"a", stderr) != nullptr;
}

bool Start::namesIgnoreCase() noexcept {
  return true;
}

bool Start::openConsole() {
  if (!::AllocConsole()) {
    return false;
  }
  ::SetConsoleTitleW(L"ORV Console");
  _wfreopen(L"CONIN$", L"r", stdin);
  _wfreopen(L"CONOUT$", L"a", stdout);
  _wfreopen(L"CONOUT$", L"a", stderr);
  makeLong();
  return true;
}

bool Start::tellLauncher(const QString& name) {
  const HWND window = ::FindWindowW(L"QWidget", name.toStdWString().c_str());
  if (window == nullptr) {
    return false;
  }
  ::SendMessageA(window, mainWindowStarted, 0, 0);
  return true;
}

}  // namespace Kyr

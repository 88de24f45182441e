#include <kyr/terminal/terminal_p.h>

#include <windows.h>

namespace Kyr::Platform {

unsigned terminalWidth() noexcept {
  CONSOLE_SCREEN_BUFFER_INFO information{};
  const HANDLE errors = ::GetStdHandle(STD_ERROR_HANDLE);
  return ::GetConsoleScreenBufferInfo(errors, &information) != 0
             ? static_cast<unsigned>(information.srWindow.Right - information.srWindow.Left + 1)
             : 0;
}

// A console takes characters, whatever its code page is.
void writeErrors(const QString& text) noexcept {
  const HANDLE errors = ::GetStdHandle(STD_ERROR_HANDLE);
  DWORD mode = 0;
  DWORD written = 0;
  if (::GetConsoleMode(errors, &mode) != 0) {
    const std::wstring characters = text.toStdWString();
    ::WriteConsoleW(errors, characters.data(), static_cast<DWORD>(characters.size()), &written,
                    nullptr);
  } else {
    const QByteArray bytes = text.toUtf8();
    ::WriteFile(errors, bytes.constData(), static_cast<DWORD>(bytes.size()), &written, nullptr);
  }
}

}  // namespace Kyr::Platform

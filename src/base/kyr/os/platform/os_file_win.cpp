#include <kyr/os/os_file_p.h>

#include <QDir>

#include <ext/stdio_filebuf.h>

#include <algorithm>
#include <string>
#include <utility>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace Kyr {

namespace {

/// Up to so many characters, the zero at the end counted, the system takes a path in any spelling.
/// Less than MAX_PATH, as a new directory must have room for the name of a file in it.
constexpr DWORD longestPlain = MAX_PATH - 12;

bool startsWith(const std::wstring& text, const wchar_t* start) {
  return text.rfind(start, 0) == 0;
}

/// The absolute path in the spelling that the system takes at any length.
std::wstring longPath(const std::wstring& path, DWORD capacity) {
  std::wstring whole(capacity, L'\0');
  whole.resize(::GetFullPathNameW(path.c_str(), capacity, whole.data(), nullptr));
  if (startsWith(whole, L"\\\\?\\") || startsWith(whole, L"\\\\.\\")) {
    return whole;
  }
  return startsWith(whole, L"\\\\") ? L"\\\\?\\UNC" + whole.substr(1) : L"\\\\?\\" + whole;
}

/// How the system opens a file for a mode of the standard streams.
struct Access {
  DWORD rights;
  DWORD creation;
  int flags;  ///< for the C runtime
};

Access accessFor(std::ios_base::openmode mode) {
  if ((mode & std::ios_base::app) != 0) {
    // The right to append and not to write makes the system itself find the end, at each write.
    return {FILE_GENERIC_WRITE & ~DWORD(FILE_WRITE_DATA), OPEN_ALWAYS, _O_APPEND};
  }
  return (mode & std::ios_base::out) != 0 ? Access{GENERIC_WRITE, CREATE_ALWAYS, 0}
                                          : Access{GENERIC_READ, OPEN_EXISTING, _O_RDONLY};
}

/// Opens a file, which programs that are started meanwhile do not inherit.
/// \return a descriptor of the C runtime; negative on failure
int openDescriptor(const QString& name, std::ios_base::openmode mode, bool shared) {
  const Access access = accessFor(mode);
  const DWORD sharing = FILE_SHARE_READ | (shared ? FILE_SHARE_WRITE : 0);
  const HANDLE handle = ::CreateFileW(Platform::nativePath(name).c_str(), access.rights, sharing,
                                      nullptr, access.creation, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    return -1;
  }
  const int flags = access.flags | _O_BINARY | _O_NOINHERIT;
  const int descriptor = _open_osfhandle(reinterpret_cast<std::intptr_t>(handle), flags);
  if (descriptor < 0) {
    ::CloseHandle(handle);
  }
  return descriptor;
}

std::ios_base::openmode openModeFor(char mode) {
  switch (mode) {
    case 'r':
      return std::ios_base::in;
    case 'a':
      return std::ios_base::out | std::ios_base::app;
    default:
      return std::ios_base::out;
  }
}

}  // namespace

// A short name keeps its spelling, in which NUL is a device.
std::filesystem::path Platform::nativePath(const QString& name) {
  const std::wstring path = QDir::toNativeSeparators(name).toStdWString();
  const DWORD capacity = ::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  return capacity > longestPlain ? longPath(path, capacity) : path;
}

std::filesystem::path Platform::verbatimPath(const QString& name) {
  const std::wstring path = QDir::toNativeSeparators(name).toStdWString();
  const DWORD capacity = ::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
  return longPath(path, capacity);
}

QString Platform::nameOf(const std::filesystem::path& native) {
  return QString::fromStdWString(native.native());
}

bool Platform::isDirectory(const QString& name) {
  const DWORD attributes = ::GetFileAttributesW(nativePath(name).c_str());
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool Platform::openBuffer(std::filebuf& buffer, const QString& name, std::ios_base::openmode mode,
                          bool shared) {
  const int descriptor = buffer.is_open() ? -1 : openDescriptor(name, mode, shared);
  if (descriptor < 0) {
    return false;
  }
  __gnu_cxx::stdio_filebuf<char> opened(descriptor, mode);
  if (!opened.is_open()) {
    _close(descriptor);
    return false;
  }
  buffer = std::move(opened);
  return true;
}

FILE* Platform::openFile(const QString& name, const char* mode) {
  const int descriptor = openDescriptor(name, openModeFor(*mode), true);
  FILE* const file = descriptor < 0 ? nullptr : _fdopen(descriptor, mode);
  if (file == nullptr && descriptor >= 0) {
    _close(descriptor);
  }
  return file;
}

bool Platform::writeAll(std::intptr_t file, const char* bytes, std::size_t count) noexcept {
  while (count > 0) {
    const auto portion = static_cast<DWORD>(std::min<std::size_t>(count, 1U << 20U));
    DWORD written = 0;
    if (!::WriteFile(reinterpret_cast<HANDLE>(file), bytes, portion, &written, nullptr)) {
      return false;
    }
    if (written == 0) {
      ::SetLastError(ERROR_WRITE_FAULT);
      return false;
    }
    bytes += written;
    count -= written;
  }
  return true;
}

bool Platform::appendToFile(const QString& name, const char* bytes, std::size_t count) {
  const Access access = accessFor(std::ios_base::out | std::ios_base::app);
  const HANDLE handle =
      ::CreateFileW(nativePath(name).c_str(), access.rights, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, access.creation, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (handle == INVALID_HANDLE_VALUE) {
    return false;
  }
  const bool written = writeAll(reinterpret_cast<std::intptr_t>(handle), bytes, count);
  return ::CloseHandle(handle) != 0 && written;
}

// This system never ends a process because it writes too much.
void Platform::surviveFileLimit() noexcept {}

}  // namespace Kyr

#include <kyr/crash/crash_handler_p.h>
#include <kyr/crash/crash_win_p.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdio>
#include <new>

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace Kyr {

namespace {

std::array<wchar_t, 1024> reportPath{};
HANDLE reportFile = nullptr;

/// Whether the runtime writes line feeds to standard error as two characters.
std::atomic<bool> hasTextLines{false};

/// The handle behind standard error; the runtime's own functions would wait for the stream's lock.
HANDLE standardError() noexcept {
  const int descriptor = ::_fileno(stderr);
  const intptr_t handle = descriptor >= 0 ? ::_get_osfhandle(descriptor) : -1;
  return handle != -1 && handle != -2 ? reinterpret_cast<HANDLE>(handle)
                                      : ::GetStdHandle(STD_ERROR_HANDLE);
}

void writeAll(HANDLE target, const char* bytes, std::size_t length) noexcept {
  while (length > 0) {
    DWORD written = 0;
    if (!::WriteFile(target, bytes, static_cast<DWORD>(length), &written, nullptr) ||
        written == 0) {
      return;
    }
    bytes += written;
    length -= written;
  }
}

/// Writes with the line ends that the runtime gives to all else in the same file.
void writeLines(HANDLE target, const char* bytes, std::size_t length) noexcept {
  const char* const end = bytes + length;
  while (bytes != end) {
    const char* const feed = std::find(bytes, end, '\n');
    writeAll(target, bytes, static_cast<std::size_t>(feed - bytes));
    if (feed == end) {
      return;
    }
    writeAll(target, "\r\n", 2);
    bytes = feed + 1;
  }
}

/// The system's text for an error, without the end of line that it comes with.
/// \return its length; 0 where the system knows none
template <std::size_t Size>
std::size_t systemText(DWORD error, std::array<char, Size>& text) noexcept {
  constexpr DWORD flags = FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS;
  constexpr std::array<DWORD, 2> languages = {MAKELANGID(LANG_ENGLISH, SUBLANG_ENGLISH_US),
                                              MAKELANGID(LANG_NEUTRAL, SUBLANG_DEFAULT)};
  DWORD length = 0;
  for (const DWORD language : languages) {
    length = length > 0
                 ? length
                 : ::FormatMessageA(flags, nullptr, error, language, text.data(), Size, nullptr);
  }
  while (length > 0 && static_cast<unsigned char>(text[length - 1]) <= ' ') {
    --length;
  }
  return length;
}

/// The thread that collects what it writes, and in which text; 0 for none.
std::atomic<DWORD> collector{0};
QByteArray* collection = nullptr;

void collect(const char* bytes, std::size_t length) noexcept {
  constexpr int longest = 1 << 20;
  try {
    if (collection->size() < longest) {
      collection->append(bytes, static_cast<int>(length));
    }
  } catch (const std::bad_alloc&) {
    return;  // what has no room is missing
  }
}

bool isSpace(const INPUT_RECORD& record) noexcept {
  const KEY_EVENT_RECORD& key = record.Event.KeyEvent;
  return record.EventType == KEY_EVENT && key.bKeyDown && key.uChar.UnicodeChar == L' ';
}

}  // namespace

// The runtime tells a stream's mode only to who sets it.
void Crash::noteLineEnds() noexcept {
  const int descriptor = ::_fileno(stderr);
  const int mode = descriptor >= 0 ? ::_setmode(descriptor, _O_TEXT) : -1;
  if (mode != -1) {
    ::_setmode(descriptor, mode);
  }
  hasTextLines = mode == _O_TEXT;
}

void Crash::setReportFile(const char* file) noexcept {
  if (::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, file, -1, reportPath.data(),
                            int{reportPath.size()}) == 0) {
    reportPath[0] = L'\0';
  }
}

void Crash::openReportFile() noexcept {
  if (reportPath[0] == L'\0') {
    return;
  }
  ::DeleteFileW(reportPath.data());
  const HANDLE file = ::CreateFileW(reportPath.data(), GENERIC_WRITE, FILE_SHARE_READ, nullptr,
                                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    printSystemError("error creating report file", ::GetLastError());
  } else {
    reportFile = file;
  }
}

// Each write goes to the end of the file: standard output may share it, with a position of its own.
void Crash::write(const char* bytes, std::size_t length) noexcept {
  if (isCollecting()) {
    collect(bytes, length);
    return;
  }
  const HANDLE target = standardError();
  if (::GetFileType(target) == FILE_TYPE_DISK) {
    ::SetFilePointer(target, 0, nullptr, FILE_END);
  }
  if (hasTextLines) {
    writeLines(target, bytes, length);
  } else {
    writeAll(target, bytes, length);
  }
  if (reportFile) {
    writeAll(reportFile, bytes, length);
  }
}

void Crash::printBytes(const char* bytes, std::size_t length) noexcept {
  write(bytes, length);
}

bool Crash::isCollecting() noexcept {
  return collector == ::GetCurrentThreadId();
}

void Crash::collectOutput(QByteArray* text) noexcept {
  collection = text;
  collector = text ? ::GetCurrentThreadId() : 0;
}

void Crash::printSystemError(const char* message, unsigned long error) noexcept {
  std::array<char, 512> reason{};
  const std::size_t length = error != 0 ? systemText(error, reason) : 0;
  Text text;
  text << message << ": ";
  if (length > 0) {
    text.append(reason.data(), length);
  } else {
    text << "<unknown reason>";
  }
  write(text << "\n");
}

// Asks the console itself, as standard input may be another file by now.
void Crash::waitForSpace() noexcept {
  write(Text() << "\n<press space to close this window>");
  const HANDLE console =
      ::CreateFileW(L"CONIN$", GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
  INPUT_RECORD record{};
  DWORD count = 0;
  while (::ReadConsoleInputW(console, &record, 1, &count) && count == 1 && !isSpace(record)) {
  }
}

}  // namespace Kyr

#include <kyr/crash/crash_win_p.h>

#include <kyr/env/settings_p.h>

#include <algorithm>
#include <array>
#include <cwchar>

#include <windows.h>

#include <dbghelp.h>

namespace Kyr {

namespace {

using Path = std::array<wchar_t, 1024>;

HMODULE debugHelp = nullptr;
Path dumpPath{};
bool isDumpWritten = false;

/// Loads a library from the suite's folder, which is not known before the library has been started.
HMODULE loadFromSuite(const wchar_t* name) noexcept {
  static Path path;
  const QString& root = Settings::settled().software;
  const auto length = static_cast<std::size_t>(root.size());
  const std::size_t size = std::wcslen(name) + 1;
  if (length == 0 || length + size > path.size()) {
    ::SetLastError(ERROR_PATH_NOT_FOUND);
    return nullptr;
  }
  std::memcpy(path.data(), root.constData(), length * sizeof(wchar_t));
  std::wmemcpy(path.data() + length, name, size);
  // The system looks for what a library needs in its folder, and finds that only with "\\" in the
  // path.
  std::replace(path.begin(), path.end(), L'/', L'\\');
  return ::LoadLibraryExW(path.data(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
}
static_assert(sizeof(wchar_t) == sizeof(QChar));

/// Creates the file anew: what somebody has put in its place is neither followed nor kept.
HANDLE createFile(const wchar_t* path) noexcept {
  ::DeleteFileW(path);
  return ::CreateFileW(path, GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW,
                       FILE_ATTRIBUTE_NORMAL, nullptr);
}

/// Writes the dump into a file.
/// \return 0, or the number of the error
DWORD fill(HANDLE file, const Crash::Break& broken) noexcept {
  const auto dump =
      reinterpret_cast<decltype(&::MiniDumpWriteDump)>(Crash::findDebugHelp("MiniDumpWriteDump"));
  if (!dump) {
    return ERROR_PROC_NOT_FOUND;
  }
  MINIDUMP_EXCEPTION_INFORMATION exception{broken.thread, broken.fault, FALSE};
  // Old versions of the library refuse kinds of dumps that they do not know.
  constexpr auto rich = static_cast<MINIDUMP_TYPE>(MiniDumpWithIndirectlyReferencedMemory |
                                                   MiniDumpWithUnloadedModules);
  for (const MINIDUMP_TYPE type : {rich, MiniDumpNormal}) {
    ::SetFilePointer(file, 0, nullptr, FILE_BEGIN);
    if (dump(::GetCurrentProcess(), ::GetCurrentProcessId(), file, type, &exception, nullptr,
             nullptr)) {
      return 0;
    }
  }
  const DWORD error = ::GetLastError();
  return error != 0 ? error : ERROR_WRITE_FAULT;
}

}  // namespace

void Crash::loadDebugHelp() noexcept {
  for (const wchar_t* const name : {L"/bin/dbghelp.dll", L"/lib/dbghelp.dll"}) {
    debugHelp = debugHelp ? debugHelp : loadFromSuite(name);
  }
  if (!debugHelp) {
    printSystemError("error loading dbghelp.dll, trying systemwide search", ::GetLastError());
    debugHelp = ::LoadLibraryW(L"dbghelp.dll");
  }
  if (!debugHelp) {
    printSystemError("error loading dbghelp.dll", ::GetLastError());
  }
}

void* Crash::findDebugHelp(const char* name) noexcept {
  return debugHelp ? reinterpret_cast<void*>(::GetProcAddress(debugHelp, name)) : nullptr;
}

void Crash::setDumpFile(const char* name) noexcept {
  if (::MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, name, -1, dumpPath.data(),
                            int{dumpPath.size()}) == 0) {
    dumpPath[0] = L'\0';
  }
}

const wchar_t* Crash::dumpFile() noexcept {
  return dumpPath.data();
}

const wchar_t* Crash::writtenDump() noexcept {
  return isDumpWritten ? dumpPath.data() : L"";
}

void Crash::writeDump(const Break& broken) noexcept {
  if (*dumpFile() == L'\0') {
    printSystemError("error getting crashdump filename", 0);
    return;
  }
  const HANDLE file = createFile(dumpFile());
  if (file == INVALID_HANDLE_VALUE) {
    printSystemError("error creating crashdump file", ::GetLastError());
    return;
  }
  const DWORD error = fill(file, broken);
  ::CloseHandle(file);
  isDumpWritten = error == 0;
  if (error != 0) {
    ::DeleteFileW(dumpFile());
    printSystemError("error writing crashdump", error);
  }
}

}  // namespace Kyr

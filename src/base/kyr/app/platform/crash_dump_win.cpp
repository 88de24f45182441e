#include <kyr/app/crash_win_p.h>

#include <kyr/env/KyrInit.h>

#include <algorithm>
#include <array>
#include <cwchar>

#include <windows.h>

#include <dbghelp.h>

namespace Kyr {

namespace {

HMODULE debugHelp = nullptr;

/// Loads a library of the suite's own; before the start has found the suite there is none.
HMODULE loadFromSuite(const wchar_t* name) noexcept {
  static std::array<wchar_t, 1024> path;
  const QString& root = KyrInit::getSoftwareDirectory();
  const auto length = static_cast<std::size_t>(root.size());
  const std::size_t size = std::wcslen(name) + 1;
  if (length == 0 || length + size > path.size()) {
    ::SetLastError(ERROR_PATH_NOT_FOUND);
    return nullptr;
  }
  std::memcpy(path.data(), root.constData(), length * sizeof(wchar_t));
  std::wmemcpy(path.data() + length, name, size);
  // With "/" the system would not find the folder, in which it looks for what the library needs.
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

/// \return 0, or the number of the error
DWORD fill(HANDLE file, const Crash::Break& broken) noexcept {
  const auto dump =
      reinterpret_cast<decltype(&::MiniDumpWriteDump)>(Crash::findDebugHelp("MiniDumpWriteDump"));
  if (!dump) {
    return ERROR_PROC_NOT_FOUND;
  }
  MINIDUMP_EXCEPTION_INFORMATION exception{broken.thread, broken.fault, FALSE};
  // Old versions of the library refuse what they do not know.
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

void Crash::writeDump(const Break& broken) noexcept {
  static std::array<wchar_t, 1024> path;
  if (!KyrInit::getProgramCrashdumpfile(::GetCurrentProcessId(), path.data(), path.size())) {
    printSystemError("error getting crashdump filename", 0);
    return;
  }
  const HANDLE file = createFile(path.data());
  if (file == INVALID_HANDLE_VALUE) {
    printSystemError("error creating crashdump file", ::GetLastError());
    return;
  }
  const DWORD error = fill(file, broken);
  ::CloseHandle(file);
  if (error != 0) {
    ::DeleteFileW(path.data());
    printSystemError("error writing crashdump", error);
  }
}

}  // namespace Kyr

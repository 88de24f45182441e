#include <kyr/trace/trace_p.h>

#include <kyr/os/os_file_p.h>

#include <windows.h>

namespace Kyr {

namespace {

HANDLE handleOf(std::intptr_t file) {
  return reinterpret_cast<HANDLE>(file);
}

}  // namespace

std::intptr_t Platform::openTrace(const QString& name) {
  // Others may read it, but not write it.
  const HANDLE file = ::CreateFileW(nativePath(name).c_str(), GENERIC_WRITE, FILE_SHARE_READ,
                                    nullptr, CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  return file == INVALID_HANDLE_VALUE ? noTrace : reinterpret_cast<std::intptr_t>(file);
}

void Platform::cutTrace(std::intptr_t file, std::uint64_t size) noexcept {
  LARGE_INTEGER length{};
  length.QuadPart = static_cast<LONGLONG>(size);
  if (::SetFilePointerEx(handleOf(file), length, nullptr, FILE_BEGIN) != 0) {
    ::SetEndOfFile(handleOf(file));
  }
}

void Platform::closeTrace(std::intptr_t file) noexcept {
  ::CloseHandle(handleOf(file));
}

// This system has no forks.
void Platform::closeParentsTrace(std::intptr_t) noexcept {}

}  // namespace Kyr

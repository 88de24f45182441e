#include <kyr/sync/watched_thread_p.h>

#include <windows.h>

namespace Kyr {

namespace {

using Describe = HRESULT(WINAPI*)(HANDLE, PWSTR*);

VOID NTAPI callEnd(PVOID data);

void (*atEnd)(void*) = nullptr;

DWORD makeKey(void (*end)(void*)) noexcept {
  atEnd = end;
  return ::FlsAlloc(&callEnd);
}

VOID NTAPI callEnd(PVOID data) {
  atEnd(data);
}

/// Older systems have no names of threads.
Describe findDescribe() noexcept {
  const auto found = ::GetProcAddress(::GetModuleHandleW(L"kernel32.dll"), "GetThreadDescription");
  return reinterpret_cast<Describe>(reinterpret_cast<void*>(found));
}

void copyName(HANDLE thread, char* name, std::size_t size) noexcept {
  const Describe describe = findDescribe();
  PWSTR wide = nullptr;
  if (describe && SUCCEEDED(describe(thread, &wide)) && wide) {
    const int taken = ::WideCharToMultiByte(CP_UTF8, 0, wide, -1, name, static_cast<int>(size) - 1,
                                            nullptr, nullptr);
    name[taken > 0 ? taken : 0] = '\0';
    ::LocalFree(wide);
  }
}

}  // namespace

bool Platform::callAtThreadEnd(void (*end)(void* data), void* data) noexcept {
  static const DWORD key = makeKey(end);
  return key != FLS_OUT_OF_INDEXES && ::FlsSetValue(key, data) != 0;
}

void Platform::threadName(std::uint64_t number, char* name, std::size_t size) noexcept {
  name[0] = '\0';
  const HANDLE thread =
      ::OpenThread(THREAD_QUERY_LIMITED_INFORMATION, FALSE, static_cast<DWORD>(number));
  if (thread) {
    copyName(thread, name, size);
    ::CloseHandle(thread);
  }
}

}  // namespace Kyr

#include <kyr/sync/watched_thread_p.h>

#include <array>

#include <windows.h>

namespace Kyr {

namespace {

VOID NTAPI callEnd(PVOID data);

void (*atEnd)(void*) = nullptr;

DWORD makeKey(void (*end)(void*)) noexcept {
  atEnd = end;
  return ::FlsAlloc(&callEnd);
}

VOID NTAPI callEnd(PVOID data) {
  atEnd(data);
}

using Query = LONG NTAPI(HANDLE, int, void*, ULONG, ULONG*);

/// A function of the system's lowest library, which its headers do not declare. The library is
/// always there, and stays.
Query* findQuery() noexcept {
  const auto found = ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "NtQueryInformationThread");
  return reinterpret_cast<Query*>(reinterpret_cast<void*>(found));
}

/// As soon as the library is loaded: to look for it takes a lock of the system.
Query* const query = findQuery();

/// Reads what GetThreadDescription() says, which would take memory from the heap. Older systems
/// have no names of threads.
void copyName(HANDLE thread, char* name, std::size_t size) noexcept {
  constexpr int threadName = 38;
  struct {
    struct {
      USHORT length;  // in bytes
      USHORT room;
      wchar_t* text;
    } head;
    std::array<wchar_t, 128> text;
  } description{};
  if (query && query(thread, threadName, &description, sizeof description, nullptr) >= 0 &&
      description.head.length > 0) {
    const int taken = ::WideCharToMultiByte(CP_UTF8, 0, description.head.text,
                                            description.head.length / int{sizeof(wchar_t)}, name,
                                            static_cast<int>(size) - 1, nullptr, nullptr);
    name[taken > 0 ? taken : 0] = '\0';
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

#include <kyr/crash/crash_old_dumps_p.h>
#include <kyr/crash/crash_win_p.h>

#include <array>
#include <cstring>
#include <cwchar>

#include <windows.h>

namespace Kyr {

namespace {

using Path = std::array<wchar_t, 1024>;

/// The owner of a file, as the system tells it.
struct Owner {
  std::array<DWORD, 256> description;
  PSID user;
};

/// Finds the owner of a file.
/// \return false when the system does not tell
bool findOwner(const wchar_t* path, Owner& owner) noexcept {
  DWORD size = 0;
  BOOL isDefault = FALSE;
  PSECURITY_DESCRIPTOR const description = owner.description.data();
  return ::GetFileSecurityW(path, OWNER_SECURITY_INFORMATION, description, sizeof owner.description,
                            &size) &&
         ::GetSecurityDescriptorOwner(description, &owner.user, &isDefault) && owner.user;
}

std::int64_t timeOf(const FILETIME& time) noexcept {
  return std::int64_t(time.dwHighDateTime) << 32 | time.dwLowDateTime;
}

}  // namespace

// A dump that is being written is open to nobody else, and cannot be removed.
void Crash::removeOldDumps() noexcept {
  static Path path;
  static Owner own, other;
  const DWORD self = ::GetCurrentProcessId();
  const std::size_t length = std::wcslen(dumpFile());
  if (length == 0 || length >= path.size() || !findOwner(dumpFile(), own)) {
    return;
  }
  std::wmemcpy(path.data(), dumpFile(), length + 1);
  wchar_t* const name = std::wcsrchr(path.data(), L'\\') + 1;
  const auto room = std::size_t(path.data() + path.size() - name);
  const auto nameDump = [&](std::uint32_t process) {
    Text text;
    appendDumpName(text, process);
    std::copy_n(text.data(), std::min(text.length() + 1, room), name);
  };
  std::copy_n(L"ORV-*.dmp", std::min(std::size_t{10}, room), name);
  NewestDumps kept;
  WIN32_FIND_DATAW found{};
  const HANDLE search = ::FindFirstFileW(path.data(), &found);
  for (BOOL more = search != INVALID_HANDLE_VALUE; more; more = ::FindNextFileW(search, &found)) {
    const std::uint32_t process = processOfDump(&found.cFileName[0]);
    nameDump(process);
    constexpr DWORD refused = FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_DIRECTORY;
    if (process == 0 || process == self || (found.dwFileAttributes & refused) != 0 ||
        !findOwner(path.data(), other) || !::EqualSid(own.user, other.user)) {
      continue;
    }
    if (const std::uint32_t gone = kept.add(process, timeOf(found.ftLastWriteTime))) {
      nameDump(gone);
      ::DeleteFileW(path.data());
    }
  }
  ::FindClose(search);
}

}  // namespace Kyr

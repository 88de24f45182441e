#include <kyr/diagnostics/report_p.h>

#include <kyr/os/os_file_p.h>

#include <algorithm>
#include <array>

#include <windows.h>

#include <tlhelp32.h>

namespace Kyr {

namespace {

/// A handle that closes itself.
class Handle {
 public:
  explicit Handle(HANDLE handle) : _handle(handle) {}
  Handle(const Handle&) = delete;
  Handle& operator=(const Handle&) = delete;
  ~Handle() {
    if (isOpen()) {
      ::CloseHandle(_handle);
    }
  }
  bool isOpen() const { return _handle != INVALID_HANDLE_VALUE; }
  HANDLE get() const { return _handle; }

 private:
  HANDLE _handle;
};

/// Whole seconds since 1970, rounded down.
std::int64_t secondsOf(const FILETIME& time) {
  const std::int64_t units = std::int64_t(time.dwHighDateTime) << 32 | time.dwLowDateTime;
  return units / 10000000 - 11644473600;
}

/// The version in the resources of a file; empty without.
QString versionOf(const wchar_t* path) {
  DWORD unused = 0;
  const DWORD size = ::GetFileVersionInfoSizeW(path, &unused);
  std::vector<unsigned char> block(size);
  void* found = nullptr;
  UINT length = 0;
  if (size == 0 || !::GetFileVersionInfoW(path, 0, size, block.data()) ||
      !::VerQueryValueW(block.data(), L"\\", &found, &length) ||
      length < sizeof(VS_FIXEDFILEINFO)) {
    return {};
  }
  const auto& info = *static_cast<const VS_FIXEDFILEINFO*>(found);
  return QString("%1.%2.%3.%4")
      .arg(HIWORD(info.dwFileVersionMS))
      .arg(LOWORD(info.dwFileVersionMS))
      .arg(HIWORD(info.dwFileVersionLS))
      .arg(LOWORD(info.dwFileVersionLS));
}

/// The linker's time stamp, by which symbol files are found.
QString stampOf(const unsigned char* base, std::uint64_t size) {
  const auto* const dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
  if (size < sizeof *dos || dos->e_magic != IMAGE_DOS_SIGNATURE || dos->e_lfanew < 0 ||
      std::uint64_t(dos->e_lfanew) + sizeof(IMAGE_NT_HEADERS) > size) {
    return {};
  }
  const auto* const nt = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos->e_lfanew);
  return QString("%1").arg(nt->FileHeader.TimeDateStamp, 8, 16, QLatin1Char('0'));
}

Report::Module moduleOf(const MODULEENTRY32W& entry) {
  Report::Module module;
  module.path = QString::fromWCharArray(entry.szExePath);
  module.address = reinterpret_cast<std::uintptr_t>(entry.modBaseAddr);
  module.size = entry.modBaseSize;
  module.version = versionOf(entry.szExePath);
  module.identity = stampOf(entry.modBaseAddr, entry.modBaseSize);
  return module;
}

Report::SettingsPlace placeOf(const QString& root) {
  const QString key = root + "\\Software\\ORV";
  return {key, std::make_unique<QSettings>(key, QSettings::NativeFormat)};
}

}  // namespace

std::int64_t Report::secondsSinceStart() {
  return static_cast<std::int64_t>(::GetTickCount64() / 1000);
}

// Wine answers in the place of Windows; its version explains more than that of its C library.
QString Report::runtimeVersion() {
  using Function = const char* (*)();
  const HMODULE module = ::GetModuleHandleW(L"ntdll.dll");
  const auto wine = reinterpret_cast<Function>(  // NOLINT(performance-no-int-to-ptr): by name only
      reinterpret_cast<void*>(::GetProcAddress(module, "wine_get_version")));
  return wine ? QString("Wine %1").arg(wine()) : QString();
}

std::vector<Report::Module> Report::modules() {
  std::vector<Module> found;
  const Handle list(::CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, 0));
  MODULEENTRY32W entry{};
  entry.dwSize = sizeof entry;
  for (BOOL more = list.isOpen() && ::Module32FirstW(list.get(), &entry); more;
       more = ::Module32NextW(list.get(), &entry)) {
    found.push_back(moduleOf(entry));
  }
  return found;
}

std::vector<Report::SettingsPlace> Report::settingsPlaces() {
  std::vector<SettingsPlace> places;
  places.push_back(placeOf("HKEY_CURRENT_USER"));
  places.push_back(placeOf("HKEY_LOCAL_MACHINE"));
  return places;
}

// Whose file it is need not be asked: the temporary directory is the user's own. The file is opened
// so that a program can go on writing its log.
Report::Reading_t Report::readOwnFile(const QString& path, std::int64_t most, OwnFile& file) {
  const Handle handle(::CreateFileW(Platform::nativePath(path).c_str(), GENERIC_READ,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_OPEN_REPARSE_POINT, nullptr));
  BY_HANDLE_FILE_INFORMATION found{};
  constexpr DWORD refused = FILE_ATTRIBUTE_REPARSE_POINT | FILE_ATTRIBUTE_DIRECTORY;
  if (!handle.isOpen() || !::GetFileInformationByHandle(handle.get(), &found)) {
    const DWORD attributes = ::GetFileAttributesW(Platform::nativePath(path).c_str());
    const bool isOther = attributes != INVALID_FILE_ATTRIBUTES && (attributes & refused) != 0;
    return isOther ? Reading_t::Foreign : Reading_t::Failed;
  }
  if ((found.dwFileAttributes & refused) != 0 || found.nNumberOfLinks != 1) {
    return Reading_t::Foreign;
  }
  file.size = std::int64_t(found.nFileSizeHigh) << 32 | found.nFileSizeLow;
  file.modified = secondsOf(found.ftLastWriteTime);
  const std::int64_t wanted = std::min(most, file.size);
  LARGE_INTEGER start{};
  start.QuadPart = file.size - wanted;
  file.end.resize(static_cast<int>(wanted));
  DWORD got = 0;
  const bool isRead =
      ::SetFilePointerEx(handle.get(), start, nullptr, FILE_BEGIN) &&
      ::ReadFile(handle.get(), file.end.data(), static_cast<DWORD>(wanted), &got, nullptr);
  file.end.resize(isRead ? static_cast<int>(got) : 0);
  return isRead ? Reading_t::Done : Reading_t::Failed;
}

}  // namespace Kyr

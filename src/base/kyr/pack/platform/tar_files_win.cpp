#include <kyr/pack/tar_files_p.h>

#include <kyr/os/os_file_p.h>

#include <QFileInfo>
#include <QStringList>

#include <algorithm>

#include <windows.h>

namespace Kyr {

namespace {

/// The system counts 100 nanoseconds from 1601-01-01 on.
constexpr std::int64_t unitsPerSecond = 10000000;
constexpr std::int64_t secondsTo1970 = 11644473600;

class File {
 public:
  File(const QString& name, DWORD rights)
      : _handle(::CreateFileW(Platform::nativePath(name).c_str(), rights,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr)) {}
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() {
    if (isOpen()) {
      ::CloseHandle(_handle);
    }
  }
  bool isOpen() const { return _handle != INVALID_HANDLE_VALUE; }
  HANDLE handle() const { return _handle; }

 private:
  HANDLE _handle;
};

std::int64_t combine(DWORD high, DWORD low) {
  return std::int64_t(high) << 32 | low;
}

/// Seconds since 1970, rounded down, also before.
std::int64_t secondsOf(const FILETIME& time) {
  return combine(time.dwHighDateTime, time.dwLowDateTime) / unitsPerSecond - secondsTo1970;
}

/// Whether a character can be no part of a name; ":" begins the name of a stream within a file.
bool isReserved(QChar character) {
  return character < ' ' || QString("<>:\"|?*").contains(character);
}

/// Whether a part names a device, which it does with any extension and in any directory.
bool isDevice(const QString& part) {
  const QString name = part.section('.', 0, 0).trimmed().toUpper();
  const bool isNumbered = name.size() == 4 && (name.startsWith("COM") || name.startsWith("LPT"));
  return isNumbered ? name[3].digitValue() >= 0 ||
                          QString::fromUtf8("\u00b9\u00b2\u00b3").contains(name[3])
                    : QStringList{"CON", "PRN", "AUX", "NUL", "CONIN$", "CONOUT$"}.contains(name);
}

}  // namespace

bool TarFiles::examine(const QString& name, Facts& facts) {
  facts = {};
  const DWORD attributes = ::GetFileAttributesW(Platform::nativePath(name).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return false;
  }
  facts.isLink = (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  const File file(name, FILE_READ_ATTRIBUTES);
  BY_HANDLE_FILE_INFORMATION found{};
  if (!file.isOpen() || !::GetFileInformationByHandle(file.handle(), &found)) {
    facts.isBroken = facts.isLink;
    return facts.isBroken;
  }
  facts.isDirectory = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  facts.isFile = !facts.isDirectory;
  facts.size = combine(found.nFileSizeHigh, found.nFileSizeLow);
  facts.modified = secondsOf(found.ftLastWriteTime);
  return true;
}

// The system completes names, which may begin at the root of the current drive or in the current
// directory of another one.
QString TarFiles::absolute(const QString& name) {
  return QFileInfo(name).absoluteFilePath();
}

// The system drops dots and blanks at the end, so that two names would mean the same.
bool TarFiles::canBeName(const QString& part) {
  return part.isEmpty() || part == "." ||
         (!part.endsWith('.') && !part.endsWith(' ') && !isDevice(part) &&
          std::none_of(part.begin(), part.end(), isReserved));
}

void TarFiles::setModified(const QString& name, std::int64_t seconds) {
  constexpr std::int64_t last = INT64_MAX / unitsPerSecond - secondsTo1970;
  if (seconds < -secondsTo1970 || seconds > last) {
    return;
  }
  const std::int64_t units = (seconds + secondsTo1970) * unitsPerSecond;
  const FILETIME time{static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
  const File file(name, FILE_WRITE_ATTRIBUTES);
  if (file.isOpen()) {
    ::SetFileTime(file.handle(), nullptr, nullptr, &time);
  }
}

}  // namespace Kyr

#include "../same_file_p.h"

#include <QDir>

#include <cstdio>

#include <io.h>
#include <windows.h>

namespace KyrTool {

namespace {

/// A file that is open for asking about it only, or a standard stream, which stays open.
class File {
 public:
  File(const QString& name, std::FILE* standardStream)
      : _isOwn(name != "-"), _handle(_isOwn ? open(name) : handleOf(standardStream)) {}
  File(const File&) = delete;
  File& operator=(const File&) = delete;
  ~File() {
    if (_isOwn && _handle != INVALID_HANDLE_VALUE) {
      ::CloseHandle(_handle);
    }
  }
  bool examine(BY_HANDLE_FILE_INFORMATION& found) const {
    return ::GetFileType(_handle) == FILE_TYPE_DISK &&
           ::GetFileInformationByHandle(_handle, &found) != 0;
  }

 private:
  static HANDLE open(const QString& name) {
    const std::wstring path = QDir::toNativeSeparators(name).toStdWString();
    return ::CreateFileW(path.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                         nullptr, OPEN_EXISTING, 0, nullptr);
  }
  static HANDLE handleOf(std::FILE* stream) {
    return reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
  }

  const bool _isOwn;
  const HANDLE _handle;
};

}  // namespace

bool isSameFile(const QString& input, const QString& output) {
  BY_HANDLE_FILE_INFORMATION source{};
  BY_HANDLE_FILE_INFORMATION target{};
  return File(input, stdin).examine(source) && File(output, stdout).examine(target) &&
         source.dwVolumeSerialNumber == target.dwVolumeSerialNumber &&
         source.nFileIndexHigh == target.nFileIndexHigh &&
         source.nFileIndexLow == target.nFileIndexLow;
}

}  // namespace KyrTool

#include <kyr/files/safe_file_p.h>

#include <QDir>

#include <string>
#include <vector>

#include <windows.h>

namespace Kyr::Platform {

namespace {

HANDLE handleOf(std::intptr_t handle) {
  return reinterpret_cast<HANDLE>(handle);
}

/// Copies who may read and write a file, as far as that was set for the file itself.
void copyAccessList(const std::wstring& model, const std::wstring& file) {
  DWORD size = 0;
  ::GetFileSecurityW(model.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
  std::vector<unsigned char> list(size);
  if (size > 0 &&
      ::GetFileSecurityW(model.c_str(), DACL_SECURITY_INFORMATION, list.data(), size, &size)) {
    ::SetFileSecurityW(file.c_str(), DACL_SECURITY_INFORMATION, list.data());
  }
}

std::wstring fullPath(const std::wstring& path) {
  std::wstring full(::GetFullPathNameW(path.c_str(), 0, nullptr, nullptr), L'\0');
  full.resize(::GetFullPathNameW(path.c_str(), DWORD(full.size()), full.data(), nullptr));
  return full;
}

/// The path behind all links; empty when they lead nowhere.
std::wstring finalPath(const std::wstring& path) {
  const HANDLE file = ::CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES,
                                    FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return {};
  }
  std::wstring final(32768, L'\0');
  final.resize(::GetFinalPathNameByHandleW(file, final.data(), DWORD(final.size()), 0));
  ::CloseHandle(file);
  return final;
}

}  // namespace

bool OutputFile::create(const std::filesystem::path& name, const QString& model) {
  constexpr DWORD kept = FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM | FILE_ATTRIBUTE_ARCHIVE;
  const std::wstring& path = name.native();
  const std::wstring modelPath = nativePath(model).native();
  const DWORD old = ::GetFileAttributesW(modelPath.c_str());
  const bool hasModel = old != INVALID_FILE_ATTRIBUTES;
  const DWORD attributes = hasModel && (old & kept) != 0 ? old & kept : FILE_ATTRIBUTE_NORMAL;
  // May be deleted while it is open: when the process is told to end at once.
  const HANDLE file =
      ::CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                    CREATE_NEW, attributes, nullptr);
  if (file == INVALID_HANDLE_VALUE) {
    return false;
  }
  _handle = reinterpret_cast<std::intptr_t>(file);
  if (hasModel) {
    copyAccessList(modelPath, path);
  }
  return true;
}

bool OutputFile::flushToDisk() {
  return ::FlushFileBuffers(handleOf(_handle)) != 0;
}

std::int64_t OutputFile::size() const {
  LARGE_INTEGER size{};
  return ::GetFileSizeEx(handleOf(_handle), &size) ? std::int64_t{size.QuadPart} : -1;
}

bool OutputFile::close() {
  const bool good = !isOpen() || ::CloseHandle(handleOf(_handle)) != 0;
  _handle = none;
  return good;
}

bool resolve(const QString& name, QString& target) {
  const std::wstring path = fullPath(QDir::toNativeSeparators(name).toStdWString());
  const DWORD attributes = ::GetFileAttributesW(nativePath(name).c_str());
  const bool isLink =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  const std::wstring final = isLink ? finalPath(nativePath(name).native()) : path;
  target = QDir::fromNativeSeparators(QString::fromStdWString(final));
  return !final.empty();
}

bool mayWrite(const QString& name) {
  const DWORD attributes = ::GetFileAttributesW(nativePath(name).c_str());
  const bool isProtected =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_READONLY) != 0;
  ::SetLastError(ERROR_ACCESS_DENIED);
  return !isProtected;
}

// Virus scanners and indexers look at every new file for a moment. The system then denies access,
// as it does for a protected file.
bool isHeldByOther() {
  switch (::GetLastError()) {
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
    case ERROR_USER_MAPPED_FILE:
    case ERROR_ACCESS_DENIED:
      return true;
    default:
      return false;
  }
}

// Nothing is left to do: renaming returns when the names are on the disk.
bool flushDirectory(const std::filesystem::path& /*directory*/) noexcept {
  return true;
}

}  // namespace Kyr::Platform

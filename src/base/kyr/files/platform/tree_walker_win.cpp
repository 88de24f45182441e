#include <kyr/files/tree_walker_p.h>

#include <kyr/os/os_directory_win_p.h>
#include <kyr/os/os_file_p.h>
#include <kyr/os/os_reason_p.h>

#include <windows.h>

namespace Kyr::Platform {

namespace {

bool has(DWORD attributes, DWORD wanted) {
  return attributes != INVALID_FILE_ATTRIBUTES && (attributes & wanted) != 0;
}

/// Opens a directory, which nobody can rename or remove while it is open.
HANDLE hold(const NativeName& path, DWORD flags) {
  return ::CreateFileW(path.c_str(), FILE_LIST_DIRECTORY | FILE_READ_ATTRIBUTES,
                       FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING,
                       FILE_FLAG_BACKUP_SEMANTICS | flags, nullptr);
}

HANDLE handleOf(std::intptr_t handle) {
  return reinterpret_cast<HANDLE>(handle);
}

bool isEntry(const NativeName& name) {
  return name != L"." && name != L"..";
}

}  // namespace

TreeWalker::TreeWalker(const QString& start) {
  const NativeName path = verbatimPath(start).native();
  const HANDLE handle = hold(path, 0);
  if (handle != INVALID_HANDLE_VALUE) {
    push(reinterpret_cast<std::intptr_t>(handle), path);
  }
}

TreeWalker::~TreeWalker() {
  for (const Level& level : _levels) {
    ::CloseHandle(handleOf(level.handle));
  }
}

NativeName TreeWalker::nativeName(const QString& name) {
  return name.toStdWString();
}

bool TreeWalker::push(std::intptr_t handle, const NativeName& path) {
  BY_HANDLE_FILE_INFORMATION found{};
  const bool isPlace = ::GetFileInformationByHandle(handleOf(handle), &found) &&
                       has(found.dwFileAttributes, FILE_ATTRIBUTE_DIRECTORY);
  const bool isLink = has(found.dwFileAttributes, FILE_ATTRIBUTE_REPARSE_POINT);
  if (!isPlace || (isLink && isOpen())) {
    ::CloseHandle(handleOf(handle));
    ::SetLastError(ERROR_DIRECTORY);
    return false;
  }
  _levels.push_back({handle, 0, 0, path});
  return true;
}

NativeName TreeWalker::pathOf(const NativeName& name) const {
  const NativeName& path = _levels.back().path;
  return path + (path.back() == L'\\' ? L"" : L"\\") + name;
}

TreeWalker::Kind_t TreeWalker::kindOf(const NativeName& name) const {
  const DWORD attributes = ::GetFileAttributesW(pathOf(name).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return Missing;
  }
  return has(attributes, FILE_ATTRIBUTE_DIRECTORY) && !has(attributes, FILE_ATTRIBUTE_REPARSE_POINT)
             ? Directory
             : Other;
}

bool TreeWalker::list(std::vector<NativeName>& names) const {
  WIN32_FIND_DATAW found{};
  const Search search(::FindFirstFileW(pathOf(L"*").c_str(), &found));
  if (!search.isOpen()) {
    return ::GetLastError() == ERROR_FILE_NOT_FOUND;  // the root of an empty drive
  }
  do {
    if (isEntry(found.cFileName)) {
      names.emplace_back(found.cFileName);
    }
  } while (::FindNextFileW(search.handle(), &found));
  return ::GetLastError() == ERROR_NO_MORE_FILES;
}

// Files that must not be written can be removed, as on other systems.
bool TreeWalker::removeOther(const NativeName& name) const {
  const NativeName path = pathOf(name);
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) {
    return false;
  }
  if (kindOf(name) == Directory) {
    ::SetLastError(ERROR_ACCESS_DENIED);
    return false;
  }
  if (has(attributes, FILE_ATTRIBUTE_READONLY)) {
    ::SetFileAttributesW(path.c_str(), attributes & ~DWORD(FILE_ATTRIBUTE_READONLY));
  }
  return has(attributes, FILE_ATTRIBUTE_DIRECTORY) ? ::RemoveDirectoryW(path.c_str()) != 0
                                                   : ::DeleteFileW(path.c_str()) != 0;
}

bool TreeWalker::removeDirectory(const NativeName& name) const {
  const NativeName path = pathOf(name);
  const DWORD attributes = ::GetFileAttributesW(path.c_str());
  if (has(attributes, FILE_ATTRIBUTE_READONLY)) {
    ::SetFileAttributesW(path.c_str(), attributes & ~DWORD(FILE_ATTRIBUTE_READONLY));
  }
  return ::RemoveDirectoryW(path.c_str()) != 0;
}

// A link, by which alone this system enters other file systems, is not entered.
bool TreeWalker::enter(const NativeName& name) {
  const NativeName path = pathOf(name);
  const HANDLE handle = hold(path, FILE_FLAG_OPEN_REPARSE_POINT);
  return handle != INVALID_HANDLE_VALUE && push(reinterpret_cast<std::intptr_t>(handle), path);
}

bool TreeWalker::leave() {
  ::CloseHandle(handleOf(_levels.back().handle));
  _levels.pop_back();
  return true;
}

}  // namespace Kyr::Platform

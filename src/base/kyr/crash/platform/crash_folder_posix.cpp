#include <kyr/crash/crash_folder_posix_p.h>

#include <cstdint>
#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace Kyr::Crash {

FolderReader::FolderReader(const char* name) noexcept
    : _folder(::open(name, O_RDONLY | O_DIRECTORY | O_CLOEXEC)) {}

FolderReader::~FolderReader() {
  if (_folder >= 0) {
    ::close(_folder);
  }
}

const char* FolderReader::next() noexcept {
  if (_position >= _length && !refill()) {
    return nullptr;
  }
  const char* entry = _entries.data() + _position;
  std::uint16_t size = 0;
  std::memcpy(&size, entry + offsetof(dirent64, d_reclen), sizeof size);
  _position += size;
  return entry + offsetof(dirent64, d_name);
}

bool FolderReader::refill() noexcept {
  const long count = ::syscall(SYS_getdents64, _folder, _entries.data(), _entries.size());
  _failed = count < 0;
  _length = count > 0 ? static_cast<std::size_t>(count) : 0;
  _position = 0;
  return _length > 0;
}

}  // namespace Kyr::Crash

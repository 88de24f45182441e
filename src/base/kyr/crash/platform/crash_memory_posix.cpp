#include <kyr/crash/crash_posix_p.h>

#include <cerrno>

#include <fcntl.h>
#include <unistd.h>

namespace Kyr {

namespace {

/// Reads the words of one line of the system's list.
class LineReader {
 public:
  LineReader(const char* first, const char* end) noexcept : _next(first), _end(end) {}

  std::uint64_t hexadecimal() noexcept {
    std::uint64_t number = 0;
    for (; _next < _end; ++_next) {
      const char c = *_next;
      if (c >= '0' && c <= '9') {
        number = number * 16 + static_cast<std::uint64_t>(c - '0');
      } else if (c >= 'a' && c <= 'f') {
        number = number * 16 + static_cast<std::uint64_t>(c - 'a') + 10;
      } else {
        break;
      }
    }
    return number;
  }

  char character() noexcept { return _next < _end ? *_next++ : '\0'; }

  void skipWord() noexcept {
    while (_next < _end && *_next != ' ') {
      ++_next;
    }
    skipBlanks();
  }

  void skipBlanks() noexcept {
    while (_next < _end && *_next == ' ') {
      ++_next;
    }
  }

  const char* rest() const noexcept { return _next; }

 private:
  const char* _next;
  const char* _end;
};

/// The mapping of a line of the form "begin-end rwxp offset device inode path".
Crash::Mapping parse(const char* first, const char* end) noexcept {
  LineReader reader(first, end);
  Crash::Mapping mapping{};
  mapping.begin = reader.hexadecimal();
  reader.character();
  mapping.end = reader.hexadecimal();
  reader.character();
  mapping.readable = reader.character() == 'r';
  reader.character();
  mapping.executable = reader.character() == 'x';
  reader.skipWord();
  mapping.offset = reader.hexadecimal();
  reader.skipBlanks();
  reader.skipWord();  // device
  reader.skipWord();  // inode
  mapping.path = reader.rest();
  mapping.pathLength = static_cast<std::size_t>(end - mapping.path);
  return mapping;
}

}  // namespace

std::size_t Crash::readSystemFile(const char* name, char* target, std::size_t size) noexcept {
  const int file = ::open(name, O_RDONLY | O_CLOEXEC);
  if (file < 0) {
    return 0;
  }
  std::size_t length = 0;
  while (length < size) {
    const ssize_t count = ::read(file, target + length, size - length);
    if (count < 0 && errno == EINTR) {
      continue;
    }
    if (count <= 0) {
      break;
    }
    length += static_cast<std::size_t>(count);
  }
  ::close(file);
  return length;
}

void Crash::Memory::load() noexcept {
  // Stays open in the program that prints the backtraces, which reads through it.
  _descriptor = ::open("/proc/self/mem", O_RDONLY);  // NOLINT(android-cloexec-open): see above
  _length = readSystemFile("/proc/self/maps", _list.data(), _list.size());
}

void Crash::Memory::unload() noexcept {
  ::close(_descriptor);
}

bool Crash::Memory::next(std::size_t& position, Mapping& mapping) const noexcept {
  if (position >= _length) {
    return false;
  }
  const char* first = _list.data() + position;
  const auto* end = static_cast<const char*>(std::memchr(first, '\n', _length - position));
  if (!end) {
    return false;  // the line is cut off by the end of the buffer
  }
  mapping = parse(first, end);
  position = static_cast<std::size_t>(end - _list.data()) + 1;
  return true;
}

bool Crash::Memory::find(std::uint64_t address, Mapping& mapping) const noexcept {
  for (std::size_t position = 0; next(position, mapping);) {
    if (mapping.end > address && mapping.readable) {
      return true;
    }
  }
  return false;
}

bool Crash::Memory::read(std::uint64_t address, void* target, std::size_t size) const noexcept {
  const ssize_t count = ::pread(_descriptor, target, size, static_cast<off_t>(address));
  return count == static_cast<ssize_t>(size);
}

}  // namespace Kyr

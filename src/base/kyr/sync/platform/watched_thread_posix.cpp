#include <kyr/sync/watched_thread_p.h>

#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>
#include <string_view>

#include <fcntl.h>
#include <pthread.h>
#include <unistd.h>

namespace Kyr {

namespace {

struct Key {
  explicit Key(void (*end)(void*)) noexcept : made(::pthread_key_create(&key, end) == 0) {}

  pthread_key_t key{};
  bool made;
};

}  // namespace

bool Platform::callAtThreadEnd(void (*end)(void* data), void* data) noexcept {
  static const Key key(end);
  return key.made && ::pthread_setspecific(key.key, data) == 0;
}

void Platform::threadName(std::uint64_t number, char* name, std::size_t size) noexcept {
  const int error = errno;
  std::array<char, 48> path{"/proc/self/task/"};
  constexpr std::size_t prefix = std::string_view("/proc/self/task/").size();
  char* const end = std::to_chars(path.data() + prefix, path.data() + prefix + 20, number).ptr;
  std::memcpy(end, "/comm", sizeof "/comm");
  const int file = ::open(path.data(), O_RDONLY | O_CLOEXEC);
  const ssize_t count = file < 0 ? -1 : ::read(file, name, size - 1);
  if (file >= 0) {
    ::close(file);
  }
  name[count > 0 ? count - 1 : 0] = '\0';  // without the end of the line
  errno = error;
}

}  // namespace Kyr

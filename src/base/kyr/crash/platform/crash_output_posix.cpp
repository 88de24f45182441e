#include <kyr/crash/crash_posix_p.h>

#include <unistd.h>

namespace Kyr {

namespace {

/// The thread that collects what it prints, and in which file; 0 for none.
std::atomic<int> collector{0};
std::atomic<int> collection{-1};

void writeTo(int file, const char* bytes, std::size_t length) noexcept {
  while (length > 0) {
    const ssize_t written = ::write(file, bytes, length);
    if (written <= 0) {
      return;
    }
    bytes += written;
    length -= static_cast<std::size_t>(written);
  }
}

}  // namespace

void Crash::collectOutput(int file) noexcept {
  collection = file;
  collector = file >= 0 ? ::gettid() : 0;
}

int Crash::outputOfThread() noexcept {
  const int collecting = collector;
  return collecting != 0 && collecting == ::gettid() ? collection.load() : -1;
}

void Crash::printBytes(const char* bytes, std::size_t length) noexcept {
  const int file = outputOfThread();
  if (file >= 0) {
    writeTo(file, bytes, length);
  } else {
    Fatal::writeToStandardError(bytes, length);
  }
}

}  // namespace Kyr

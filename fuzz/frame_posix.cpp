#include "Fuzz.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <sys/mman.h>
#include <unistd.h>

namespace KyrFuzz {

unsigned Choices::upTo(unsigned most) {
  const std::string_view byte = take(1);
  const unsigned value = byte.empty() ? 0 : static_cast<unsigned char>(byte[0] - '0');
  return value % (most + 1);
}

std::string_view Choices::take(std::size_t count) {
  const std::string_view taken = _rest.substr(0, count);
  _rest.remove_prefix(taken.size());
  return taken;
}

std::string_view Choices::line() {
  const std::string_view taken = take(std::min(_rest.find('\n'), _rest.size()));
  take(1);
  return taken;
}

std::string Choices::repeated(std::size_t times, std::size_t most) {
  std::string all;
  for (const std::string_view seed = rest(); times > 0 && all.size() + seed.size() < most;
       --times) {
    all.append(seed);
  }
  return all;
}

QByteArray contentOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

const QString& folder() {
  static const QTemporaryDir dir(QDir::tempPath() + "/kyr-fuzz-XXXXXX");
  static const QString path = dir.path();
  expect(dir.isValid(), "there is room for a folder");
  return path;
}

Stream streamOf(std::string_view bytes) {
  return {fmemopen(const_cast<char*>(bytes.data()), bytes.size(), "r"), std::fclose};
}

std::string_view fenced(std::string_view bytes) {
  constexpr std::size_t most = std::size_t{1} << 20U;
  static const auto room = [] {
    const auto page = static_cast<std::size_t>(sysconf(_SC_PAGESIZE));
    void* const pages =
        mmap(nullptr, most + page, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    expect(pages != MAP_FAILED, "there are pages");
    char* const fence = static_cast<char*>(pages) + most;
    expect(mprotect(fence, page, PROT_NONE) == 0, "a page can be fenced");
    return fence;
  }();
  const std::size_t size = std::min(bytes.size(), most);
  std::memcpy(room - size, bytes.data(), size);
  return {room - size, size};
}

}  // namespace KyrFuzz

/// What libFuzzer and the replay call.
extern "C" __attribute__((visibility("default"))) int LLVMFuzzerTestOneInput(
    const std::uint8_t* data, std::size_t size) {
  KyrFuzz::harness(
      KyrFuzz::Choices({reinterpret_cast<const char*>(data), data == nullptr ? 0 : size}));
  return 0;
}

#include <kyr/files/byte_scan_p.h>

#include <array>
#include <cstring>

namespace Kyr::FileParse {

namespace {

std::int64_t countLineFeeds(const char* begin, const char* end) {
  std::int64_t count = 0;
  const auto next = [&] { return std::memchr(begin, '\n', static_cast<std::size_t>(end - begin)); };
  while (const void* const found = next()) {
    begin = static_cast<const char*>(found) + 1;
    ++count;
  }
  return count;
}

}  // namespace

std::int64_t countLineFeeds(std::FILE* stream) {
  std::array<char, 32768> block;
  std::int64_t count = 0;
  std::fgetc(stream);
  while (const std::size_t length = std::fread(block.data(), 1, block.size(), stream)) {
    count += countLineFeeds(block.data(), block.data() + length);
  }
  return count;
}

}  // namespace Kyr::FileParse

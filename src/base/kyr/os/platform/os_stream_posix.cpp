#include <kyr/os/os_stream_p.h>

#include <sys/types.h>

namespace Kyr::Stream {

bool readLine(char* buffer, int size, std::FILE* stream) {
  return ::fgets_unlocked(buffer, size, stream) != nullptr;
}

std::int64_t position(std::FILE* stream) {
  return ::ftello(stream);
}

bool moveTo(std::FILE* stream, std::int64_t position, int origin) {
  return ::fseeko(stream, static_cast<off_t>(position), origin) == 0;
}

}  // namespace Kyr::Stream

#include <kyr/os/os_stream_p.h>

#include <io.h>
#include <windows.h>

namespace Kyr::Stream {

namespace {

/// Whether a stream can be moved; the C runtime reports success for pipes and consoles too.
bool hasPosition(std::FILE* stream) {
  const std::intptr_t handle = _get_osfhandle(_fileno(stream));
  return ::GetFileType(reinterpret_cast<HANDLE>(handle)) == FILE_TYPE_DISK;
}

}  // namespace

bool readLine(char* buffer, int size, std::FILE* stream) {
  return std::fgets(buffer, size, stream) != nullptr;
}

std::int64_t position(std::FILE* stream) {
  return hasPosition(stream) ? _ftelli64(stream) : -1;
}

bool moveTo(std::FILE* stream, std::int64_t position, int origin) {
  return hasPosition(stream) && _fseeki64(stream, position, origin) == 0;
}

}  // namespace Kyr::Stream

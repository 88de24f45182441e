#include <kyr/files/stream_p.h>

#include <io.h>
#include <windows.h>

namespace Kyr::Stream {

namespace {

/// The C runtime also moves pipes and consoles, and reports success.
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

bool moveTo(std::FILE* stream, std::int64_t position) {
  return hasPosition(stream) && _fseeki64(stream, position, SEEK_SET) == 0;
}

}  // namespace Kyr::Stream

#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>
#include <kyr/os/os_reason_p.h>

#include <cerrno>

namespace Kyr {

namespace {

/// Why a name is refused without asking the system, as the C library's number; 0 for a good one.
int refusal(const QString& name) {
  // A zero character would end the name for the system, which then opens another file.
  if (name.isEmpty() || name.contains(QChar::Null)) {
    return EINVAL;
  }
  return Platform::isDirectory(name) ? EISDIR : 0;
}

/// \return null for a mode that is none
const char* modeText(OS::OpenMode mode) {
  switch (mode) {
    case OS::OpenRead:
      return "rb";
    case OS::OpenWrite:
      return "wb";
    case OS::OpenAppend:
      return "ab";
  }
  return nullptr;
}

template <class Stream>
void open(Stream& stream, const QString& name, std::ios_base::openmode mode, bool shared) {
  if (refusal(name) == 0 && Platform::openBuffer(*stream.rdbuf(), name, mode, shared)) {
    stream.clear();
  } else {
    stream.setstate(std::ios_base::failbit);
  }
}

}  // namespace

QString Platform::withoutEndSlashes(QString path) {
  while (path.size() > 1 && path.endsWith('/')) {
    path.chop(1);
  }
  return path;
}

void OS::openStdStream(std::ofstream& stream, const QString& name, OpenMode mode, bool shared) {
  constexpr auto binary = std::ios_base::out | std::ios_base::binary;
  switch (mode) {
    case OpenWrite:
      return open(stream, name, binary | std::ios_base::trunc, shared);
    case OpenAppend:
      return open(stream, name, binary | std::ios_base::app, shared);
    case OpenRead:
      break;
  }
  stream.setstate(std::ios_base::failbit);
}

void OS::openStdStream(std::ifstream& stream, const QString& name, OpenMode mode, bool shared) {
  if (mode != OpenRead) {
    return stream.setstate(std::ios_base::failbit);
  }
  open(stream, name, std::ios_base::in | std::ios_base::binary, shared);
}

FILE* OS::openFile(const QString& name, OpenMode mode) {
  const char* const text = modeText(mode);
  if (const int refused = text ? refusal(name) : EINVAL) {
    errno = refused;
    return nullptr;
  }
  FILE* const file = Platform::openFile(name, text);
  if (!file) {
    const int known = Platform::lastError().known;
    errno = known != 0 ? known : EIO;
  }
  return file;
}

}  // namespace Kyr

#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>

namespace Kyr {

namespace {

/// A zero character would end the name for the system, which then opens another file.
bool canBeFile(const QString& name) {
  return !name.isEmpty() && !name.contains(QChar::Null) && !Platform::isDirectory(name);
}

template <class Stream>
void open(Stream& stream, const QString& name, std::ios_base::openmode mode, bool shared) {
  if (canBeFile(name) && Platform::openBuffer(*stream.rdbuf(), name, mode, shared)) {
    stream.clear();
  } else {
    stream.setstate(std::ios_base::failbit);
  }
}

}  // namespace

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
  if (!canBeFile(name)) {
    return nullptr;
  }
  switch (mode) {
    case OpenRead:
      return Platform::openFile(name, "rb");
    case OpenWrite:
      return Platform::openFile(name, "wb");
    case OpenAppend:
      return Platform::openFile(name, "ab");
  }
  return nullptr;
}

}  // namespace Kyr

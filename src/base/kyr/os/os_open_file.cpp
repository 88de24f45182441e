#include <kyr/os/KyrOpenFile.h>

#include <kyr/os/os_reason_p.h>
#include <kyr/os/os_stream_p.h>

#include <cerrno>
#include <streambuf>
#include <utility>

namespace Kyr {

namespace {

/// What standard streams see of a C stream. It buffers nothing, as that stream does.
class Buffer : public std::streambuf {
 public:
  Buffer(std::FILE* file, bool reads) : _file(file), _reads(reads) {}
  std::FILE* file() const { return _file; }
  /// \return the C stream, which this one has no longer
  std::FILE* release() { return std::exchange(_file, nullptr); }

 protected:
  int_type underflow() override { return putBack(uflow()); }
  int_type uflow() override { return mayRead() ? expectRead(std::fgetc(_file)) : EOF; }
  std::streamsize xsgetn(char* bytes, std::streamsize count) override;
  int_type pbackfail(int_type character) override;
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* bytes, std::streamsize count) override;
  /// A C stream that reads must not be flushed: there is no saying what it would lose.
  int sync() override { return _file == nullptr ? -1 : _reads ? 0 : std::fflush(_file); }
  pos_type seekoff(off_type offset, std::ios_base::seekdir from,
                   std::ios_base::openmode which) override;
  pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

 private:
  int_type putBack(int_type character) {
    return character == EOF ? EOF : std::ungetc(character, _file);
  }
  /// \throws for the stream that called, which then is bad; not every C library calls it an error
  bool mayRead() const {
    if (_file != nullptr && !_reads) {
      throw std::ios_base::failure("opened for writing");
    }
    return _file != nullptr;
  }
  /// \throws as mayRead()
  template <class Result>
  Result expectRead(Result result) {
    if (std::ferror(_file) != 0) {
      throw std::ios_base::failure("reading failed");
    }
    return result;
  }

  std::FILE* _file;
  const bool _reads;
};

std::streamsize Buffer::xsgetn(char* bytes, std::streamsize count) {
  if (!mayRead()) {
    return 0;
  }
  const std::size_t got = std::fread(bytes, 1, static_cast<std::size_t>(count), _file);
  return expectRead(static_cast<std::streamsize>(got));
}

/// \param character EOF for the one that was read last, which a C stream cannot give back
Buffer::int_type Buffer::pbackfail(int_type character) {
  return _file != nullptr ? putBack(character) : EOF;
}

Buffer::int_type Buffer::overflow(int_type character) {
  if (_file == nullptr) {
    return EOF;
  }
  return character == EOF ? traits_type::not_eof(character) : std::fputc(character, _file);
}

std::streamsize Buffer::xsputn(const char* bytes, std::streamsize count) {
  return _file == nullptr ? 0
                          : static_cast<std::streamsize>(
                                std::fwrite(bytes, 1, static_cast<std::size_t>(count), _file));
}

Buffer::pos_type Buffer::seekoff(off_type offset, std::ios_base::seekdir from,
                                 std::ios_base::openmode /*which*/) {
  if (_file == nullptr) {
    return off_type(-1);
  }
  const bool stays = from == std::ios_base::cur && offset == 0;
  const int origin = from == std::ios_base::beg   ? SEEK_SET
                     : from == std::ios_base::cur ? SEEK_CUR
                                                  : SEEK_END;
  return off_type(stays || Stream::moveTo(_file, offset, origin) ? Stream::position(_file) : -1);
}

Buffer::pos_type Buffer::seekpos(pos_type position, std::ios_base::openmode which) {
  return seekoff(position, std::ios_base::beg, which);
}

constexpr const char* cannotOpen = "cannot open %1";

/// \throws Exception
std::FILE* open(const QString& name, OS::OpenMode mode) {
  Platform::expectName(cannotOpen, name);
  std::FILE* const file = OS::openFile(name, mode);
  if (file == nullptr) {
    const bool isDirectory = errno == EISDIR;  // of which the system may not have been asked
    Platform::SystemError reason = Platform::lastError();
    reason.known = isDirectory ? EISDIR : reason.known;
    Platform::fail(cannotOpen, name, Platform::inWords(reason));
  }
  return file;
}

}  // namespace

struct KYR_HIDDEN OpenFile::Private {
  Private(const QString& opened, OS::OpenMode mode)
      : name(opened),
        reads(mode == OS::OpenRead),
        buffer(open(opened, mode), reads),
        stream(&buffer) {}
  ~Private() {
    if (buffer.file() != nullptr) {
      std::fclose(buffer.file());
    }
  }

  QString name;
  bool reads;
  Buffer buffer;
  std::iostream stream;
};

OpenFile::OpenFile(const QString& name, OS::OpenMode mode)
    : _private(std::make_unique<Private>(name, mode)) {}

OpenFile::~OpenFile() = default;
OpenFile::OpenFile(OpenFile&& other) noexcept = default;
OpenFile& OpenFile::operator=(OpenFile&& other) noexcept = default;

const QString& OpenFile::getName() const {
  return _private->name;
}

std::FILE* OpenFile::getStream() const {
  return _private->buffer.file();
}

std::iostream& OpenFile::stream() {
  return _private->stream;
}

void OpenFile::close() {
  std::FILE* const file = _private->buffer.release();
  if (file == nullptr) {
    return;
  }
  const bool failedBefore = std::ferror(file) != 0;
  const bool closed = std::fclose(file) == 0;
  const char* const what = _private->reads ? "cannot read %1" : "cannot write %1";
  if (failedBefore) {
    Platform::fail(what, _private->name, "not all of it went through");
  }
  if (!closed) {
    Platform::fail(what, _private->name);
  }
}

}  // namespace Kyr

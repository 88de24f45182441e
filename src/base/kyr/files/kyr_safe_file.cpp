#include <kyr/files/KyrSafeFile.h>

#include <kyr/core/KyrException.h>
#include <kyr/files/leftovers_p.h>
#include <kyr/files/live_files_p.h>
#include <kyr/files/safe_file_p.h>
#include <kyr/files/unfinished_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_directory_p.h>
#include <kyr/os/os_process_p.h>
#include <kyr/os/os_reason_p.h>
#include <kyr/trace/KyrTrace.h>

#include <QDir>
#include <QThread>

#include <streambuf>

namespace Kyr {

namespace {

constexpr const char* cannotSave = "cannot save %1";

QString directoryOf(const QString& target) {
  return target.left(QDir::fromNativeSeparators(target).lastIndexOf('/') + 1);
}

/// The name of the target behind all links, if it can be replaced.
QString findTarget(const QString& name) {
  Platform::expectName(cannotSave, name);
  QString target;
  if (!Platform::resolve(name, target)) {
    Platform::fail(cannotSave, name);
  }
  OS::FileStatus status;
  if (!OS::stat(target, &status)) {
    return target;
  }
  if (!status.isFile) {
    Platform::fail(cannotSave, target, "it is no file but a directory or a device");
  }
  if (!Platform::mayWrite(target)) {
    Platform::fail(cannotSave, target, "it is write-protected");
  }
  return target;
}

bool renamePatiently(const QString& from, const QString& to) {
  constexpr int attempts = 41;
  constexpr unsigned long pause = 50;  // in milliseconds
  bool renamed = Platform::renameOver(from, to);
  for (int i = 1; i < attempts && !renamed && Platform::isHeldByOther(); ++i) {
    QThread::msleep(pause);
    renamed = Platform::renameOver(from, to);
  }
  return renamed;
}

}  // namespace

/// Writes to the temporary file; keeps count of the bytes and the reason of the first failure.
class KYR_HIDDEN SafeFile::Buffer : public std::streambuf {
 public:
  Buffer() { setp(_bytes.get(), _bytes.get() + size); }

  bool create(const std::filesystem::path& name, const QString& model) {
    return expect(_file.create(name, model));
  }
  bool isOpen() const { return _file.isOpen(); }
  bool hasFailed() const { return _hasFailed; }
  /// Why the content is not whole.
  QString failure() const;
  /// Brings everything to the disk and closes the file.
  void complete();
  void close();

 protected:
  int_type overflow(int_type character) override;
  std::streamsize xsputn(const char* bytes, std::streamsize count) override;
  int sync() override { return drain() ? 0 : -1; }

 private:
  static constexpr int size = 65536;

  bool drain();
  bool send(const char* bytes, std::streamsize count);
  bool expect(bool succeeded);
  bool isWhole();

  Platform::OutputFile _file;
  std::unique_ptr<char[]> _bytes{new char[size]};
  std::int64_t _written = 0;
  std::int64_t _onDisk = 0;  ///< the size that the file has, where that is what is wrong
  bool _hasFailed = false;
  Platform::SystemError _reason;
};

// The first failure counts: a system that has failed to write may forget that, and then succeed.
bool SafeFile::Buffer::expect(bool succeeded) {
  if (!succeeded && !_hasFailed) {
    _reason = Platform::lastError();
    _hasFailed = true;
  }
  return !_hasFailed;
}

QString SafeFile::Buffer::failure() const {
  const bool isSystem = _reason.native != 0;
  return isSystem ? Platform::inWords(_reason)
                  : QString("%1 of %2 bytes are on the disk").arg(_onDisk).arg(_written);
}

bool SafeFile::Buffer::send(const char* bytes, std::streamsize count) {
  if (_hasFailed || !expect(_file.write(bytes, static_cast<std::size_t>(count)))) {
    return false;
  }
  _written += count;
  return true;
}

bool SafeFile::Buffer::drain() {
  const std::streamsize count = pptr() - pbase();
  setp(pbase(), epptr());
  return count == 0 ? !_hasFailed : send(pbase(), count);
}

bool SafeFile::Buffer::isWhole() {
  _onDisk = _file.size();
  _hasFailed = _onDisk != _written;
  return !_hasFailed;
}

void SafeFile::Buffer::complete() {
  if (drain() && expect(_file.flushToDisk()) && isWhole()) {
    expect(_file.close());
  }
  close();
}

void SafeFile::Buffer::close() {
  setp(nullptr, nullptr);
  _file.close();
}

SafeFile::Buffer::int_type SafeFile::Buffer::overflow(int_type character) {
  if (!isOpen() || !drain()) {
    return traits_type::eof();
  }
  return traits_type::eq_int_type(character, traits_type::eof())
             ? traits_type::not_eof(character)
             : sputc(traits_type::to_char_type(character));
}

std::streamsize SafeFile::Buffer::xsputn(const char* bytes, std::streamsize count) {
  if (count < size) {
    return std::streambuf::xsputn(bytes, count);
  }
  return isOpen() && drain() && send(bytes, count) ? count : 0;
}

/// What a SafeFile consists of.
struct KYR_HIDDEN SafeFile::Private {
  /// How far the new file is.
  enum State_t {
    Writing,   ///< complete() leads to Complete
    Complete,  ///< on the disk under its temporary name; put() leads to Over
    Over,      ///< in its place, or gone; final
  };

  explicit Private(const QString& name);
  void complete();
  void put();
  void discard() noexcept;

  TraceLife traced{"SafeFile", "save"};
  QString target;
  QString temporary;
  std::filesystem::path nativeTemporary;
  LiveFile live{nativeTemporary};
  std::filesystem::path nativeDirectory;
  State_t state = Writing;
  Buffer buffer;
  std::ostream stream{&buffer};
};

SafeFile::Private::Private(const QString& name)
    : target(findTarget(name)),
      temporary(TemporaryFile::besideOf(target)),
      nativeTemporary(Platform::nativePath(temporary)),
      nativeDirectory(Platform::nativePath(directoryOf(target))) {
  traced.setDetail(target);
  Leftovers::sweep(directoryOf(target));
  const bool isCreated = buffer.create(nativeTemporary, target);
  live.tried();
  if (!isCreated) {
    if (buffer.isOpen()) {
      discard();
    }
    Platform::fail(cannotSave, target, buffer.failure());
  }
}

// Uses no memory, of which there may be none left.
void SafeFile::Private::discard() noexcept {
  std::error_code ignored;
  state = Over;
  buffer.close();
  std::filesystem::remove(nativeTemporary, ignored);
  traced.end();
}

void SafeFile::Private::complete() {
  const bool writerIsGood = stream.good();
  if (writerIsGood && Unfinished::isMarked(stream)) {
    Platform::fail(cannotSave, target, "what compresses the content was not closed, or failed");
  }
  buffer.complete();
  if (buffer.hasFailed()) {
    Platform::fail(cannotSave, target, buffer.failure());
  }
  if (!writerIsGood) {
    Platform::fail(cannotSave, target, "whatever writes the content reports a failure");
  }
  state = Complete;
}

void SafeFile::Private::put() {
  if (!renamePatiently(temporary, target)) {
    const QString why = Platform::inWords(Platform::lastError());
    LiveFile::stayIfEnding();
    Platform::fail(cannotSave, target, why);
  }
  state = Over;
  traced.end();
  if (!Platform::flushDirectory(nativeDirectory)) {
    Platform::fail("saved %1, but the disk may forget it at a power cut", target);
  }
}

SafeFile::SafeFile(const QString& name) : _private(std::make_unique<Private>(name)) {}

SafeFile::~SafeFile() {
  discard();
}

std::ostream& SafeFile::stream() {
  return _private->stream;
}

const QString& SafeFile::getTargetName() const {
  return _private->target;
}

const QString& SafeFile::getTemporaryName() const {
  return _private->temporary;
}

void SafeFile::commit(const Check& check) {
  const TraceSpan span("SafeFile::commit", "save");
  if (_private->state == Private::Over) {
    Platform::fail(cannotSave, _private->target, "it was saved or discarded already");
  }
  if (_private->state == Private::Writing) {
    _private->complete();
  }
  if (check) {
    check(_private->temporary);
  }
  _private->put();
}

void SafeFile::discard() noexcept {
  if (_private->state != Private::Over) {
    _private->discard();
  }
}

}  // namespace Kyr

#include "input.h"

#include "arguments.h"
#include "console_p.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrStopToken.h>
#include <kyr/os/KyrOS.h>

#include <QFileInfo>

#include <algorithm>
#include <iostream>

namespace KyrTool {

namespace {

QString reason(const QString& name) {
  const QFileInfo file(name);
  return file.isDir()    ? Kyr::translate("Kyr_tool", "is a directory")
         : file.exists() ? Kyr::translate("Kyr_tool", "cannot be opened")
                         : Kyr::translate("Kyr_tool", "no such file");
}

std::uint64_t sizeOf(const QString& name) {
  Kyr::OS::FileStatus status;
  return Kyr::OS::stat(name, &status) && status.isFile ? std::uint64_t(status.size) : 0;
}

}  // namespace

// ---- the buffer ----

WatchedBuffer::WatchedBuffer(std::streambuf* source, std::uint64_t size, bool isStandardInput)
    : _source(source),
      _size(size),
      _isStandardInput(isStandardInput),
      _progress("read", std::max<std::uint64_t>(size, 1)) {}

/// How much can be read without waiting, at least 1; 0 at the end or when work is to stop.
std::streamsize WatchedBuffer::available(std::streamsize most) {
  if (!_isStandardInput) {
    return Kyr::isStopped() ? 0 : most;
  }
  if (_source->in_avail() <= 0) {
    awaitInput();
  }
  const bool isAtEnd =
      Kyr::isStopped() || traits_type::eq_int_type(_source->sgetc(), traits_type::eof());
  return isAtEnd ? 0 : std::clamp<std::streamsize>(_source->in_avail(), 1, most);
}

// A file that cannot be read throws.
std::streamsize WatchedBuffer::readFromSource(char* bytes, std::streamsize count) {
  try {
    return _source->sgetn(bytes, count);
  } catch (...) {
    _hasFailed = true;
    throw;
  }
}

WatchedBuffer::int_type WatchedBuffer::underflow() {
  return available(1) > 0 ? _source->sgetc() : traits_type::eof();
}

WatchedBuffer::int_type WatchedBuffer::uflow() {
  return available(1) > 0 ? _source->sbumpc() : traits_type::eof();
}

std::streamsize WatchedBuffer::xsgetn(char* bytes, std::streamsize count) {
  std::streamsize done = 0;
  while (done < count) {
    const std::streamsize read = readFromSource(bytes + done, available(count - done));
    if (read <= 0) {
      break;
    }
    done += read;
  }
  if (_size > 0) {
    _progress.step(static_cast<std::uint64_t>(done));
  }
  return done;
}

WatchedBuffer::pos_type WatchedBuffer::seekoff(off_type offset, std::ios_base::seekdir way,
                                               std::ios_base::openmode mode) {
  return _source->pubseekoff(offset, way, mode);
}

WatchedBuffer::pos_type WatchedBuffer::seekpos(pos_type position, std::ios_base::openmode mode) {
  return _source->pubseekpos(position, mode);
}

// ---- the input ----

Input::Input(const QString& name) : _name(name), _stream(nullptr) {
  const bool isStandardInput = name == "-";
  if (isStandardInput) {
    _name = Kyr::translate("Kyr_tool", "standard input");
  } else {
    Kyr::OS::openStdStream(_file, name, Kyr::OS::OpenRead, true);
    if (!_file) {
      throw FileError{QString("%1: %2").arg(name, reason(name))};
    }
  }
  _buffer.emplace(isStandardInput ? std::cin.rdbuf() : _file.rdbuf(),
                  isStandardInput ? 0 : sizeOf(name), isStandardInput);
  Kyr::ProgressScope::setText(_name);
  _stream.rdbuf(&*_buffer);
}

void Input::read(Kyr::StructVector<unsigned char>& piece, std::size_t size) {
  piece.setSize(size);
  _stream.read(reinterpret_cast<char*>(piece.data()), static_cast<std::streamsize>(size));
  expectNoFailure();
  piece.setSize(static_cast<std::size_t>(_stream.gcount()));
}

void Input::expectNoFailure() const {
  Kyr::throwIfStopped();
  if (_stream.bad()) {
    refuse();
  }
}

void Input::expectAllRead() const {
  Kyr::throwIfStopped();
  if (_buffer->hasFailed()) {
    refuse();
  }
}

void Input::refuse() const {
  throw FileError{Kyr::translate("Kyr_tool", "%1: cannot be read").arg(_name)};
}

}  // namespace KyrTool

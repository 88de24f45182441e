#include "input.h"

#include "arguments.h"

#include <kyr/os/KyrOS.h>

#include <QFileInfo>

#include <iostream>

namespace KyrTool {

namespace {

QString reason(const QString& name) {
  const QFileInfo file(name);
  return file.isDir() ? "is a directory" : file.exists() ? "cannot be opened" : "no such file";
}

}  // namespace

Input::Input(const QString& name) : _name(name), _stream(&_file) {
  if (name == "-") {
    _name = "standard input";
    _stream = &std::cin;
    return;
  }
  Kyr::OS::openStdStream(_file, name, Kyr::OS::OpenRead, true);
  if (!_file) {
    throw FileError{QString("%1: %2").arg(name, reason(name))};
  }
}

void Input::read(Kyr::StructVector<unsigned char>& piece, std::size_t size) {
  piece.setSize(size);
  _stream->read(reinterpret_cast<char*>(piece.data()), static_cast<std::streamsize>(size));
  expectNoFailure();
  piece.setSize(static_cast<std::size_t>(_stream->gcount()));
}

void Input::expectNoFailure() const {
  if (_stream->bad()) {
    throw FileError{QString("%1: cannot be read").arg(_name)};
  }
}

}  // namespace KyrTool

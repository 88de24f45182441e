#include "commands.h"
#include "input.h"

#include <kyr/pack/KyrZipStream.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <iostream>
#include <memory>
#include <vector>

namespace KyrTool {

namespace {

/// Lets a standard stream write to a device of Qt.
class DeviceBuffer : public std::streambuf {
 public:
  explicit DeviceBuffer(QIODevice& device) : _device(device) {}

 protected:
  std::streamsize xsputn(const char* bytes, std::streamsize count) override {
    return static_cast<std::streamsize>(_device.write(bytes, count));
  }
  int_type overflow(int_type character) override {
    return _device.putChar(traits_type::to_char_type(character)) ? character : traits_type::eof();
  }

 private:
  QIODevice& _device;
};

/// The place for the finished file. A regular file appears there complete or not at all, and an
/// older one stays until then; devices and pipes are written straight away.
class Target {
 public:
  explicit Target(const QString& name) : _name(name) {
    const QFileInfo present(name);
    if (present.exists() && !present.isFile() && !present.isDir()) {
      _file = std::make_unique<QFile>(name);
    } else {
      auto file = std::make_unique<QSaveFile>(name);
      _saved = file.get();
      _file = std::move(file);
    }
    expect(!name.isEmpty() && _file->open(QIODevice::WriteOnly), "cannot be written");
  }

  QIODevice& device() { return *_file; }

  void complete(bool written) {
    expect(written && (_saved ? _saved->commit() : _file->flush()),
           "cannot be written to the end (is the disk full?)");
  }

 private:
  void expect(bool good, const char* fault) const {
    if (!good) {
      throw FileError{QString("%1: %2").arg(_name, fault)};
    }
  }

  QString _name;
  std::unique_ptr<QFileDevice> _file;
  QSaveFile* _saved = nullptr;  // the same object when it is one of these
};

/// \return whether the target took everything
bool pack(Input& input, std::ostream& target, unsigned fileVersion) {
  Kyr::ZipOutStream zip(&target, fileVersion);
  std::vector<char> piece(1U << 16U);
  do {
    input.stream().read(piece.data(), static_cast<std::streamsize>(piece.size()));
    zip.write(piece.data(), input.stream().gcount());
  } while (input.stream() && zip);
  input.expectNoFailure();
  zip.close();
  return zip.good();
}

}  // namespace

int zipPack(const Arguments& arguments) {
  const unsigned fileVersion = arguments.number("file-version", 0, 0xFFFFFFFFU, 0);
  Input input(arguments[0]);
  if (arguments[1] == "-") {
    pack(input, std::cout, fileVersion);  // a failure is reported with standard output's
    return Fine;
  }
  Target target(arguments[1]);
  DeviceBuffer buffer(target.device());
  std::ostream bytes(&buffer);
  target.complete(pack(input, bytes, fileVersion));
  return Fine;
}

}  // namespace KyrTool

#include "target.h"

#include "arguments.h"

#include <kyr/core/KyrException.h>
#include <kyr/os/KyrOS.h>

namespace KyrTool {

Target::Target(const QString& name) : _name(name) {
  Kyr::OS::FileStatus present;
  if (Kyr::OS::stat(name, &present) && !present.isFile && !present.isDirectory) {
    Kyr::OS::openStdStream(_device, name, Kyr::OS::OpenWrite, true);
    return;
  }
  try {
    _saved = std::make_unique<Kyr::SafeFile>(name);
  } catch (const Kyr::Exception& error) {
    throw FileError{error.getText()};
  }
}

void Target::complete() {
  if (!_saved && !_device.flush()) {
    throw FileError{QString("%1: cannot be written to the end (is the disk full?)").arg(_name)};
  }
  try {
    if (_saved) {
      _saved->commit();
    }
  } catch (const Kyr::Exception& error) {
    throw FileError{error.getText()};
  }
}

}  // namespace KyrTool

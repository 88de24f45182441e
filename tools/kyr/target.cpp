#include "target.h"

#include "arguments.h"
#include "same_file_p.h"

#include <kyr/core/KyrException.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrStopToken.h>
#include <kyr/os/KyrOS.h>

namespace KyrTool {

void expectOtherFile(const QString& input, const QString& output) {
  if (isSameFile(input, output)) {
    throw FileError{
        Kyr::translate("Kyr_tool",
                       "%1: is the input as well and would be lost; give the output another name")
            .arg(output == "-" ? Kyr::translate("Kyr_tool", "standard output") : output)};
  }
}

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
  Kyr::throwIfStopped();
  if (!_saved && !_device.flush()) {
    throw FileError{
        Kyr::translate("Kyr_tool", "%1: cannot be written to the end (is the disk full?)")
            .arg(_name)};
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

#include "surface/unfinished.h"

#include <kyr/os/KyrOS.h>

#include <filesystem>
#include <system_error>

namespace Surface {

namespace {

std::filesystem::path path(const QString& fileName) {
  return std::filesystem::u8path(fileName.toStdString());
}

}  // namespace

Unfinished::Unfinished(const QString& finalName)
    : _finalName(finalName), _name(finalName + ".part") {}

Unfinished::~Unfinished() {
  Kyr::OS::unlink(_name);
}

bool Unfinished::finish() {
  std::error_code error;
  std::filesystem::rename(path(_name), path(_finalName), error);
  return !error;
}

}  // namespace Surface

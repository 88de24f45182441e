#include <kyr/files/KyrFilename.h>

#include <kyr/os/KyrOS.h>
#include <kyr/text/KyrParse.h>
#include <kyr/time/KyrTime.h>

#include <QFileInfo>

#include <cstdint>
#include <limits>

namespace Kyr::Filename {

namespace {

struct Parts {
  QString directory;
  QString baseName;
  QString extension;
};

bool beginsWithDrive(const QString& name) {
  return name.size() > 1 && name[0].isLetter() && name[1] == ':';
}

Parts split(const QString& fullName) {
  const QString name = OS::convertSeparatorsToUnix(fullName);
  const auto slash = name.lastIndexOf('/');
  const int drive = slash < 0 && beginsWithDrive(name) ? 2 : 0;
  const QString directory = slash >= 0 ? name.left(slash) : drive > 0 ? name.left(drive) : ".";
  const QString rest = name.mid(slash >= 0 ? slash + 1 : drive);
  const auto dot = rest.lastIndexOf('.');
  const bool extended = dot >= 0 && dot < rest.size() - 1;
  return {directory, extended ? rest.left(dot) : rest, extended ? rest.mid(dot) : QString()};
}

/// Builds a path without the segments "." and "..".
class Cleaner {
 public:
  explicit Cleaner(const QString& path) : _path(path) { _clean.reserve(path.size()); }

  QString clean() {
    while (_at < _path.size()) {
      if (endsSegment(1, ".")) {
        _at += 2;
      } else if (endsSegment(2, "..")) {
        dropSegment();
        _at += 3;
      } else {
        keep();
      }
    }
    return _clean;
  }

 private:
  /// Whether a separator and this whole segment come next.
  bool endsSegment(int length, const char* segment) const {
    const auto end = _at + 1 + length;
    return _path[_at] == '/' && end <= _path.size() &&
           QStringView(_path).mid(_at + 1, length) == QLatin1String(segment, length) &&
           (end == _path.size() || _path[end] == '/');
  }

  void keep() {
    if (_path[_at] == '/' && _firstSlash < 0) {
      _firstSlash = _clean.size();
    }
    _clean += _path[_at++];
  }

  /// Drops the last segment with its separator. A path without any separator stays, and that it has
  /// none is remembered, so that ".." after ".." does not search it anew.
  void dropSegment() {
    if (_firstSlash >= 0) {
      const auto slash = _clean.lastIndexOf('/');
      _clean.truncate(slash);
      _firstSlash = slash == _firstSlash ? -1 : _firstSlash;
    }
  }

  const QString& _path;
  QString _clean;
  QString::size_type _at = 0;
  QString::size_type _firstSlash = -1;
};

}  // namespace

Name::Name(const QString& fullName) {
  const Parts parts = split(fullName);
  Name::setDirectory(parts.directory);
  Name::setBaseName(parts.baseName);
  Name::setExtension(parts.extension);
}

Name::~Name() = default;

void Name::setDirectory(const QString& directory) {
  _directory = OS::convertSeparatorsToUnix(directory);
  if (directory.endsWith('/')) {
    _directory.chop(1);
  }
}

void Name::setBaseName(const QString& baseName) {
  _baseName = baseName;
}

void Name::setExtension(const QString& extension) {
  _extension = extension;
}

QString Name::getDirectory() const {
  return _directory;
}

QString Name::getBaseName() const {
  return _baseName;
}

QString Name::getExtension() const {
  return _extension;
}

void Name::parseFilename(const QString& fullName) {
  const Parts parts = split(fullName);
  setDirectory(parts.directory);
  setBaseName(parts.baseName);
  setExtension(parts.extension);
}

void Name::setFullName(const QString& fullName) {
  parseFilename(fullName);
}

QString Name::getFullName() const {
  return getDirectory() + "/" + getFileName();
}

void Name::setFileName(const QString& fileName) {
  parseFilename(getDirectory() + "/" + fileName);
}

QString Name::getFileName() const {
  return getBaseName() + getExtension();
}

QString Name::getAbsoluteDirectory() const {
  const QString directory = getDirectory();
  return directory.isEmpty() ? directory : Cleaner(QFileInfo(directory).absoluteFilePath()).clean();
}

bool Name::exists() const {
  return !getFileName().isEmpty() && OS::stat(getFullName());
}

bool Name::getCreationTime(Time* time) const {
  OS::FileStatus status;
  if (getFileName().isEmpty() || !OS::stat(getFullName(), &status)) {
    return false;
  }
  const std::int64_t milliseconds = status.created != 0 ? status.created : status.modified;
  if (milliseconds < 0 || milliseconds / 1000 > std::numeric_limits<unsigned>::max()) {
    return false;
  }
  *time = Time(static_cast<unsigned>(milliseconds / 1000),
               static_cast<unsigned>(milliseconds % 1000 * 1000));
  return true;
}

QString Name::stripElementName(const QString& fullName) {
  return Name(fullName).getDirectory();
}

QString Name::stripElementPath(const QString& fullName) {
  return Name(fullName).getFileName();
}

NameWithNumber::NameWithNumber(const QString& fullName, int digits)
    : Name(fullName), _digits(digits) {
  NameWithNumber::setBaseName(Name::getBaseName());
}

void NameWithNumber::setBaseName(const QString& baseName) {
  const int begin = findLastNotOf(baseName, "0123456789") + 1;
  _correct = begin < baseName.size();
  Name::setBaseName(_correct ? baseName.left(begin) : QString());
  _number = _correct ? qstringToUInt(baseName.mid(begin)) : 0;
  if (_correct) {
    _firstNumber = _number;
    _digits = _digits < 0 ? static_cast<int>(baseName.size()) - begin : _digits;
  }
}

QString NameWithNumber::getBaseName() const {
  return getBaseNameNoNumber() + QString::number(_number).rightJustified(_digits, '0');
}

QString NameWithNumber::getBaseNameNoNumber() const {
  return Name::getBaseName();
}

void NameWithNumber::setBaseNameNoNumber(const QString& baseName) {
  Name::setBaseName(baseName);
}

}  // namespace Kyr::Filename

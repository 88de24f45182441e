#include "surface/scan.h"

#include "surface/abort.h"

#include <kyr/core/KyrException.h>
#include <kyr/files/KyrFileParse.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/os/KyrOS.h>
#include <kyr/text/KyrParse.h>

#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <memory>

namespace Surface {

namespace {

struct CloseFile {
  void operator()(FILE* file) const { std::fclose(file); }
};
using OpenFile = std::unique_ptr<FILE, CloseFile>;

OpenFile openScan(const QString& fileName) {
  OpenFile file(Kyr::OS::openFile(fileName, Kyr::OS::OpenRead));
  if (!file) {
    throw Kyr::Exception(Kyr::translate("Surface", "cannot open %1").arg(fileName));
  }
  return file;
}

/// Walks over the lines of one file and turns them into a mesh.
class Reader {
 public:
  Reader(const QString& fileName, FILE* file, double scale, Kyr::ErrorLog& log, ReadingNotes& notes)
      : _name(QFileInfo(fileName).fileName()),
        _stream(file),
        _file(file),
        _scale(scale),
        _log(log),
        _notes(notes) {
    _file.setStrict(true);
  }

  Mesh read() {
    try {
      while (nextLine()) {
        readLine();
      }
    } catch (const Kyr::FileParse::Error&) {
      if (std::ferror(_stream) == 0) {
        throw Kyr::Exception(Kyr::translate("Surface", "damaged line: %1").arg(place()));
      }
    }
    if (std::ferror(_stream) != 0) {
      throw Kyr::Exception(Kyr::translate("Surface", "cannot read %1 to its end").arg(_name));
    }
    if (_unknownKeys > shownUnknownKeys) {
      _log << Kyr::translate("Surface", "lines with unknown keys, all told: %1").arg(_unknownKeys)
           << Kyr::END_LOG;
    }
    return std::move(_mesh);
  }

 private:
  bool nextLine() {
    try {
      _file.getLine("");
    } catch (const Kyr::FileParse::EndOfFile&) {
      return false;
    }
    if (++_notes.lines % linesBetweenLooks == 0) {
      stopIfAborted();
    }
    return true;
  }

  void readLine() {
    _file.nextString(_key);
    if (_key == QLatin1String("v")) {
      readPoint();
    } else if (_key == QLatin1String("f")) {
      readFace();
    } else {
      skipLine();
    }
  }

  void readPoint() {
    Point point{};
    for (double& coordinate : point) {
      _file.nextDouble(coordinate);
      coordinate *= _scale;
      if (!std::isfinite(coordinate)) {
        throw Kyr::FileParse::Error();
      }
    }
    _mesh.points.push_back(point);
  }

  void readFace() {
    const std::uint32_t first = readCorner();
    std::uint32_t before = readCorner();
    do {
      const std::uint32_t corner = readCorner();
      _mesh.triangles.push_back({first, before, corner});
      before = corner;
    } while (!_file.atEndOfLine());
  }

  std::uint32_t readCorner() {
    _file.nextString(_corner);
    bool ok = false;
    int end = 0;
    const int number = Kyr::qstringToInt(_corner, &ok, 10, &end);
    const bool wellFormed = ok && (end == _corner.size() || _corner[end] == QLatin1Char('/'));
    const auto count = static_cast<qint64>(_mesh.points.size());
    const qint64 index = number < 0 ? count + number : qint64(number) - 1;
    if (!wellFormed || index < 0 || index >= count) {
      throw Kyr::FileParse::Error();
    }
    return static_cast<std::uint32_t>(index);
  }

  void skipLine() {
    static const QSet<QString> withoutGeometry = {"vn", "vt", "vp",     "o",     "g",
                                                  "s",  "l",  "mtllib", "usemtl"};
    ++_notes.ignoredLines;
    if (!withoutGeometry.contains(_key) && ++_unknownKeys <= shownUnknownKeys) {
      _log << Kyr::translate("Surface", "unknown key, line skipped: %1").arg(place())
           << Kyr::END_LOG;
    }
  }

  QString place() const {
    QString text = _file.getDataLine();
    // A file of another kind must not steer the terminal.
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return !c.isPrint() && c != '\t'; }, QChar('?'));
    const QString shown = text.size() > 40 ? text.left(37) + "..." : text;
    return Kyr::translate("Surface", "%1, line %2: %3")
        .arg(_name, QString::number(_file.getPhysicalLineNumber()), shown);
  }

  static constexpr int shownUnknownKeys = 10;
  static constexpr int linesBetweenLooks = 1024;

  QString _name;
  FILE* _stream;
  Kyr::FileParse::File _file;
  double _scale;
  Kyr::ErrorLog& _log;
  ReadingNotes& _notes;
  Mesh _mesh;
  int _unknownKeys = 0;
  QString _key;
  QString _corner;
};

}  // namespace

Mesh readScan(const QString& fileName, double millimetresPerUnit, Kyr::ErrorLog& log,
              ReadingNotes& notes) {
  const OpenFile file = openScan(fileName);
  return Reader(fileName, file.get(), millimetresPerUnit, log, notes).read();
}

}  // namespace Surface

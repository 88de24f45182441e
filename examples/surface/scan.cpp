#include "surface/scan.h"

#include "surface/abort.h"

#include <kyr/core/KyrException.h>
#include <kyr/files/KyrFileParse.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/text/KyrParse.h>

#include <QSet>

#include <algorithm>
#include <cmath>

namespace Surface {

namespace {

/// Walks over the lines of one file and turns them into a mesh.
class Reader {
 public:
  Reader(const QString& fileName, double scale, Kyr::ErrorLog& log, ReadingNotes& notes)
      : _file(fileName), _scale(scale), _log(log), _notes(notes) {}

  Mesh read() {
    try {
      while (nextLine()) {
        readLine();
      }
    } catch (const Kyr::FileParse::Error& error) {
      throw Kyr::Exception(Kyr::translate(error));
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
        _file.fail(Kyr::translate("Surface", "a coordinate must be finite"));
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
      _file.fail(Kyr::translate("Surface", "there is no such point"));
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
    // Control characters are replaced, so that a file of another kind does not steer the terminal.
    std::replace_if(
        text.begin(), text.end(), [](QChar c) { return !c.isPrint() && c != '\t'; }, QChar('?'));
    const QString shown = text.size() > 40 ? text.left(37) + "..." : text;
    return _file.getPlace().toText() + ": " + shown;
  }

  static constexpr int shownUnknownKeys = 10;
  static constexpr int linesBetweenLooks = 1024;

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
  return Reader(fileName, millimetresPerUnit, log, notes).read();
}

}  // namespace Surface

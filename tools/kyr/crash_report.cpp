#include "crash_report.h"

#include <QRegularExpression>

#include <algorithm>
#include <map>

namespace KyrTool {

namespace {

constexpr int hexadecimal = 16;

bool isHeading(const QString& line) {
  return line.startsWith("backtrace of the crashing thread ") || line.startsWith("next thread: ") ||
         line == "the exception was thrown by:";
}

/// Reads a report line by line. A text may hold several: each begins with "caught exception: ", and
/// its modules stand behind its backtraces.
class Reader {
 public:
  CrashReport read(const QString& text) {
    const QStringList lines = text.split('\n');
    for (const QString& line : lines) {
      add(line.endsWith('\r') ? line.chopped(1) : line);
    }
    assignModules();
    return std::move(_report);
  }

 private:
  void add(const QString& line) {
    if (line.startsWith("caught exception: ")) {
      assignModules();
    }
    if (isHeading(line)) {
      _report.stacks += line;
      _isFirst = line != "the exception was thrown by:";
    } else if (line.startsWith("module 0x")) {
      addModule(line);
    } else if (line.startsWith('#')) {
      addFrame(line);
    }
    _report.lines += line;
  }

  void addModule(const QString& line) {
    static const QRegularExpression pattern(
        "^module 0x([0-9a-f]{1,16}) 0x([0-9a-f]{1,16}) (\\S+) (.+)$");
    const QRegularExpressionMatch match = pattern.match(line);
    if (match.hasMatch()) {
      CrashModule module;
      module.begin = match.captured(1).toULongLong(nullptr, hexadecimal);
      module.end = match.captured(2).toULongLong(nullptr, hexadecimal);
      module.buildId = buildIdOf(match.captured(3));
      module.name = match.captured(4).section('/', -1);
      _report.modules.push_back(module);
    }
  }

  /// \param word "no-build-id", or digits with the age of a PE file behind a hyphen
  static QString buildIdOf(const QString& word) {
    static const QRegularExpression digits("^([0-9a-f]{8,128})(-\\d+)?$");
    return digits.match(word).captured(1);
  }

  void addFrame(const QString& line) {
    static const QRegularExpression pattern("^#(\\d{1,8}) +0x([0-9a-f]{1,16}) (.+)$");
    const QRegularExpressionMatch match = pattern.match(line);
    if (!match.hasMatch()) {
      return;
    }
    if (_report.stacks.isEmpty()) {
      _report.stacks += QString();
    }
    CrashFrame frame;
    frame.line = static_cast<int>(_report.lines.size());
    frame.stack = static_cast<int>(_report.stacks.size()) - 1;
    frame.number = match.captured(1).toInt();
    frame.address = match.captured(2).toULongLong(nullptr, hexadecimal);
    frame.isCall = !_isFirst;
    frame.rest = match.captured(3);
    readRest(frame);
    _isFirst = _isFirst && frame.isInlined;
    _report.frames.push_back(frame);
  }

  void readRest(CrashFrame& frame) {
    static const QRegularExpression inlined("^(.+?)(?: \\((.*):(\\d{1,9})\\))?, inlined$");
    static const QRegularExpression whole(
        "^([^!]*?)(?:!(.*))?\\+0x([0-9a-f]{1,16})(?: \\((.*):(\\d{1,9})\\))?$");
    QRegularExpressionMatch match = inlined.match(frame.rest);
    frame.isInlined = match.hasMatch();
    if (frame.isInlined) {
      frame.given = {match.captured(1), match.captured(2), match.captured(3).toInt()};
      frame.isNamed = true;
      return;
    }
    match = whole.match(frame.rest);
    frame.given = {match.captured(2), match.captured(4), match.captured(5).toInt()};
    frame.isNamed = frame.given.line > 0;
    // A name, not a path: it leads to files below the folders of symbols.
    _names[_report.frames.size()] = match.captured(1).section('/', -1);
    if (match.hasMatch() && frame.given.function.isEmpty()) {
      frame.offset = match.captured(3).toULongLong(nullptr, hexadecimal);
      frame.hasOffset = true;
    }
  }

  /// Ends a report: gives each of its frames a module.
  void assignModules() {
    for (const auto& [index, name] : _names) {
      CrashFrame& frame = _report.frames[index];
      frame.module = moduleOf(frame, name);
      if (frame.module >= 0 && _report.modules[std::size_t(frame.module)].end != 0) {
        frame.offset = frame.address - _report.modules[std::size_t(frame.module)].begin;
        frame.hasOffset = true;
      }
    }
    takeOffsetsOfNeighbours();
    _names.clear();
    _firstModule = _report.modules.size();
  }

  int moduleOf(const CrashFrame& frame, const QString& name) {
    std::vector<CrashModule>& modules = _report.modules;
    // A call that does not return may be the last that a module holds.
    const std::uint64_t asked = frame.isCall ? frame.address - 1 : frame.address;
    const auto found = std::find_if(modules.begin() + std::ptrdiff_t(_firstModule), modules.end(),
                                    [&](const CrashModule& module) {
                                      return module.end != 0
                                                 ? asked >= module.begin && asked < module.end
                                                 : module.name == name;
                                    });
    if (found != modules.end()) {
      return int(found - modules.begin());
    }
    if (name.isEmpty()) {
      return -1;
    }
    CrashModule module;
    module.name = name;
    modules.push_back(module);
    return int(modules.size()) - 1;
  }

  /// Without the modules' addresses: where one frame of a module tells its offset, those of all are
  /// known.
  void takeOffsetsOfNeighbours() {
    std::map<int, std::uint64_t> begins;
    for (const auto& [index, name] : _names) {
      const CrashFrame& frame = _report.frames[index];
      if (frame.hasOffset && frame.module >= 0) {
        begins.emplace(frame.module, frame.address - frame.offset);
      }
    }
    for (const auto& [index, name] : _names) {
      CrashFrame& frame = _report.frames[index];
      const auto begin = begins.find(frame.module);
      if (!frame.hasOffset && begin != begins.end()) {
        frame.offset = frame.address - begin->second;
        frame.hasOffset = true;
      }
    }
  }

  CrashReport _report;
  bool _isFirst = true;
  std::size_t _firstModule = 0;
  std::map<std::size_t, QString> _names;  // of the modules, for the frames of this report
};

QString placeText(const Place& place) {
  return place.file.isEmpty() ? QString()
                              : QString(" (%1:%2)").arg(place.file, QString::number(place.line));
}

/// Writes the frames of a report with numbers that count the added lines.
class Writer {
 public:
  explicit Writer(const CrashReport& report) : _report(report) {}

  QStringList write() {
    for (int line = 0; line < _report.lines.size(); ++line) {
      if (_next < _report.frames.size() && _report.frames[_next].line == line) {
        addFrame(_report.frames[_next++]);
      } else {
        _lines += _report.lines[line];
      }
    }
    return std::move(_lines);
  }

 private:
  void addFrame(const CrashFrame& frame) {
    _added = frame.number == 0 || frame.stack != _stack ? 0 : _added;
    _stack = frame.stack;
    if (frame.places.empty()) {
      add(frame, frame.rest);
      return;
    }
    for (std::size_t i = 0; i + 1 < frame.places.size(); ++i, ++_added) {
      const Place& place = frame.places[i];
      add(frame, place.function + placeText(place) + ", inlined");
    }
    const QString name = _report.modules[std::size_t(frame.module)].name;
    const Place& place = frame.places.back();
    add(frame, name + '!' + place.function + placeText(place));
  }

  void add(const CrashFrame& frame, const QString& text) {
    const QString number = QString::number(frame.number + _added).leftJustified(2);
    _lines += '#' + number + " 0x" + QString::number(frame.address, hexadecimal) + ' ' + text;
  }

  const CrashReport& _report;
  QStringList _lines;
  std::size_t _next = 0;
  int _added = 0;
  int _stack = -1;
};

}  // namespace

CrashReport parseReport(const QString& text) {
  return Reader().read(text);
}

QStringList linesOf(const CrashReport& report) {
  return Writer(report).write();
}

}  // namespace KyrTool

#include "Fuzz.h"

#include "../tools/kyr/arguments.h"
#include "../tools/kyr/crash_dump.h"
#include "../tools/kyr/crash_report.h"
#include "../tools/kyr/symbol_files.h"

#include <QFile>
#include <QRegularExpression>

#include <vector>

namespace KyrFuzz {

namespace {

using KyrTool::CrashFrame;
using KyrTool::CrashModule;
using KyrTool::CrashReport;

bool isDigit(QChar letter) {
  return (letter >= '0' && letter <= '9') || (letter >= 'a' && letter <= 'f');
}

/// A frame as its page has it, read letter by letter: "#NUMBER ADDRESS REST".
struct LiteralFrame {
  quint64 address = 0;
  QString rest;

  static bool read(const QString& line, LiteralFrame& frame) {
    int at = 1;
    const auto skip = [&](auto isWanted, int most) {
      const int begin = at;
      while (at < line.size() && at - begin < most && isWanted(line[at])) {
        ++at;
      }
      return at > begin;
    };
    const auto isDecimal = [](QChar letter) { return letter >= '0' && letter <= '9'; };
    const auto isBlank = [](QChar letter) { return letter == ' '; };
    if (!line.startsWith('#') || !skip(isDecimal, 8) || !skip(isBlank, line.size()) ||
        line.mid(at, 2) != "0x") {
      return false;
    }
    const int digits = at += 2;
    if (!skip(isDigit, 16) || line.mid(at, 1) != " " || at + 1 == line.size()) {
      return false;
    }
    frame.address = line.mid(digits, at - digits).toULongLong(nullptr, 16);
    frame.rest = line.mid(at + 1);
    return true;
  }
};

void checkFrame(const CrashReport& report, const CrashFrame& frame) {
  LiteralFrame literal;
  expect(LiteralFrame::read(report.lines[frame.line], literal), "a frame is a line of one");
  expect(frame.address == literal.address && frame.rest == literal.rest,
         "a frame has what its line says");
  expect(frame.stack >= 0 && frame.stack < report.stacks.size(), "a frame is in a stack");
  expect(frame.module >= -1 && frame.module < int(report.modules.size()),
         "the module of a frame is one of the report");
  expect(frame.isNamed == (frame.isInlined || frame.given.line > 0), "who has a line is named");
  if (frame.module >= 0 && report.modules[size_t(frame.module)].end != 0) {
    const CrashModule& module = report.modules[size_t(frame.module)];
    const quint64 asked = frame.address - (frame.isCall ? 1 : 0);
    expect(asked >= module.begin && asked < module.end, "a frame lies in its module");
    expect(frame.hasOffset && frame.offset == frame.address - module.begin,
           "an offset counts from the beginning of the module");
  }
}

CrashReport checkReport(const QString& text) {
  CrashReport report = KyrTool::parseReport(text);
  QStringList lines = text.split('\n');
  for (QString& line : lines) {
    line.chop(line.endsWith('\r') ? 1 : 0);
  }
  expect(report.lines == lines, "no line of a report is lost");
  LiteralFrame literal;
  const auto frames = std::count_if(lines.begin(), lines.end(), [&](const QString& line) {
    return LiteralFrame::read(line, literal);
  });
  expect(std::size_t(frames) == report.frames.size(), "all lines of frames are frames");
  for (const CrashFrame& frame : report.frames) {
    checkFrame(report, frame);
  }
  if (text.contains('\r')) {
    return report;  // of several at the end of a line each writing drops one
  }
  const CrashReport again = KyrTool::parseReport(KyrTool::linesOf(report).join('\n'));
  expect(again.frames.size() == report.frames.size() && again.stacks == report.stacks,
         "what is written is the report");
  for (std::size_t i = 0; i < again.frames.size(); ++i) {
    expect(again.frames[i].address == report.frames[i].address &&
               again.frames[i].rest == report.frames[i].rest &&
               again.frames[i].module == report.frames[i].module,
           "a frame without more to say stays");
  }
  return report;
}

/// Frames get places as a symbolizer gives them: each is a line, and no other line changes.
void checkPlaces(CrashReport report, Choices& choices) {
  int added = 0;
  for (CrashFrame& frame : report.frames) {
    const unsigned places = frame.module >= 0 ? choices.upTo(3) : 0;
    frame.places.assign(places, {"work<int>(char)", choices.yes() ? "a.cpp" : "", 7});
    added += places > 1 ? int(places) - 1 : 0;
  }
  const QStringList lines = KyrTool::linesOf(report);
  expect(lines.size() == report.lines.size() + added, "each place has a line");
}

/// A dump as a crashed process writes it, and what it is to tell.
class MadeDump {
 public:
  explicit MadeDump(Choices& choices) : _isWide(choices.yes()), _choices(choices) {
    const unsigned modules = choices.upTo(3);
    for (unsigned i = 0; i < modules; ++i) {
      _bases.push_back(0x10000 * (i + 1));
    }
    _bytes.assign(32 + 4 * 12, '\0');
    _bytes.replace(0, 4, "MDMP");
    put<quint32>(8, 4);
    put<quint32>(12, 32);
    stream(0, 7, word(_isWide ? 9 : 0));
    addModules();
    addThreads(1 + choices.upTo(3));
  }

  const std::string& bytes() const { return _bytes; }

  void check(const CrashReport& report) const {
    expect(report.stacks.size() == int(_stacks.size()), "each thread has a stack");
    std::size_t next = 0;
    for (std::size_t i = 0; i < _stacks.size(); ++i) {
      for (const quint64 address : _stacks[i]) {
        expect(next < report.frames.size(), "no frame is missing");
        const CrashFrame& frame = report.frames[next++];
        expect(frame.address == address && frame.stack == int(i), "the frames are those of a dump");
        const quint64 offset = address % 0x10000;
        const bool isInside = isCode(address);
        expect(frame.hasOffset == isInside && (!isInside || frame.offset == offset),
               "an offset is that in the module");
      }
    }
    expect(next == report.frames.size(), "no frame is made up");
  }

 private:
  template <class Number>
  void put(std::size_t at, Number value) {
    std::memcpy(&_bytes[at], &value, sizeof value);
  }
  std::size_t append(const std::string& bytes) {
    _bytes.append(bytes);
    return _bytes.size() - bytes.size();
  }
  static std::string word(quint32 value) {
    return {reinterpret_cast<const char*>(&value), sizeof value};
  }
  void stream(std::size_t index, quint32 type, const std::string& content) {
    const std::size_t entry = 32 + index * 12;
    put<quint32>(entry, type);
    put(entry + 4, quint32(content.size()));
    put(entry + 8, quint32(append(content)));
  }
  bool isCode(quint64 address) const {
    return address / 0x10000 >= 1 && address / 0x10000 <= _bases.size() && address % 0x10000 < 4096;
  }
  quint64 address() { return 0x10000 * _choices.upTo(4) + 1 + 16 * _choices.upTo(200); }

  void addModules() {
    std::string list = word(quint32(_bases.size()));
    for (const quint32 base : _bases) {
      const QString name = "/a/" + textOf(_choices.take(_choices.upTo(15)));
      const std::string letters(reinterpret_cast<const char*>(name.utf16()),
                                std::size_t(name.size()) * 2);
      const std::size_t nameAt = append(word(quint32(letters.size())) + letters);
      const std::size_t idAt = append("LEpB" + std::string(20, char('a' + base / 0x10000)));
      list += word(base) + word(0) + word(4096) + word(0) + word(0) + word(quint32(nameAt)) +
              std::string(52, '\0') + word(24) + word(quint32(idAt)) + std::string(24, '\0');
    }
    stream(1, 4, list);
  }

  void addThreads(unsigned count) {
    constexpr quint32 stackAt = 0x900000;
    std::string list = word(count);
    for (unsigned i = 0; i < count; ++i) {
      _stacks.push_back({address()});
      std::string stack;
      for (unsigned calls = _isWide ? 0 : _choices.upTo(4); calls > 0; --calls) {
        const quint32 caller = quint32(address());
        stack += word(stackAt + quint32(stack.size()) + 8) + word(caller);
        if (isCode(caller) && _stacks.back().size() == stack.size() / 8) {
          _stacks.back().push_back(caller);
        }
      }
      const std::size_t stackIn = append(stack);
      const std::size_t context = append(std::string(256, '\0'));
      put<quint32>(context + 0xB4, stackAt);
      put(context + (_isWide ? 0xF8 : 0xB8), quint32(_stacks.back()[0]));
      list += word(i) + std::string(20, '\0') + word(stackAt) + word(0) +
              word(quint32(stack.size())) + word(quint32(stackIn)) + word(256) +
              word(quint32(context));
      if (i == 0) {
        stream(2, 6, word(0) + std::string(160, '\0') + word(quint32(context)));
      }
    }
    stream(3, 3, list);
  }

  bool _isWide;
  Choices& _choices;
  std::string _bytes;
  std::vector<quint32> _bases;
  std::vector<std::vector<quint64>> _stacks;
};

/// What a dump says, as a report; null when it is refused.
QString textOfDump(const std::string& bytes) {
  try {
    return KyrTool::textOfDump(arrayOf(bytes), "dump");
  } catch (const KyrTool::FileError& error) {
    expect(!error.fault.isEmpty(), "a refusal has a reason");
    return {};
  }
}

/// No name in a dump makes a line of its own.
void checkLines(const QString& text) {
  static const QRegularExpression known(
      "^(|process: \\d+|time: .*|caught exception: 0x.*|at address 0x.*|modules of the backtraces:|"
      "backtrace of the crashing thread 0x[0-9a-f]+:|next thread: 0x[0-9a-f]+, priority -?\\d+|"
      "module 0x.*|#\\d+ +0x.*)$");
  for (const QString& line : text.split('\n')) {
    expect(known.match(line).hasMatch(), "a dump gives lines of a report only");
  }
}

void checkDump(const std::string& bytes) {
  const QString text = textOfDump(bytes);
  if (!text.isNull()) {
    checkLines(text);
    checkReport(text);
  }
}

/// The head of a program leads to no build that it does not name.
void checkIdentity(std::string_view bytes) {
  const QString name = folder() + "/symbols";
  QFile file(name);
  expect(file.open(QIODevice::WriteOnly) && file.write(arrayOf(bytes)) == qint64(bytes.size()),
         "there is room");
  file.close();
  const auto identity = KyrTool::identityOf(name);
  if (identity && !identity->buildId.isEmpty()) {
    const QString& id = identity->buildId;
    expect(id.size() % 2 == 0 && id.size() <= 128 && std::all_of(id.begin(), id.end(), isDigit),
           "a build id is digits");
    expect(id.size() == 32 || arrayOf(bytes).contains(QByteArray::fromHex(id.toLatin1())),
           "a build id stands in the file");
    const auto found = KyrTool::findSymbols({folder()}, "symbols", id);
    expect(found.state == KyrTool::SymbolsFound && found.fileName == name, "it is found by it");
    expect(KyrTool::findSymbols({folder()}, "symbols", "00" + id).state == KyrTool::SymbolsOfOther,
           "another build is refused");
  }
}

}  // namespace

/// 0: a report, behind a line of choices. 1: a dump. 2: one that is made, with changes behind a
/// line of choices. 3: a file with debug information.
void harness(Choices input) {
  const unsigned mode = input.upTo(3);
  if (mode == 1) {
    checkDump(std::string(input.rest()));
  } else if (mode == 3) {
    checkIdentity(input.rest());
  } else if (mode == 0) {
    Choices choices(input.line());
    checkPlaces(checkReport(textOf(input.rest())), choices);
  } else {
    const MadeDump dump(input);
    std::string bytes = dump.bytes();
    if (input.atEnd()) {
      const QString text = textOfDump(bytes);
      expect(!text.isNull(), "what is made is a dump");
      checkLines(text);
      dump.check(checkReport(text));
    }
    while (!input.atEnd()) {
      const std::size_t at = input.place(bytes);
      bytes[at] = char(bytes[at] ^ char(input.upTo(255)));
    }
    checkDump(bytes);
  }
}

}  // namespace KyrFuzz

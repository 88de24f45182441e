#include "Fuzz.h"

#include <kyr/files/KyrFileParse.h>

#include <cmath>
#include <cstdlib>
#include <limits>
#include <optional>

namespace KyrFuzz {

namespace {

using Kyr::FileParse::EndOfFile;
using Kyr::FileParse::Error;

__extension__ using Wide = __int128;

/// What an operation did: its value as text, or how it failed.
using Outcome = QString;
const Outcome failed = "!error";
const Outcome ended = "!end";

/// Does literally what docs/formats/keyed-text.md says, as slowly as that may be.
class LiteralReader {
 public:
  explicit LiteralReader(std::string_view file) : _rest(file) {
    const std::string bytes(read());
    const std::string_view line(bytes.c_str());
    const bool isUtf8 = line.find("utf-8") != std::string_view::npos;
    if (line.find("<defaultcodec>") != std::string_view::npos &&
        (isUtf8 || line.find("iso8859-1") != std::string_view::npos)) {
      _codec = isUtf8 ? Kyr::CodecUtf8 : Kyr::CodecLatin1;
    } else {
      _rest = file;
    }
  }

  Outcome getLine(const QString& key, bool strict) {
    const std::optional<QString> line = dataLine();
    if (!line) {
      const bool isLost = _cut && !_isComment && !_told;
      _told = _told || (isLost && strict);
      return isLost && strict ? failed : strict || _joined.isEmpty() ? ended : Outcome();
    }
    if (!line->startsWith(key)) {
      return ended;
    }
    _line = line->mid(key.size());
    _line.replace('\t', ' ');
    skipBlanks();
    return {};
  }

  Outcome nextInteger(qint64 least, quint64 most) {
    int at = spaces();
    const bool isNegative = at < _line.size() && _line[at] == '-' && least < 0;
    at += at < _line.size() && (isNegative || _line[at] == '+') ? 1 : 0;
    const int first = at;
    Wide value = 0;
    for (; at < _line.size() && _line[at].isDigit(); ++at) {
      value = std::min<Wide>(value * 10 + _line[at].digitValue(), Wide{1} << 64U);
    }
    value = isNegative ? -value : value;
    if (at == first || value < least || value > static_cast<Wide>(most)) {
      return failed;
    }
    take(at);
    return value < 0 ? QString::number(static_cast<qint64>(value))
                     : QString::number(static_cast<quint64>(value));
  }

  Outcome nextDouble() {
    std::string bytes;
    for (const QChar character : _line) {
      bytes += character.unicode() < 128 ? character.toLatin1() : '\xFF';
    }
    char* end = nullptr;
    const double value = std::strtod(bytes.c_str(), &end);
    if (end == bytes.c_str()) {
      return failed;
    }
    take(static_cast<int>(end - bytes.c_str()));
    return std::isnan(value) ? "nan" : QString::number(value, 'g', 17);
  }

  Outcome nextWord() {
    const auto end = _line.indexOf(' ');
    QString word = _line.left(end);
    if (_line.isEmpty()) {
      return failed;
    }
    take(static_cast<int>(word.size()));
    return word;
  }

  Outcome nextPair(const QString& name) {
    const QString front = name + "=\"";
    const auto begin = spaces() + front.size();
    const auto end = _line.indexOf('"', begin);
    if (_line.mid(spaces(), front.size()) != front || end < 0) {
      return failed;
    }
    QString value = _line.mid(begin, end - begin);
    _line = _line.mid(end + 1);
    return value;
  }

  Outcome skip(int count) {
    if (_line.size() < count) {
      return failed;
    }
    _line = _line.mid(count);
    return {};
  }

  Outcome rawLine() {
    if (_rest.empty()) {
      return ended;
    }
    const std::string_view bytes = read();
    const QString text = decoded(std::string(bytes.substr(0, bytes.find('\0'))));
    return text.endsWith('\n') ? text.left(text.size() - 1) : text;
  }

  const QString& line() const { return _line; }

 private:
  std::string_view read() {
    std::size_t size = std::min(_rest.find('\n'), _rest.size());
    size = std::min<std::size_t>(size < _rest.size() ? size + 1 : size, 4095);
    const std::string_view bytes = _rest.substr(0, size);
    _rest.remove_prefix(size);
    return bytes;
  }
  QString decoded(const std::string& bytes) const { return Kyr::fromCodec(_codec, bytes); }

  std::optional<QString> dataLine() {
    do {
      _joined.clear();
      bool isContinued = true;
      while (isContinued) {
        if (_rest.empty()) {
          return std::nullopt;
        }
        std::string bytes(read());
        bytes.resize(std::min(bytes.find('\0'), bytes.size()));
        bytes.resize(bytes.find_last_not_of("\r\n") + 1);
        QString text = decoded(bytes);
        isContinued = text.endsWith('\\');
        text.chop(isContinued ? 1 : 0);
        _joined += text;
        _cut = isContinued;
        _isComment = _joined.startsWith('#');
      }
    } while (_joined.isEmpty() || _joined.startsWith('#'));
    return _joined;
  }

  int spaces() const {
    int count = 0;
    while (count < _line.size() && _line[count].isSpace()) {
      ++count;
    }
    return count;
  }
  void take(int count) {
    _line = _line.mid(count);
    skipBlanks();
  }
  void skipBlanks() {
    while (_line.startsWith(' ')) {
      _line = _line.mid(1);
    }
  }

  std::string_view _rest;
  Kyr::TextCodec_t _codec = Kyr::CodecLatin1;
  QString _line;
  QString _joined;    // of the data line that was read last
  bool _cut = false;  // whether the file ended where it is continued
  bool _isComment = false;
  bool _told = false;  // in strict mode, once
};

template <class Action>
Outcome outcomeOf(const Action& action) {
  try {
    return action();
  } catch (const EndOfFile&) {
    return ended;
  } catch (const Error&) {
    return failed;
  }
}

template <class Number>
Outcome numberOf(Kyr::FileParse::File& file) {
  Number value = 0;
  file.nextInt(value);
  return QString::number(value);
}

Outcome doubleOf(Kyr::FileParse::File& file) {
  double value = 0;
  file.nextDouble(value);
  return std::isnan(value) ? "nan" : QString::number(value, 'g', 17);
}

Outcome wordOf(Kyr::FileParse::File& file) {
  QString value;
  file.nextString(value);
  return value;
}

Outcome pairOf(Kyr::FileParse::File& file, const char* name) {
  QString value;
  file.nextStringValue(name, value);
  return value;
}

/// Does an operation with both readers; letters name it.
void step(char operation, Kyr::FileParse::File& file, LiteralReader& literal) {
  using Limits = std::numeric_limits<qint64>;
  const auto both = [](const Outcome& expected, const auto& action) {
    expect(outcomeOf(action) == expected, "the reader does what is documented");
  };
  const auto line = [&](const char* key) {
    QString first;
    const bool hasLine = outcomeOf([&] { return Outcome(file.peekKey(first) ? "1" : ""); }) == "1";
    Outcome outcome = outcomeOf([&] { return file.getLine(key), Outcome(); });
    both(literal.getLine(QString::fromLatin1(key), file.isStrict()), [&] { return outcome; });
    expect(!hasLine || file.getDataLine().startsWith(first), "a look at the key was right");
  };
  switch (operation) {
    case 'P':
      return line("POINT");
    case 'A':
      return line("\xC4");
    case 'i':
      return both(literal.nextInteger(INT32_MIN, INT32_MAX), [&] { return numberOf<int>(file); });
    case 'q':
      return both(literal.nextInteger(Limits::min(), Limits::max()),
                  [&] { return numberOf<qint64>(file); });
    case 'u':
      return both(literal.nextInteger(0, std::numeric_limits<quint64>::max()),
                  [&] { return numberOf<quint64>(file); });
    case 'd':
      return both(literal.nextDouble(), [&] { return doubleOf(file); });
    case 'w':
      return both(literal.nextWord(), [&] { return wordOf(file); });
    case 'p':
      return both(literal.nextPair("name"), [&] { return pairOf(file, "name"); });
    case 's':
      return both(literal.skip(2), [&] { return file.skipChars(2), Outcome(); });
    case 'r':
      return both(literal.rawLine(), [&] { return file.getStringFromBlankLine(); });
    case 'S':
      return file.setStrict(!file.isStrict());
    default:
      return line("");
  }
}

}  // namespace

void harness(Choices input) {
  const std::string_view operations = input.line().substr(0, 200);
  const std::string_view text = input.rest();
  const Stream stream = streamOf(text);
  Kyr::FileParse::File file(stream.get());
  LiteralReader literal(text);
  for (const char operation : operations) {
    step(operation, file, literal);
    expect(
        file.getCurrentLine() == literal.line() && file.atEndOfLine() == literal.line().isEmpty(),
        "the same is left of the line");
  }
}

}  // namespace KyrFuzz

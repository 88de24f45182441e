#include <kyr/files/KyrFileParse.h>

#include <kyr/core/file_parse_error_p.h>
#include <kyr/files/data_line_p.h>
#include <kyr/os/KyrOpenFile.h>
#include <kyr/os/os_stream_p.h>
#include <kyr/text/KyrParse.h>
#include <kyr/text/number_fault_p.h>
#include <kyr/text/numeric_p.h>
#include <kyr/trace/KyrTrace.h>

#include <QtGlobal>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <deque>
#include <limits>
#include <string>
#include <utility>

namespace Kyr::FileParse {

namespace {

/// Half of what a QString holds; continuations could join more.
constexpr std::size_t MaximumLength = std::size_t(1) << 29U;

constexpr std::size_t NoPlace = std::numeric_limits<std::size_t>::max();

namespace reason {
constexpr const char* NoPair = QT_TRANSLATE_NOOP("Kyr_FileParse", "\"%1\" is no pair %3=\"...\"");
constexpr const char* FewerLeft = QT_TRANSLATE_NOOP("Kyr_FileParse", "the line ends too early");
constexpr const char* TooLong = QT_TRANSLATE_NOOP("Kyr_FileParse", "the line is too long");
constexpr const char* EndsInside =
    QT_TRANSLATE_NOOP("Kyr_FileParse", "the file ends in the middle of this line");
constexpr const char* Ends = QT_TRANSLATE_NOOP("Kyr_FileParse", "the file ends");
constexpr const char* EndsBefore =
    QT_TRANSLATE_NOOP("Kyr_FileParse", "the file ends where \"%2\" is expected");
constexpr const char* OtherKey =
    QT_TRANSLATE_NOOP("Kyr_FileParse", "\"%1\" stands where \"%2\" is expected");
constexpr const char* Unreadable =
    QT_TRANSLATE_NOOP("Kyr_FileParse", "the file cannot be read to its end");
}  // namespace reason

/// What somebody has taken from the stream to look at it; shared by copies, as the stream is.
struct Unread {
  struct Piece {
    std::string bytes;
    bool endsLine;
  };
  std::deque<Piece> pieces;
  std::size_t lookedAt = 0;  ///< pieces, while looking
  bool looking = false;      ///< nothing is to be taken away
  bool isPlain = true;       ///< neither are there pieces nor does anybody look
};

/// While it lives, reads only look.
class Looking {
 public:
  explicit Looking(Unread* unread) : _unread(unread) {
    _unread->looking = true;
    _unread->lookedAt = 0;
    _unread->isPlain = false;
  }
  ~Looking() {
    _unread->looking = false;
    _unread->isPlain = _unread->pieces.empty();
  }
  Looking(const Looking&) = delete;
  Looking& operator=(const Looking&) = delete;

 private:
  Unread* _unread;
};

}  // namespace

struct KYR_HIDDEN File::State {
  std::shared_ptr<OpenFile> opened;   ///< null where the stream is the caller's
  std::shared_ptr<TraceLife> traced;  ///< null without a trace; of copies, too
  std::FILE* stream = nullptr;
  std::array<Line, 2> lines;  ///< the current line and the one being read
  TextCodec_t codec = CodecLatin1;
  int lineNumber = 0;
  unsigned currentIndex = 0;  ///< which of the lines is the current one
  bool accepted = true;       ///< the line read last became the current one
  bool continued = false;     ///< the line read last is, and the stream ended there
  bool strict = false;
  qint64 linesPassed = 0;       ///< line ends of the stream before the reader's place
  qint64 charactersPassed = 0;  ///< between the last of them and that place
  qint64 linesAtFailure = -1;   ///< linesPassed when strict mode said that the stream ended
  qint64 physicalLineNumber = 0;
  std::shared_ptr<Unread> unread = std::make_shared<Unread>();
  QString currentText;              ///< what getCurrentLine() gave last
  std::size_t textPlace = NoPlace;  ///< the place in the current line at which it gave it

  Line& current() { return lines[currentIndex]; }
  Line& next() { return lines[1 - currentIndex]; }

  void trace();
  void findCodec();
  bool read(char* bytes, Read* result);
  bool readUnread(char* bytes, Read* result);
  void pass(const char* bytes, const Read& read);
  bool join(const Read& read);
  bool readDataLine();
  void endOfStream(const char* key);
  QString decodeString(const char* bytes, std::size_t length) const;
  void nextDataLine(const char* key);
  Line& lineWithValue();
  qint64 nextDataInt(qint64 least, qint64 most);
  int nextInt32() { return static_cast<int>(nextDataInt(INT_MIN, INT_MAX)); }
  quint64 nextDataUnsigned();
  double nextDataDouble();
  float nextDataFloat();
  void nextDataString(QString* value);

  QString name() const { return opened ? opened->getName() : QString(); }
  Finding findingAt(const Line& line, std::size_t at, const char* reason) const;
  Finding findingAtEnd(const QString& key) const;
  [[noreturn]] void fail(const Line& line, std::size_t at, const char* reason) const;
  [[noreturn]] void fail(const Line& line, std::size_t at, const NumberFault& fault) const;
  [[noreturn]] void failMissing(const Line& line) const;
  [[noreturn]] void failNumber(const Line& line) const;
  [[noreturn]] void failInteger(const Line& line, qint64 least, quint64 most) const;
  [[noreturn]] void failKey(const char* key) const;
  [[noreturn]] void failPair(std::size_t at, const char* name) const;
  void expectReadable() const;
  void expectWhole();
  Finding findingAtValue() const;
};

/// What is wrong with a line, and the word that stands there.
Finding File::State::findingAt(const Line& line, std::size_t at, const char* reason) const {
  Finding finding;
  finding.place = line.placeOf(at);
  finding.place.fileName = name();
  finding.place.token = line.part(at, line.wordEnd(at));
  finding.reason = reason;
  return finding;
}

/// \param key empty where any would do
Finding File::State::findingAtEnd(const QString& key) const {
  Finding finding;
  finding.place.fileName = name();
  finding.place.line = linesPassed + 1;
  finding.place.key = key;
  finding.reason = key.isEmpty() ? reason::Ends : reason::EndsBefore;
  return finding;
}

/// Where the value stands that was taken last.
Finding File::State::findingAtValue() const {
  const Line& line = lines[currentIndex];
  Finding finding;
  if (line.lineNumber > 0) {
    finding.place = line.placeOf(line.valueBegin);
    finding.place.token = line.part(line.valueBegin, line.valueEnd());
  }
  finding.place.fileName = name();
  return finding;
}

void File::State::fail(const Line& line, std::size_t at, const char* reason) const {
  raise(findingAt(line, at, reason));
}

/// \param at the place of the text in which the fault was found
void File::State::fail(const Line& line, std::size_t at, const NumberFault& fault) const {
  Finding finding = findingAt(line, at, fault.reason);
  finding.detail = fault.detail;
  raise(std::move(finding));
}

void File::State::failMissing(const Line& line) const {
  fail(line, line.place, numberFault({}));
}

void File::State::failNumber(const Line& line) const {
  const std::size_t at = line.skipSpace(line.place);
  fail(line, at, numberFault(line.part(at, line.wordEnd(at))));
}

/// \param least and the next say what would have been accepted
void File::State::failInteger(const Line& line, qint64 least, quint64 most) const {
  const std::size_t at = line.skipSpace(line.place);
  fail(line, at, integerFault(line.part(at, line.wordEnd(at)), 10, least, most, Rest::Anything));
}

/// For the line read last, which has another key.
void File::State::failKey(const char* key) const {
  const Line& line = lines[1 - currentIndex];
  Finding finding = findingAt(line, line.skipSpace(0), reason::OtherKey);
  finding.place.key = QString::fromLatin1(key);
  raiseEnd(std::move(finding));
}

/// For the current line, which has no such pair.
void File::State::failPair(std::size_t at, const char* pairName) const {
  Finding finding = findingAt(lines[currentIndex], at, reason::NoPair);
  finding.detail = QString::fromLatin1(pairName);
  raise(std::move(finding));
}

/// What somebody else has opened may end where it cannot be read, as it always did.
void File::State::expectReadable() const {
  if (opened && std::ferror(stream) != 0) {
    Finding finding = findingAtEnd({});
    finding.reason = reason::Unreadable;
    raise(std::move(finding));
  }
}

void File::State::findCodec() {
  char bytes[BufferSize];
  Read first;
  const bool found = readFrom(stream, bytes, &first);
  if (found && getCodecInLine(bytes, &codec)) {
    pass(bytes, first);
  } else if (stream != nullptr && !Stream::moveTo(stream, 0) && found) {
    unread->pieces.push_back({std::string(bytes, first.length), first.endsLine});
    unread->isPlain = false;
  }
}

/// \param bytes receives them; BufferSize of them
inline bool File::State::read(char* bytes, Read* result) {
  if (unread->isPlain ? !readFrom(stream, bytes, result) : !readUnread(bytes, result)) {
    return false;
  }
  pass(bytes, *result);
  return true;
}

/// Takes what others have looked at; while looking, leaves it there and looks on.
bool File::State::readUnread(char* bytes, Read* result) {
  std::deque<Unread::Piece>& pieces = unread->pieces;
  const std::size_t index = unread->looking ? unread->lookedAt++ : 0;
  if (index == pieces.size()) {
    const bool found = readFrom(stream, bytes, result);
    if (found) {
      pieces.push_back({std::string(bytes, result->length), result->endsLine});
    }
    return found;
  }
  const Unread::Piece& seen = pieces[index];
  std::copy_n(seen.bytes.c_str(), seen.bytes.size() + 1, bytes);
  *result = {seen.bytes.size(), seen.endsLine};
  if (!unread->looking) {
    pieces.pop_front();
    unread->isPlain = pieces.empty();
  }
  return true;
}

inline void File::State::pass(const char* bytes, const Read& read) {
  if (read.endsLine) {
    ++linesPassed;
    charactersPassed = 0;
  } else {
    const QString text = decodeString(bytes, read.length);
    charactersPassed += countCharacters(text.begin(), text.end());
  }
}

/// As UTF-8 with every codec but Latin-1, also with values that are no codec.
QString File::State::decodeString(const char* bytes, std::size_t length) const {
  return fromCodec(codec == CodecLatin1 ? CodecLatin1 : CodecUtf8, bytes, static_cast<int>(length));
}

/// Appends a read, which stands behind the last byte of the next data line.
/// \return whether that line is continued
inline bool File::State::join(const Read& read) {
  Line& line = next();
  const char* const bytes = line.bytes.end();
  const std::size_t before = line.size();
  const std::size_t kept = lengthWithoutLineEnd(bytes, read.length);
  const unsigned content = contentOf(bytes, kept);
  line.content |= content;
  bool goesOn = kept > 0 && bytes[kept - 1] == '\\';
  if ((content & HasBeyondAscii) == 0) {
    line.append(kept - (goesOn ? 1 : 0));
  } else {
    QString decoded = decodeString(bytes, kept);
    goesOn = decoded.endsWith('\\');
    decoded.chop(goesOn ? 1 : 0);
    line.append(decoded);
  }
  if (goesOn) {
    line.pieces.append(
        static_cast<quint16>((line.size() - before) | (read.endsLine ? PieceEndsLine : 0)));
  }
  if (line.size() > MaximumLength) {
    continued = false;
    fail(line, line.size(), reason::TooLong);
  }
  return goesOn;
}

/// Reads up to the next line that holds data, or up to the end of the stream.
bool File::State::readDataLine() {
  Line& line = next();
  do {
    physicalLineNumber = linesPassed + 1;
    line.begin(physicalLineNumber, charactersPassed);
    do {
      lineNumber += lineNumber < INT_MAX ? 1 : 0;
      line.bytes.reserve(line.size() + BufferSize);
      Read result;
      if (!read(line.bytes.end(), &result)) {
        return false;
      }
      continued = join(result);
    } while (continued);
  } while (line.size() == 0 || line.bytes[0] == '#');
  return true;
}

/// In strict mode, says once that the stream ended within a data line. A comment that is cut off
/// there is passed over for good: who asks again finds no trace of it in the line.
/// \throws Error
void File::State::expectWhole() {
  Line& line = next();
  const bool isComment = line.size() > 0 && line.bytes[0] == '#';
  const bool isKnown = !continued || linesPassed == linesAtFailure;
  if (isKnown || (!strict && !isComment)) {
    return;
  }
  linesAtFailure = linesPassed;
  if (!isComment) {
    line.pieces.setSize(std::max<std::size_t>(line.pieces.size(), 1) - 1);  // nothing follows it
    fail(line, line.size(), reason::EndsInside);
  }
}

/// What a keyed operation makes of the end of the stream: nothing where it cut off a line of which
/// there was something.
/// \throws EndOfFile, Error
void File::State::endOfStream(const char* key) {
  expectReadable();
  expectWhole();
  if (next().size() == 0 || strict) {
    raiseEnd(findingAtEnd(QString::fromLatin1(key)));
  }
}

/// Makes the next data line the current one if it begins with \a key. The current line stays when
/// it does not, and when the stream ends.
inline void File::State::nextDataLine(const char* key) {
  accepted = false;
  if (!readDataLine()) {
    return endOfStream(key);
  }
  if (!next().takeKey(key)) {
    failKey(key);
  }
  currentIndex = 1 - currentIndex;
  textPlace = NoPlace;
  accepted = true;
}

inline Line& File::State::lineWithValue() {
  Line& line = current();
  if (line.left() == 0) {
    failMissing(line);
  }
  return line;
}

inline qint64 File::State::nextDataInt(qint64 least, qint64 most) {
  Line& line = lineWithValue();
  qint64 value = 0;
  const std::size_t length = line.parseInt64(&value);
  if (length == 0 || value < least || value > most) {
    failInteger(line, least, static_cast<quint64>(most));
  }
  line.take(length);
  return value;
}

quint64 File::State::nextDataUnsigned() {
  Line& line = lineWithValue();
  const std::size_t begin = line.skipSpace(line.place);
  QString text;
  line.copy(begin, line.wordEnd(begin), &text);
  bool found = false;
  int length = 0;
  const quint64 value = qstringToUInt64(text, &found, 10, &length);
  if (!found) {
    failInteger(line, 0, std::numeric_limits<quint64>::max());
  }
  line.place = begin;
  line.take(static_cast<std::size_t>(length));
  return value;
}

inline double File::State::nextDataDouble() {
  Line& line = lineWithValue();
  const char* end = line.rest();
  const double value = Numeric::parseDouble(line.rest(), line.bytes.end(), &end);
  if (end == line.rest()) {
    failNumber(line);
  }
  line.take(static_cast<std::size_t>(end - line.rest()));
  return value;
}

float File::State::nextDataFloat() {
  const std::size_t place = current().place;
  const double value = nextDataDouble();
  if (isBeyondFloat(value)) {
    Line& line = current();
    line.place = place;
    fail(line, line.skipSpace(place), beyondFloat({}));
  }
  return static_cast<float>(value);
}

inline void File::State::nextDataString(QString* value) {
  Line& line = lineWithValue();
  const std::size_t end = line.find(' ', line.place);
  line.copy(line.place, end, value);
  line.take(end - line.place);
}

/// Traces the reading, up to the end of the last copy.
void File::State::trace() {
  if (Trace::isOn()) {
    traced = std::make_shared<TraceLife>("FileParse::File", "read");
    traced->setDetail(name());
  }
}

File::File(std::FILE* stream) : File(stream, CodecLatin1) {}

File::File(std::FILE* stream, TextCodec_t codec) : _state(std::make_unique<State>()) {
  _state->stream = stream;
  _state->codec = codec;
  _state->trace();
  _state->findCodec();
}

File::File(const QString& name, TextCodec_t codec) : _state(std::make_unique<State>()) {
  _state->opened = std::make_shared<OpenFile>(name);
  _state->stream = _state->opened->getStream();
  _state->codec = codec;
  _state->strict = true;
  _state->trace();
  _state->findCodec();
}

File::File(const File& other) : _state(std::make_unique<State>(*other._state)) {}

File& File::operator=(const File& other) {
  *_state = State(*other._state);  // a copy that fails half-way leaves this reader as it was
  return *this;
}

File::~File() = default;

int File::getNumberOfLines() const {
  std::FILE* const stream = _state->stream;
  const std::int64_t before = stream != nullptr ? Stream::position(stream) : -1;
  if (before < 0) {
    return 0;
  }
  Stream::moveTo(stream, 0);  // rewind() would forget what could not be read
  const std::int64_t count = countLineFeeds(stream);
  Stream::moveTo(stream, before);
  _state->expectReadable();
  return static_cast<int>(std::min<std::int64_t>(count, INT_MAX));
}

int File::getLineNumber() const {
  return _state->lineNumber;
}

qint64 File::getPhysicalLineNumber() const {
  return _state->physicalLineNumber;
}

QString File::getDataLine() const {
  const Line& line = _state->accepted ? _state->current() : _state->next();
  QString whole;
  line.copy(0, line.size(), &whole);
  return whole.replace('\t', ' ');
}

const QString& File::getCurrentLine() const {
  const Line& line = _state->current();
  if (_state->textPlace != line.place) {
    line.copy(line.place, line.size(), &_state->currentText);
    _state->textPlace = line.place;
  }
  return _state->currentText;
}

const QString& File::getNextChar() {
  return getCurrentLine();
}

QString File::getFileName() const {
  return _state->name();
}

TextCodec_t File::getCodec() const {
  return _state->codec;
}

Place File::getPlace() const {
  return _state->findingAtValue().place;
}

void File::fail(const QString& reason, int at) const {
  const Line& line = _state->current();
  Finding finding = _state->findingAtValue();
  const std::size_t place = line.valueBegin + static_cast<std::size_t>(std::max(at, 0));
  if (line.lineNumber > 0) {
    const Place wrong = line.placeOf(std::min(place, line.valueEnd()));
    finding.place.line = wrong.line;
    finding.place.column = wrong.column;
  }
  finding.said = reason;
  const QString text = sentence(finding);
  raise(std::move(finding), text);
}

bool File::peekKey(QString& key) {
  State probe;
  probe.opened = _state->opened;
  probe.stream = _state->stream;
  probe.codec = _state->codec;
  probe.strict = _state->strict;
  probe.linesPassed = _state->linesPassed;
  probe.charactersPassed = _state->charactersPassed;
  probe.linesAtFailure = _state->linesAtFailure;
  probe.unread = _state->unread;
  const Looking looking(probe.unread.get());
  bool found = true;
  try {
    found = probe.readDataLine();
  } catch (const Error&) {
    // The line is too long; who reads it gets to know.
  }
  if (!found) {
    probe.expectReadable();
    probe.expectWhole();
    return false;
  }
  const Line& line = probe.next();
  line.copy(0, line.wordEnd(0), &key);
  return true;
}

bool File::endedInside() const {
  return _state->continued;
}

void File::setStrict(bool strict) {
  _state->strict = strict;
}

bool File::isStrict() const {
  return _state->strict;
}

bool File::atEndOfLine() const {
  return _state->current().left() == 0;
}

void File::getLine(const char* key) {
  _state->nextDataLine(key);
}

void File::getInt(const char* key, int& value) {
  getLine(key);
  nextInt(value);
}

void File::getInt(const char* key, unsigned int& value) {
  getLine(key);
  nextInt(value);
}

void File::getInt(const char* key, bool& value) {
  getLine(key);
  nextInt(value);
}

void File::getInt(const char* key, char& value) {
  getLine(key);
  nextInt(value);
}

void File::getInt(const char* key, unsigned char& value) {
  getLine(key);
  nextInt(value);
}

void File::getInt(const char* key, qint64& value) {
  getLine(key);
  nextInt(value);
}

void File::getInt(const char* key, quint64& value) {
  getLine(key);
  nextInt(value);
}

void File::getDouble(const char* key, double& value) {
  getLine(key);
  nextDouble(value);
}

void File::getFloat(const char* key, float& value) {
  getLine(key);
  nextFloat(value);
}

void File::getDoubles(const char* key, std::vector<double>& values) {
  getLine(key);
  nextDoubles(values);
}

void File::getString(const char* key, QString& value) {
  getLine(key);
  nextString(value);
}

void File::getStringLine(const char* key, QString& value) {
  getLine(key);
  Line& line = _state->current();
  line.copy(line.place, line.size(), &value);
  line.take(line.left());
}

void File::nextInt(int& value) {
  value = _state->nextInt32();
}

void File::nextInt(unsigned int& value) {
  value = static_cast<unsigned int>(_state->nextInt32());
}

void File::nextInt(bool& value) {
  value = _state->nextInt32() != 0;
}

void File::nextInt(char& value) {
  value = static_cast<char>(_state->nextInt32());
}

void File::nextInt(unsigned char& value) {
  value = static_cast<unsigned char>(_state->nextInt32());
}

void File::nextInt(qint64& value) {
  using Limits = std::numeric_limits<qint64>;
  value = _state->nextDataInt(Limits::min(), Limits::max());
}

void File::nextInt(quint64& value) {
  value = _state->nextDataUnsigned();
}

void File::nextDouble(double& value) {
  value = _state->nextDataDouble();
}

void File::nextFloat(float& value) {
  value = _state->nextDataFloat();
}

void File::nextDoubles(std::vector<double>& values) {
  values.clear();
  _state->current().take(0);
  while (!atEndOfLine()) {
    values.push_back(_state->nextDataDouble());
  }
}

void File::nextString(QString& value) {
  _state->nextDataString(&value);
}

void File::nextStringValue(const char* name, QString& value) {
  Line& line = _state->lineWithValue();
  const std::size_t end = line.size();
  const std::size_t begin = line.skipSpace(line.place);
  const std::size_t equals = line.find('=', begin);
  const std::size_t opened = equals + 2;
  if (opened > end || line.bytes[equals + 1] != '"' || !line.holds(begin, equals, name)) {
    _state->failPair(begin, name);
  }
  const std::size_t closed = line.find('"', opened);
  if (closed == end) {
    _state->failPair(begin, name);
  }
  line.copy(opened, closed, &value);
  line.valueBegin = opened;
  line.place = closed + 1;
}

void File::skipChars(unsigned int count) {
  Line& line = _state->current();
  if (line.left() < count) {
    _state->fail(line, line.size(), reason::FewerLeft);
  }
  line.valueBegin = line.place;
  line.place += count;
}

QString File::getStringFromBlankLine() {
  std::array<char, BufferSize> bytes;
  Read result;
  _state->physicalLineNumber = _state->linesPassed + 1;
  if (!_state->read(bytes.data(), &result)) {
    _state->expectReadable();
    raiseEnd(_state->findingAtEnd({}));
  }
  QString text = _state->decodeString(bytes.data(), result.length);
  if (text.endsWith('\n')) {
    text.chop(1);
  }
  return text;
}

}  // namespace Kyr::FileParse

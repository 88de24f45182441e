#include <kyr/files/KyrFileParse.h>

#include <kyr/core/KyrStructVector.h>
#include <kyr/files/stream_p.h>
#include <kyr/text/KyrParse.h>
#include <kyr/text/numeric_p.h>

#include <QLatin1String>
#include <QStringView>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <cstring>
#include <limits>

namespace Kyr::FileParse {

namespace {

/// With the final zero byte of fgets; so a read gives at most 4095 bytes.
constexpr std::size_t BufferSize = 4096;

/// Half of what a QString holds; continuations could join more.
constexpr std::size_t MaximumLength = std::size_t(1) << 29U;

/// What stands for a character beyond ASCII among bytes; part of no number.
constexpr char BeyondAscii = '\xFF';

constexpr std::size_t NoPlace = std::numeric_limits<std::size_t>::max();

/// What is in some text, as bits.
enum Content : unsigned { Plain = 0, HasTab = 1, HasBeyondAscii = 2 };

/// Collects what is in eight bytes; zero bytes count for nothing.
struct Look {
  void at(const char* bytes, std::size_t count) {
    constexpr std::uint64_t ones = 0x0101010101010101U;
    std::uint64_t word = 0;
    std::memcpy(&word, bytes, count);
    const std::uint64_t zeroForTab = word ^ (ones * '\t');
    tabs |= (zeroForTab - ones) & ~zeroForTab;
    beyondAscii |= word;
  }
  unsigned content() const {
    constexpr std::uint64_t highBits = 0x8080808080808080U;
    return ((tabs & highBits) != 0 ? HasTab : Plain) |
           ((beyondAscii & highBits) != 0 ? HasBeyondAscii : Plain);
  }

  std::uint64_t tabs = 0;
  std::uint64_t beyondAscii = 0;
};

unsigned contentOf(const char* begin, std::size_t length) {
  constexpr std::size_t step = 8;
  Look look;
  if (length < step) {
    look.at(begin, length);
    return look.content();
  }
  for (std::size_t at = 0; at < length - step; at += step) {
    look.at(begin + at, step);
  }
  look.at(begin + length - step, step);  // may overlap; a loop over the rest costs more
  return look.content();
}

std::size_t lengthWithoutLineEnd(const char* bytes, std::size_t length) {
  while (length > 0 && (bytes[length - 1] == '\n' || bytes[length - 1] == '\r')) {
    --length;
  }
  return length;
}

std::int64_t countLineFeeds(const char* begin, const char* end) {
  std::int64_t count = 0;
  const auto next = [&] { return std::memchr(begin, '\n', static_cast<std::size_t>(end - begin)); };
  while (const void* const found = next()) {
    begin = static_cast<const char*>(found) + 1;
    ++count;
  }
  return count;
}

/// From the stream's position on, without the first byte.
std::int64_t countLineFeeds(std::FILE* stream) {
  std::array<char, 32768> block;
  std::int64_t count = 0;
  std::fgetc(stream);
  while (const std::size_t length = std::fread(block.data(), 1, block.size(), stream)) {
    count += countLineFeeds(block.data(), block.data() + length);
  }
  return count;
}

/// What one read of the stream gave.
struct Read {
  std::size_t length = 0;  ///< up to the first zero byte, which may stand before the line end
  bool endsLine = false;   ///< false for the front part of a line longer than the buffer
};

/// \param bytes BufferSize of them
/// \return false at the end of the stream and on a read error
bool readFrom(std::FILE* stream, char* bytes, Read* read) {
  bytes[BufferSize - 1] = 1;  // overwritten only by a read that fills the buffer
  if (stream == nullptr || !Stream::readLine(bytes, BufferSize, stream)) {
    return false;
  }
  read->length = std::strlen(bytes);
  read->endsLine = bytes[BufferSize - 1] != 0 || bytes[BufferSize - 2] == '\n';
  return true;
}

/// The line that the search for a codec took from a stream that cannot move back.
struct Unread {
  char bytes[BufferSize];
  Read read;
  bool taken = false;
};

/// A data line. One byte stands for each character, so that places in both members agree.
struct Line {
  StructVector<char> bytes;  ///< the characters of ASCII, BeyondAscii for others
  QString text;              ///< all characters, empty as long as all are of ASCII
  unsigned content = Plain;  ///< Content of all bytes
  std::size_t place = 0;     ///< of the first character that is not consumed

  bool isAscii() const { return text.isEmpty(); }
  std::size_t size() const { return bytes.size(); }
  std::size_t left() const { return bytes.size() - place; }
  const char* rest() const { return bytes.data() + place; }
  const QChar* textRest() const { return text.constData() + place; }
  bool isSpace(std::size_t at) const;
  std::size_t find(char byte, std::size_t from) const;
  bool holds(std::size_t begin, std::size_t end, const char* expected) const;

  void clear();
  void append(std::size_t length);
  void append(const QString& decoded);
  bool takeKey(const char* key);
  void take(std::size_t length);
  std::size_t parseInt64(qint64* number) const;
  void copy(std::size_t begin, std::size_t end, QString* to) const;
};

bool Line::isSpace(std::size_t at) const {
  return isAscii() ? Numeric::isSpace(static_cast<unsigned char>(bytes[at]))
                   : text.at(static_cast<int>(at)).isSpace();
}

/// The place of a byte, the size of the line if there is none.
std::size_t Line::find(char byte, std::size_t from) const {
  return static_cast<std::size_t>(std::find(bytes.begin() + from, bytes.end(), byte) -
                                  bytes.begin());
}

/// \param expected Latin-1
bool Line::holds(std::size_t begin, std::size_t end, const char* expected) const {
  if (isAscii()) {
    return std::equal(bytes.begin() + begin, bytes.begin() + end, expected,
                      expected + std::strlen(expected));
  }
  return QStringView(text.constData() + begin, text.constData() + end) == QLatin1String(expected);
}

inline void Line::clear() {
  bytes.clear();
  content = Plain;
  place = 0;
  if (!text.isEmpty()) {
    text.resize(0);
  }
}

/// Appends ASCII that stands already in the memory behind the last byte.
inline void Line::append(std::size_t length) {
  if (!isAscii()) {
    text += QLatin1String(bytes.end(), static_cast<int>(length));
  }
  bytes.setSize(bytes.size() + length);
}

void Line::append(const QString& decoded) {
  if (isAscii()) {
    text = QString::fromLatin1(bytes.data(), static_cast<int>(bytes.size()));
  }
  text += decoded;
  for (const QChar character : decoded) {
    bytes.append(character.unicode() < 128 ? character.toLatin1() : BeyondAscii);
  }
}

/// Consumes the key and the blanks behind it, and makes tabs blanks.
/// \return false, with nothing changed, if the line begins with something else
inline bool Line::takeKey(const char* key) {
  const char* const end = key + std::strlen(key);
  const bool found = isAscii() ? std::mismatch(key, end, bytes.begin(), bytes.end()).first == end
                               : text.startsWith(QLatin1String(key));
  if (found) {
    if ((content & HasTab) != 0) {
      std::replace(bytes.begin(), bytes.end(), '\t', ' ');
      text.replace('\t', ' ');
    }
    take(static_cast<std::size_t>(end - key));
  }
  return found;
}

/// Consumes characters and the blanks behind them; a line that has its key holds no tabs.
inline void Line::take(std::size_t length) {
  place += length;
  while (place < size() && bytes[place] == ' ') {
    ++place;
  }
}

/// The integer at the front of what is left.
/// \return the number of characters up to its end, 0 without one
std::size_t Line::parseInt64(qint64* number) const {
  if (isAscii()) {
    const char* end = rest();
    const bool found = Numeric::parseInt64(rest(), bytes.end(), &end, number);
    return found ? static_cast<std::size_t>(end - rest()) : 0;
  }
  bool found = false;
  int end = 0;
  const QString borrowed = QString::fromRawData(textRest(), static_cast<int>(left()));
  *number = qstringToInt64(borrowed, &found, 10, &end);
  return found ? static_cast<std::size_t>(end) : 0;
}

/// Uses the memory of \a to, so that values cost no allocation line by line.
void Line::copy(std::size_t begin, std::size_t end, QString* to) const {
  to->resize(static_cast<int>(end - begin));
  if (isAscii()) {
    std::transform(bytes.begin() + begin, bytes.begin() + end, to->data(),
                   [](char byte) { return QLatin1Char(byte); });
  } else {
    std::copy(text.constData() + begin, text.constData() + end, to->data());
  }
}

}  // namespace

struct KYR_HIDDEN File::State {
  std::FILE* stream;
  std::array<Line, 2> lines;  ///< the current line and the one being read
  TextCodec_t codec;
  int lineNumber = 0;
  unsigned currentIndex = 0;  ///< which of the lines is the current one
  bool accepted = true;       ///< the line read last became the current one
  bool continued = false;     ///< the line read last is, and the stream ended there
  bool strict = false;
  qint64 linesPassed = 0;      ///< line ends of the stream before the reader's place
  qint64 linesAtFailure = -1;  ///< linesPassed when strict mode said that the stream ended
  qint64 physicalLineNumber = 0;
  std::shared_ptr<Unread> unread;   ///< shared by copies, as the stream is
  QString currentText;              ///< what getCurrentLine() gave last
  std::size_t textPlace = NoPlace;  ///< the place in the current line at which it gave it

  Line& current() { return lines[currentIndex]; }
  Line& next() { return lines[1 - currentIndex]; }

  void findCodec();
  bool read(char* bytes, Read* result);
  bool join(std::size_t length);
  bool readDataLine();
  bool endOfStream();
  QString decodeString(const char* bytes, std::size_t length) const;
  bool nextDataLine(const char* key);
  Line& lineWithValue();
  int nextDataInt();
  double nextDataDouble();
  void nextDataString(QString* value);
};

void File::State::findCodec() {
  Unread first;
  const bool found = readFrom(stream, first.bytes, &first.read);
  if (found && getCodecInLine(first.bytes, &codec)) {
    linesPassed = first.read.endsLine ? 1 : 0;
  } else if (stream != nullptr && !Stream::moveTo(stream, 0) && found) {
    unread = std::make_shared<Unread>(first);
  }
}

/// \param bytes receives them; BufferSize of them
inline bool File::State::read(char* bytes, Read* result) {
  if (unread && !unread->taken) {
    std::copy(std::begin(unread->bytes), std::end(unread->bytes), bytes);
    *result = unread->read;
    unread->taken = true;
  } else if (!readFrom(stream, bytes, result)) {
    return false;
  }
  linesPassed += result->endsLine ? 1 : 0;
  return true;
}

/// As UTF-8 with every codec but Latin-1, also with values that are no codec.
QString File::State::decodeString(const char* bytes, std::size_t length) const {
  return fromCodec(codec == CodecLatin1 ? CodecLatin1 : CodecUtf8, bytes, static_cast<int>(length));
}

/// Appends a read, which stands behind the last byte of the next data line.
/// \return whether that line is continued
inline bool File::State::join(std::size_t length) {
  Line& line = next();
  const char* const bytes = line.bytes.end();
  const std::size_t kept = lengthWithoutLineEnd(bytes, length);
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
  if (line.size() > MaximumLength) {
    continued = false;
    throw Error();
  }
  return goesOn;
}

/// Reads up to the next line that holds data, or up to the end of the stream.
bool File::State::readDataLine() {
  Line& line = next();
  do {
    line.clear();
    physicalLineNumber = linesPassed + 1;
    do {
      lineNumber += lineNumber < INT_MAX ? 1 : 0;
      line.bytes.reserve(line.size() + BufferSize);
      Read result;
      if (!read(line.bytes.end(), &result)) {
        return false;
      }
      continued = join(result.length);
    } while (continued);
  } while (line.size() == 0 || line.bytes[0] == '#');
  return true;
}

/// What a keyed operation makes of the end of the stream.
/// \return true when it cut off a line of which there was something
bool File::State::endOfStream() {
  const bool hasText = next().size() > 0;
  const bool isComment = hasText && next().bytes[0] == '#';
  if (strict && continued && !isComment && linesPassed != linesAtFailure) {
    linesAtFailure = linesPassed;
    throw Error();
  }
  return hasText && !strict;
}

/// Makes the next data line the current one if it begins with \a key.
/// \return false if it does not and at the end of the stream, but true when that cut off a
/// continued line; the current line then stays
inline bool File::State::nextDataLine(const char* key) {
  accepted = false;
  if (!readDataLine()) {
    return endOfStream();
  }
  if (!next().takeKey(key)) {
    return false;
  }
  currentIndex = 1 - currentIndex;
  textPlace = NoPlace;
  accepted = true;
  return true;
}

inline Line& File::State::lineWithValue() {
  if (current().left() == 0) {
    throw Error();
  }
  return current();
}

inline int File::State::nextDataInt() {
  Line& line = lineWithValue();
  qint64 value = 0;
  const std::size_t length = line.parseInt64(&value);
  if (length == 0 || value < INT_MIN || value > INT_MAX) {
    throw Error();
  }
  line.take(length);
  return static_cast<int>(value);
}

inline double File::State::nextDataDouble() {
  Line& line = lineWithValue();
  const char* end = line.rest();
  const double value = Numeric::parseDouble(line.rest(), line.bytes.end(), &end);
  if (end == line.rest()) {
    throw Error();
  }
  line.take(static_cast<std::size_t>(end - line.rest()));
  return value;
}

inline void File::State::nextDataString(QString* value) {
  Line& line = lineWithValue();
  const std::size_t end = line.find(' ', line.place);
  line.copy(line.place, end, value);
  line.take(end - line.place);
}

File::File(std::FILE* stream) : File(stream, CodecLatin1) {}

File::File(std::FILE* stream, TextCodec_t codec) : _state(std::make_unique<State>()) {
  _state->stream = stream;
  _state->codec = codec;
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
  std::rewind(stream);
  const std::int64_t count = countLineFeeds(stream);
  Stream::moveTo(stream, before);
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
  if (!_state->nextDataLine(key)) {
    throw EndOfFile();
  }
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

void File::getDouble(const char* key, double& value) {
  getLine(key);
  nextDouble(value);
}

void File::getString(const char* key, QString& value) {
  getLine(key);
  nextString(value);
}

void File::getStringLine(const char* key, QString& value) {
  getLine(key);
  Line& line = _state->current();
  line.copy(line.place, line.size(), &value);
  line.place = line.size();
}

void File::nextInt(int& value) {
  value = _state->nextDataInt();
}

void File::nextInt(unsigned int& value) {
  value = static_cast<unsigned int>(_state->nextDataInt());
}

void File::nextInt(bool& value) {
  value = _state->nextDataInt() != 0;
}

void File::nextInt(char& value) {
  value = static_cast<char>(_state->nextDataInt());
}

void File::nextInt(unsigned char& value) {
  value = static_cast<unsigned char>(_state->nextDataInt());
}

void File::nextDouble(double& value) {
  value = _state->nextDataDouble();
}

void File::nextString(QString& value) {
  _state->nextDataString(&value);
}

void File::nextStringValue(const char* name, QString& value) {
  Line& line = _state->lineWithValue();
  const std::size_t end = line.size();
  std::size_t begin = line.place;
  while (begin < end && line.isSpace(begin)) {
    ++begin;
  }
  const std::size_t equals = line.find('=', begin);
  const std::size_t opened = equals + 2;
  if (opened > end || line.bytes[equals + 1] != '"' || !line.holds(begin, equals, name)) {
    throw Error();
  }
  const std::size_t closed = line.find('"', opened);
  if (closed == end) {
    throw Error();
  }
  line.copy(opened, closed, &value);
  line.place = closed + 1;
}

void File::skipChars(unsigned int count) {
  Line& line = _state->current();
  if (line.left() < count) {
    throw Error();
  }
  line.place += count;
}

QString File::getStringFromBlankLine() {
  std::array<char, BufferSize> bytes;
  Read result;
  _state->physicalLineNumber = _state->linesPassed + 1;
  if (!_state->read(bytes.data(), &result)) {
    throw EndOfFile();
  }
  QString text = _state->decodeString(bytes.data(), result.length);
  if (text.endsWith('\n')) {
    text.chop(1);
  }
  return text;
}

}  // namespace Kyr::FileParse

/// \file
/// One line of keyed text and what has been consumed of it.
#pragma once

#include <kyr/core/KyrException.h>
#include <kyr/core/KyrStructVector.h>
#include <kyr/files/byte_scan_p.h>

#include <QLatin1String>
#include <QString>

#include <algorithm>
#include <cstddef>
#include <cstring>

namespace Kyr::FileParse {

/// The byte that stands for a character beyond ASCII; it is part of no number.
constexpr char BeyondAscii = '\xFF';

/// Marks a piece behind which a line of the stream ends; the other bits hold its length.
constexpr unsigned PieceEndsLine = 0x8000;
static_assert(BufferSize <= PieceEndsLine);

/// A data line. One byte stands for each character, so that places in both members agree.
struct Line {
  StructVector<char> bytes;      ///< the characters of ASCII, BeyondAscii for others
  QString text;                  ///< all characters, empty as long as all are of ASCII
  unsigned content = Plain;      ///< Content_t of all bytes
  std::size_t place = 0;         ///< of the first character that is not consumed
  std::size_t keyLength = 0;     ///< since it has been taken
  std::size_t valueBegin = 0;    ///< of the value taken last; before the first one of the key
  qint64 lineNumber = 0;         ///< of the stream's line in which it begins, from 1
  qint64 charactersBefore = 0;   ///< of that line, which other data lines have had
  StructVector<quint16> pieces;  ///< how long those were that others follow, and PieceEndsLine

  bool isAscii() const { return text.isEmpty(); }
  std::size_t size() const { return bytes.size(); }
  std::size_t left() const { return bytes.size() - place; }
  const char* rest() const { return bytes.data() + place; }
  const QChar* textRest() const { return text.constData() + place; }
  bool isSpace(std::size_t at) const;
  std::size_t find(char byte, std::size_t from) const;
  bool holds(std::size_t begin, std::size_t end, const char* expected) const;

  void begin(qint64 atLineNumber, qint64 atCharactersBefore);
  void append(std::size_t length);
  void append(const QString& decoded);
  bool takeKey(const char* key);
  void take(std::size_t length);
  std::size_t parseInt64(qint64* number) const;
  void copy(std::size_t begin, std::size_t end, QString* to) const;
  std::size_t valueEnd() const;

  QString part(std::size_t begin, std::size_t end) const;
  std::size_t wordEnd(std::size_t begin) const;
  std::size_t skipSpace(std::size_t at) const;
  Place placeOf(std::size_t at) const;
};

/// Empties the line.
inline void Line::begin(qint64 atLineNumber, qint64 atCharactersBefore) {
  bytes.clear();
  pieces.clear();
  content = Plain;
  place = 0;
  lineNumber = atLineNumber;
  charactersBefore = atCharactersBefore;
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
    keyLength = static_cast<std::size_t>(end - key);
    take(keyLength);
  }
  return found;
}

/// Consumes characters and the blanks behind them; a line that has its key holds no tabs.
inline void Line::take(std::size_t length) {
  valueBegin = place;
  place += length;
  while (place < size() && bytes[place] == ' ') {
    ++place;
  }
}

/// The place of a byte, the size of the line if there is none.
inline std::size_t Line::find(char byte, std::size_t from) const {
  return static_cast<std::size_t>(std::find(bytes.begin() + from, bytes.end(), byte) -
                                  bytes.begin());
}

/// Copies characters into the memory of \a to, so that values cost no allocation line by line.
inline void Line::copy(std::size_t begin, std::size_t end, QString* to) const {
  to->resize(static_cast<int>(end - begin));
  if (isAscii()) {
    std::transform(bytes.begin() + begin, bytes.begin() + end, to->data(),
                   [](char byte) { return QLatin1Char(byte); });
  } else {
    std::copy(text.constData() + begin, text.constData() + end, to->data());
  }
}

}  // namespace Kyr::FileParse

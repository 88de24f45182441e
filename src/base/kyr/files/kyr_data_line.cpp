#include <kyr/core/file_parse_error_p.h>
#include <kyr/files/data_line_p.h>
#include <kyr/text/KyrParse.h>
#include <kyr/text/numeric_p.h>

#include <QStringView>

namespace Kyr::FileParse {

bool Line::isSpace(std::size_t at) const {
  return isAscii() ? Numeric::isSpace(static_cast<unsigned char>(bytes[at]))
                   : text.at(static_cast<int>(at)).isSpace();
}

/// Whether these characters stand in the line.
/// \param expected Latin-1
bool Line::holds(std::size_t begin, std::size_t end, const char* expected) const {
  if (isAscii()) {
    return std::equal(bytes.begin() + begin, bytes.begin() + end, expected,
                      expected + std::strlen(expected));
  }
  return QStringView(text.constData() + begin, text.constData() + end) == QLatin1String(expected);
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

/// Behind the value that was taken last, without the blanks and the quote that may follow it.
std::size_t Line::valueEnd() const {
  const bool isOfPair =
      valueBegin >= 2 && bytes[valueBegin - 2] == '=' && bytes[valueBegin - 1] == '"';
  std::size_t end = place;
  while (!isOfPair && end > valueBegin && bytes[end - 1] == ' ') {
    --end;
  }
  return isOfPair ? std::max(end - 1, valueBegin) : end;
}

/// For messages; not more than longestToken.
QString Line::part(std::size_t begin, std::size_t end) const {
  QString copied;
  copy(begin, std::min(end, begin + longestToken), &copied);
  return copied;
}

/// The place of the next blank or tab, the size of the line if there is none.
std::size_t Line::wordEnd(std::size_t begin) const {
  const auto isBlank = [](char byte) { return byte == ' ' || byte == '\t'; };
  const char* const end = std::find_if(bytes.begin() + begin, bytes.end(), isBlank);
  return static_cast<std::size_t>(end - bytes.begin());
}

std::size_t Line::skipSpace(std::size_t at) const {
  while (at < size() && isSpace(at)) {
    ++at;
  }
  return at;
}

/// Where an editor shows a character, and the key.
Place Line::placeOf(std::size_t at) const {
  const auto count = [this](std::size_t from, std::size_t to) {
    return isAscii() ? static_cast<qint64>(to - from)
                     : countCharacters(text.constData() + from, text.constData() + to);
  };
  Place found;
  found.line = lineNumber;
  qint64 passed = charactersBefore;
  std::size_t begin = 0;
  for (const unsigned piece : pieces) {
    const std::size_t end = begin + (piece & (PieceEndsLine - 1));
    if (at < end) {
      break;
    }
    const bool endsLine = (piece & PieceEndsLine) != 0;
    passed = endsLine ? 0 : passed + count(begin, end) + 1;  // with the backslash
    found.line += endsLine ? 1 : 0;
    begin = end;
  }
  found.column = passed + count(begin, at) + 1;
  const bool hasKey = place > 0 && keyLength > 0;  // otherwise that of an earlier line
  found.key = part(0, hasKey ? keyLength : wordEnd(0));
  return found;
}

}  // namespace Kyr::FileParse

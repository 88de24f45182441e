#include <kyr/text/KyrNumString.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <limits>

namespace Kyr {

namespace {

constexpr int largest = std::numeric_limits<qint32>::max();
constexpr int longestPadding = 100;

bool isDigit(QChar character) {
  const unsigned code = character.unicode();
  return code < 128 ? code - '0' < 10 : character.isDigit();
}

int valueOf(const QChar* at, const QChar* end) {
  quint64 value = 0;
  for (; at != end; ++at) {
    const unsigned digit = at->unicode() - unsigned('0');
    value = value * 10 + digit;
    if (digit > 9 || value > largest) {
      return largest;
    }
  }
  return static_cast<int>(value);
}

int order(int left, int right) {
  return int(left > right) - int(left < right);
}

int compareNumbers(int left, int leftDigits, int right, int rightDigits) {
  return left != right ? order(left, right) : order(rightDigits, leftDigits);
}

/// Compares by codes, without a call into Qt: most texts are so short that the call would cost more
/// than the comparison.
int compareTexts(QStringView left, QStringView right) {
  const QChar* const a = left.data();
  const QChar* const b = right.data();
  const auto common = std::min(left.size(), right.size());
  for (qsizetype i = 0; i < common; ++i) {
    if (a[i] != b[i]) {
      return order(a[i].unicode(), b[i].unicode());
    }
  }
  return int(left.size() > common) - int(right.size() > common);
}

/// A number of characters at the beginning that are equal, in steps of a machine word.
template <std::size_t size>
int equalUnits(const std::array<QChar, size>& left, const std::array<QChar, size>& right) {
  constexpr std::size_t inWord = sizeof(quint64) / sizeof(QChar);
  std::size_t at = 0;
  while (at < size && std::memcmp(&left[at], &right[at], sizeof(quint64)) == 0) {
    at += inWord;
  }
  return static_cast<int>(at);
}

}  // namespace

void NumString::setString(const QString& text) {
  _text = text;
  keepStart();
  parseString();
}

void NumString::keepStart() {
  const auto kept = std::min(static_cast<std::size_t>(_text.size()), _start.size());
  std::fill(std::copy_n(_text.constData(), kept, _start.begin()), _start.end(), QChar());
  _parsedStart = static_cast<qint16>(kept);
}

/// \param value null for other characters than digits
void NumString::addPart(int end, const int* value) {
  const auto index = static_cast<std::size_t>(_inPlaceCount);
  if (index < _endsInPlace.size()) {
    _endsInPlace[index] = end;
    _valuesInPlace[index / 2] = value != nullptr ? *value : _valuesInPlace[index / 2];
    ++_inPlaceCount;
    return;
  }
  if (isInPlace()) {
    std::copy(_endsInPlace.begin(), _endsInPlace.end(), std::back_inserter(_ends));
    std::copy(_valuesInPlace.begin(), _valuesInPlace.end(), std::back_inserter(_values));
    ++_inPlaceCount;
  }
  _ends.append(end);
  if (value != nullptr) {
    _values.append(*value);
  }
}

void NumString::parseString() {
  _inPlaceCount = 0;
  _ends.clear();
  _values.clear();
  const QChar* const first = _text.constData();
  const QChar* const last = first + _text.size();
  _firstIsNumber = first != last && isDigit(*first);
  bool number = _firstIsNumber;
  for (const QChar* at = first; at != last; number = !number) {
    const QChar* const begin = at;
    at = std::find_if(begin, last, [number](QChar next) { return isDigit(next) != number; });
    const int value = number ? valueOf(begin, at) : 0;
    addPart(static_cast<int>(at - first), number ? &value : nullptr);
  }
}

bool NumString::getNumberPart(unsigned int index, int* value) const {
  if (!isPartNumber(index)) {
    return false;
  }
  *value = values()[index / 2];
  return true;
}

/// The text between two ends of parts, as far as there is any: increment() may have made the text
/// shorter, though not within the first characters.
inline QStringView NumString::textBetween(int begin, int end) const {
  if (end <= static_cast<int>(_start.size())) {
    return {_start.data() + begin, end - begin};
  }
  const auto size = static_cast<int>(_text.size());
  return {_text.constData() + std::min(begin, size), std::min(end, size) - std::min(begin, size)};
}

QString NumString::getStringPart(unsigned int index) const {
  const int part = static_cast<int>(index);
  return textBetween(partBegin(part), ends()[part]).toString();
}

int NumString::compare(const NumString& other) const {
  const int common = std::min(count(), other.count());
  if (common == 0 || _firstIsNumber != other._firstIsNumber) {
    return common == 0 ? order(count(), other.count()) : _firstIsNumber ? -1 : 1;
  }
  const qint32* const ownEnds = ends();
  const qint32* const otherEnds = other.ends();
  // Parts that end before the last equal character are the same in both texts.
  const int equal =
      std::min<int>(equalUnits(_start, other._start), std::min(_parsedStart, other._parsedStart));
  int i = 0;
  while (ownEnds[i] < equal) {
    ++i;
  }
  int begin = partBegin(i);
  int otherBegin = other.partBegin(i);
  for (; i < common; begin = ownEnds[i], otherBegin = otherEnds[i], ++i) {
    const int byPart =
        isPartNumber(static_cast<unsigned>(i))
            ? compareNumbers(values()[i / 2], ownEnds[i] - begin, other.values()[i / 2],
                             otherEnds[i] - otherBegin)
            : compareTexts(textBetween(std::max(begin, equal), ownEnds[i]),
                           other.textBetween(std::max(otherBegin, equal), otherEnds[i]));
    if (byPart != 0) {
      return byPart;
    }
  }
  return order(count(), other.count());
}

void NumString::increment() {
  const int index = count() - (isPartNumber(partsCount() - 1) ? 1 : 2);
  if (index < 0 || values()[index / 2] == largest) {
    return;
  }
  const auto place = static_cast<std::size_t>(index / 2);
  const int value = ++(isInPlace() ? _valuesInPlace[place] : _values[index / 2]);
  const int end = ends()[index];
  const int width = std::min(end - partBegin(index), longestPadding);
  const bool isLast = index == count() - 1;
  _text = _text.left(partBegin(index)) + QString::number(value).rightJustified(width, '0') +
          (isLast ? QString() : _text.mid(end));
  keepStart();
  _parsedStart = 0;
}

}  // namespace Kyr

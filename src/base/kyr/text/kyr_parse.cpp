#include <kyr/text/KyrParse.h>

#include <kyr/text/numeric_p.h>

#include <algorithm>
#include <limits>

namespace Kyr {

namespace {

using Numeric::noDigit;

constexpr bool isAsciiDigit(unsigned code) {
  return code - '0' < 10;
}

/// The value of a digit beyond ASCII: those of all scripts of Unicode count, as users type them.
unsigned otherDigit(QChar character, unsigned base) {
  const unsigned code = character.unicode();
  if (code > 127) {
    const int value = character.digitValue();
    return character.isDigit() && value >= 0 ? static_cast<unsigned>(value) : noDigit;
  }
  for (const unsigned first : {unsigned('a'), unsigned('A')}) {
    if (base > 10 && code >= first && code < first + base - 10) {
      return code - first + 10;
    }
  }
  return noDigit;
}

unsigned digitOf(QChar character, unsigned base) {
  const unsigned code = character.unicode();
  const unsigned digit = isAsciiDigit(code) ? code - '0' : otherDigit(character, base);
  return digit < base ? digit : noDigit;
}

const QChar* skipSpace(const QChar* at, const QChar* end) {
  while (at != end && at->isSpace()) {
    ++at;
  }
  return at;
}

/// Settles what may follow a number.
bool acceptRest(const QString& text, const QChar* stop, int* end) {
  if (end != nullptr) {
    *end = static_cast<int>(stop - text.constData());
    return true;
  }
  const QChar* const last = text.constData() + text.size();
  return skipSpace(stop, last) == last;
}

template <class Integer>
bool parseInteger(const QString& text, int base, int* end, Integer* value) {
  constexpr bool isSigned = std::numeric_limits<Integer>::is_signed;
  const QChar* const last = text.constData() + text.size();
  const QChar* at = skipSpace(text.constData(), last);
  const bool negative = isSigned && at != last && *at == QLatin1Char('-');
  if (negative || (at != last && *at == QLatin1Char('+'))) {
    ++at;
  }
  const Numeric::Most most = {static_cast<quint64>(std::numeric_limits<Integer>::max()),
                              negative ? 1U : 0U};
  quint64 magnitude = 0;
  at = Numeric::readDigits(
      at, last, base, most,
      [](QChar character, unsigned known) { return digitOf(character, known); }, &magnitude);
  if (at == nullptr || !acceptRest(text, at, end)) {
    return false;
  }
  *value = static_cast<Integer>(negative ? 0 - magnitude : magnitude);
  return true;
}

template <class Wide, class Narrow>
Narrow parseAs(const QString& text, bool* ok, int base, int* end) {
  Wide value = 0;
  const bool fits = parseInteger(text, base, end, &value) &&
                    value >= Wide(std::numeric_limits<Narrow>::min()) &&
                    value <= Wide(std::numeric_limits<Narrow>::max());
  if (ok != nullptr) {
    *ok = fits;
  }
  return fits ? static_cast<Narrow>(value) : Narrow(0);
}

bool parseFloating(const QString& text, int* end, double* value) {
  // A number ends at the first character beyond ASCII, so up to there its characters are the
  // bytes of every local encoding.
  const auto* const first = reinterpret_cast<const ushort*>(text.constData());
  const ushort* const last = first + text.size();
  const ushort* stop = nullptr;
  *value = Numeric::parseDouble(first, last, &stop);
  if (end == nullptr) {
    return Numeric::onlyBlanks(stop, last);
  }
  if (stop == first) {
    return false;
  }
  *end = static_cast<int>(stop - first);
  return true;
}

int findForward(const QString& text, const QString& set, int from, bool wanted) {
  for (int i = std::max(from, 0); i < text.size(); ++i) {
    if (set.contains(text.at(i)) == wanted) {
      return i;
    }
  }
  return -1;
}

int findBackward(const QString& text, const QString& set, int from, bool wanted) {
  const bool inside = from >= 0 && from < text.size();
  for (int i = inside ? from : static_cast<int>(text.size()) - 1; i >= 0; --i) {
    if (set.contains(text.at(i)) == wanted) {
      return i;
    }
  }
  return -1;
}

}  // namespace

qint64 qstringToInt64(const QString& text, bool* ok, int base, int* end) {
  return parseAs<qint64, qint64>(text, ok, base, end);
}

quint64 qstringToUInt64(const QString& text, bool* ok, int base, int* end) {
  return parseAs<quint64, quint64>(text, ok, base, end);
}

short qstringToShort(const QString& text, bool* ok, int base, int* end) {
  return parseAs<qint64, short>(text, ok, base, end);
}

unsigned short qstringToUShort(const QString& text, bool* ok, int base, int* end) {
  return parseAs<quint64, unsigned short>(text, ok, base, end);
}

int qstringToInt(const QString& text, bool* ok, int base, int* end) {
  return parseAs<qint64, int>(text, ok, base, end);
}

unsigned int qstringToUInt(const QString& text, bool* ok, int base, int* end) {
  return parseAs<quint64, unsigned int>(text, ok, base, end);
}

double qstringToDouble(const QString& text, bool* ok, int* end) {
  double value = 0;
  const bool parsed = parseFloating(text, end, &value);
  if (ok != nullptr) {
    *ok = parsed;
  }
  return parsed ? value : 0.0;
}

float qstringToFloat(const QString& text, bool* ok, int* end) {
  return static_cast<float>(qstringToDouble(text, ok, end));
}

int findFirstOf(const QString& text, const QString& set, int from) {
  return findForward(text, set, from, true);
}

int findFirstNotOf(const QString& text, const QString& set, int from) {
  return findForward(text, set, from, false);
}

int findLastOf(const QString& text, const QString& set, int from) {
  return findBackward(text, set, from, true);
}

int findLastNotOf(const QString& text, const QString& set, int from) {
  return findBackward(text, set, from, false);
}

}  // namespace Kyr

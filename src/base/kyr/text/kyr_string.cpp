#include <kyr/text/KyrString.h>

#include <kyr/text/numeric_p.h>

#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <cstring>
#include <initializer_list>
#include <limits>
#include <string_view>
#include <type_traits>

namespace Kyr {

namespace {

/// How many placeholder numbers there are, "%0" to "%9".
constexpr unsigned placeholderNumbers = 10;

struct Placeholder {
  const char* at;  ///< its '%'; null for none
  unsigned number;
};

/// Shows all placeholders from left to right; a '%' as last byte is none.
template <class Visit>
void visitPlaceholders(const std::string& text, Visit visit) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (end - at > 1) {
    at = static_cast<const char*>(std::memchr(at, '%', static_cast<std::size_t>(end - at - 1)));
    if (at == nullptr) {
      return;
    }
    const auto number = static_cast<unsigned>(static_cast<unsigned char>(at[1])) - '0';
    if (number < placeholderNumbers) {
      visit(Placeholder{at, number});
      ++at;
    }
    ++at;
  }
}

/// The leftmost of the placeholders with the lowest number.
Placeholder lowestPlaceholder(const std::string& text) {
  Placeholder lowest = {nullptr, placeholderNumbers};
  visitPlaceholders(text, [&lowest](const Placeholder& place) {
    if (place.number < lowest.number) {
      lowest = place;
    }
  });
  return lowest;
}

/// Number of fill bytes that bring a text to a field's width.
std::size_t paddingOf(std::size_t size, int fieldWidth) {
  const auto magnitude =
      fieldWidth < 0 ? 0U - static_cast<unsigned>(fieldWidth) : static_cast<unsigned>(fieldWidth);
  return magnitude > size ? magnitude - size : 0;
}

KString substitute(const KString& text, std::string_view a, int fieldWidth, char fill = ' ') {
  const Placeholder place = lowestPlaceholder(text);
  if (place.at == nullptr) {
    return text;
  }
  const std::size_t padding = paddingOf(a.size(), fieldWidth);
  const auto before = static_cast<std::size_t>(place.at - text.data());
  KString result;
  result.reserve(text.size() - 2 + a.size() + padding);
  result.append(text.data(), before);
  result.append(fieldWidth > 0 ? padding : 0, fill);
  result.append(a.data(), a.size());
  result.append(fieldWidth < 0 ? padding : 0, fill);
  result.append(place.at + 2, text.size() - before - 2);
  return result;
}

using Placeholders = QVarLengthArray<Placeholder, 16>;

Placeholders allPlaceholders(const KString& text) {
  Placeholders all;
  visitPlaceholders(text, [&all](const Placeholder& place) { all.append(place); });
  return all;
}

using Arguments = std::initializer_list<const std::string*>;
using Assigned = std::array<const std::string*, placeholderNumbers>;

/// Gives each placeholder number its argument, null where there is none.
Assigned assignArguments(const Placeholders& all, Arguments arguments) {
  unsigned present = 0;
  for (const Placeholder& place : all) {
    present |= 1U << place.number;
  }
  Assigned assigned = {};
  const auto* argument = arguments.begin();
  for (unsigned i = 0; present >> i != 0 && argument != arguments.end(); ++i) {
    if ((present >> i) % 2 == 1) {
      assigned[i] = *argument++;
    }
  }
  return assigned;
}

/// Copies bytes and gives the place behind the copy.
char* copyBytes(const char* from, const char* to, char* target) {
  const auto size = static_cast<std::size_t>(to - from);
  std::memcpy(target, from, size);
  return target + size;
}

/// A string of zero bytes for \a size that may exceed what the memory can address; it is the
/// string then that throws.
KString zeros(quint64 size) {
  return KString(static_cast<std::size_t>(std::min<quint64>(size, KString::npos)), '\0');
}

KString multiArg(const KString& text, Arguments arguments) {
  const Placeholders all = allPlaceholders(text);
  const Assigned assigned = assignArguments(all, arguments);
  quint64 size = text.size();
  for (const Placeholder& place : all) {
    if (const std::string* const argument = assigned[place.number]) {
      size = size - 2 + argument->size();
    }
  }
  KString result = zeros(size);
  char* target = result.data();
  const char* copied = text.data();
  for (const Placeholder& place : all) {
    if (const std::string* const argument = assigned[place.number]) {
      target = copyBytes(copied, place.at, target);
      target = copyBytes(argument->data(), argument->data() + argument->size(), target);
      copied = place.at + 2;
    }
  }
  copyBytes(copied, text.data() + text.size(), target);
  return result;
}

/// A formatted number, in memory of its own.
template <std::size_t capacity>
struct Digits {
  std::array<char, capacity> text;
  std::size_t size;
  std::string_view view() const { return {text.data(), size}; }
};

Digits<Numeric::doubleCapacity> digitsOf(double value, char format, int precision) {
  Digits<Numeric::doubleCapacity> digits;
  digits.size = Numeric::formatDouble(value, format, precision, digits.text.data());
  return digits;
}

template <class Integer>
Digits<Numeric::integerCapacity> digitsOf(Integer value, int base) {
  constexpr bool isSigned = std::numeric_limits<Integer>::is_signed;
  using Wide = std::conditional_t<isSigned, qint64, quint64>;
  Digits<Numeric::integerCapacity> digits;
  digits.size = Numeric::formatInteger(static_cast<Wide>(value), base, digits.text.data());
  return digits;
}

template <std::size_t capacity>
KString stringOf(const Digits<capacity>& digits) {
  return KString(digits.text.data(), digits.size);
}

template <std::size_t capacity>
KString& assignTo(KString& text, const Digits<capacity>& digits) {
  return text.assign(digits.text.data(), digits.size);
}

/// Writes the digits in the string itself: copying digits that were just written costs more than
/// writing them.
KString shortNumber(quint32 magnitude, bool negative) {
  static constexpr std::array<char, Numeric::shortCapacity> room = {};
  KString text(room.data(), room.size());
  text.erase(Numeric::formatShort(magnitude, negative, text.data()));
  return text;
}

using Numeric::noDigit;

unsigned digitOf(char character, unsigned base) {
  const unsigned code = static_cast<unsigned char>(character);
  const unsigned digit = code - '0';
  if (base <= 10) {
    // The byte behind the last digit passes as one, which is given (docs/decisions/0006).
    return digit <= base ? digit : noDigit;
  }
  if (digit < 10) {
    return digit;
  }
  return code >= 'a' && code - 'a' < base - 10 ? code - 'a' + 10 : noDigit;
}

/// The largest magnitude of a type behind a sign.
template <class Integer>
constexpr quint64 largestMagnitude(bool negative) {
  constexpr auto largest = static_cast<quint64>(std::numeric_limits<Integer>::max());
  if (!negative) {
    return largest;
  }
  return std::numeric_limits<Integer>::is_signed ? largest + 1 : 0;
}

/// \return the first byte behind the number; null when there is none
template <class Integer>
const char* readInteger(const char* at, const char* end, int base, Integer* value) {
  while (at != end && Numeric::isSpace(static_cast<unsigned char>(*at))) {
    ++at;
  }
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) {
    ++at;
  }
  const Numeric::Most most = {largestMagnitude<Integer>(negative)};
  quint64 magnitude = 0;
  at = Numeric::readDigits(
      at, end, base, most, [](char byte, unsigned known) { return digitOf(byte, known); },
      &magnitude);
  *value = static_cast<Integer>(negative ? 0 - magnitude : magnitude);
  return at;
}

/// Settles what may follow a number that ends at \a stop.
bool acceptRest(const std::string& text, const char* stop, unsigned* end) {
  if (end != nullptr) {
    *end = static_cast<unsigned>(stop - text.data());
    return true;
  }
  return Numeric::onlyBlanks(stop, text.data() + text.size());
}

template <class Wide, class Narrow>
Narrow parseAs(const std::string& text, bool* ok, int base, unsigned* end) {
  Wide value = 0;
  const char* const stop = readInteger(text.data(), text.data() + text.size(), base, &value);
  const bool fits = stop != nullptr && acceptRest(text, stop, end) &&
                    value >= Wide(std::numeric_limits<Narrow>::min()) &&
                    value <= Wide(std::numeric_limits<Narrow>::max());
  if (ok != nullptr) {
    *ok = fits;
  }
  return fits ? static_cast<Narrow>(value) : Narrow(0);
}

}  // namespace

KString KString::substr(size_type pos, size_type n) const {
  return KString(std::string::substr(pos, n));
}

KString KString::right(size_type n) const {
  return n < size() ? substr(size() - n, n) : *this;
}

KString KString::leftJustified(size_type width, char fill, bool truncate) const {
  KString result = truncate ? left(width) : *this;
  if (result.size() < width) {
    result.append(width - result.size(), fill);
  }
  return result;
}

KString KString::rightJustified(size_type width, char fill, bool truncate) const {
  KString result(size() < width ? width - size() : 0, fill);
  result.append(*this, 0, truncate ? width : npos);
  return result;
}

KString KString::arg(const std::string& a, int fieldWidth, char fill) const {
  return substitute(*this, a, fieldWidth, fill);
}

KString KString::arg(const std::string& a, int fieldWidth) const {
  return substitute(*this, a, fieldWidth);
}

KString KString::arg(char c, int fieldWidth) const {
  return substitute(*this, std::string_view(&c, 1), fieldWidth);
}

KString KString::arg(short a, int fieldWidth, int base) const {
  return substitute(*this, digitsOf(a, base).view(), fieldWidth);
}

KString KString::arg(unsigned short a, int fieldWidth, int base) const {
  return substitute(*this, digitsOf(a, base).view(), fieldWidth);
}

KString KString::arg(int a, int fieldWidth, int base) const {
  return substitute(*this, digitsOf(a, base).view(), fieldWidth);
}

KString KString::arg(unsigned a, int fieldWidth, int base) const {
  return substitute(*this, digitsOf(a, base).view(), fieldWidth);
}

KString KString::arg(long a, int fieldWidth, int base) const {
  return substitute(*this, digitsOf(a, base).view(), fieldWidth);
}

KString KString::arg(unsigned long a, int fieldWidth, int base) const {
  return substitute(*this, digitsOf(a, base).view(), fieldWidth);
}

KString KString::arg(long long a, int fieldWidth, int base) const {
  return substitute(*this, digitsOf(a, base).view(), fieldWidth);
}

KString KString::arg(unsigned long long a, int fieldWidth, int base) const {
  return substitute(*this, digitsOf(a, base).view(), fieldWidth);
}

KString KString::arg(double a, int fieldWidth, char format, int precision) const {
  return substitute(*this, digitsOf(a, format, precision).view(), fieldWidth);
}

KString KString::arg(const std::string& a1, const std::string& a2) const {
  return multiArg(*this, {&a1, &a2});
}

KString KString::arg(const std::string& a1, const std::string& a2, const std::string& a3) const {
  return multiArg(*this, {&a1, &a2, &a3});
}

KString KString::arg(const std::string& a1, const std::string& a2, const std::string& a3,
                     const std::string& a4) const {
  return multiArg(*this, {&a1, &a2, &a3, &a4});
}

KString& KString::setNum(short value, int base) {
  return assignTo(*this, digitsOf(value, base));
}

KString& KString::setNum(unsigned short value, int base) {
  return assignTo(*this, digitsOf(value, base));
}

KString& KString::setNum(int value, int base) {
  return assignTo(*this, digitsOf(value, base));
}

KString& KString::setNum(unsigned value, int base) {
  return assignTo(*this, digitsOf(value, base));
}

KString& KString::setNum(long value, int base) {
  return assignTo(*this, digitsOf(value, base));
}

KString& KString::setNum(unsigned long value, int base) {
  return assignTo(*this, digitsOf(value, base));
}

KString& KString::setNum(long long value, int base) {
  return assignTo(*this, digitsOf(value, base));
}

KString& KString::setNum(unsigned long long value, int base) {
  return assignTo(*this, digitsOf(value, base));
}

KString& KString::setNum(float value, char format, int precision) {
  return setNum(static_cast<double>(value), format, precision);
}

KString& KString::setNum(double value, char format, int precision) {
  return assignTo(*this, digitsOf(value, format, precision));
}

KString KString::number(int value, int base) {
  if (Numeric::effectiveBase(base) != 10) {
    return stringOf(digitsOf(value, base));
  }
  const auto bits = static_cast<unsigned>(value);
  return shortNumber(value < 0 ? 0 - bits : bits, value < 0);
}

KString KString::number(unsigned value, int base) {
  return Numeric::effectiveBase(base) == 10 ? shortNumber(value, false)
                                            : stringOf(digitsOf(value, base));
}

KString KString::number(long value, int base) {
  return stringOf(digitsOf(value, base));
}

KString KString::number(unsigned long value, int base) {
  return stringOf(digitsOf(value, base));
}

KString KString::number(long long value, int base) {
  return stringOf(digitsOf(value, base));
}

KString KString::number(unsigned long long value, int base) {
  return stringOf(digitsOf(value, base));
}

KString KString::number(double value, char format, int precision) {
  return stringOf(digitsOf(value, format, precision));
}

short KString::toShort(bool* ok, int base, unsigned* end) const {
  return parseAs<qint64, short>(*this, ok, base, end);
}

unsigned short KString::toUShort(bool* ok, int base, unsigned* end) const {
  return parseAs<quint64, unsigned short>(*this, ok, base, end);
}

int KString::toInt(bool* ok, int base, unsigned* end) const {
  return parseAs<qint64, int>(*this, ok, base, end);
}

unsigned KString::toUInt(bool* ok, int base, unsigned* end) const {
  return parseAs<quint64, unsigned>(*this, ok, base, end);
}

long long KString::toInt64(bool* ok, int base, unsigned* end) const {
  return parseAs<qint64, long long>(*this, ok, base, end);
}

unsigned long long KString::toUInt64(bool* ok, int base, unsigned* end) const {
  return parseAs<quint64, unsigned long long>(*this, ok, base, end);
}

double KString::toDouble(bool* ok, unsigned* end) const {
  const char* stop = nullptr;
  const double value = Numeric::parseDouble(data(), data() + size(), &stop);
  const bool parsed = (end == nullptr || stop != data()) && acceptRest(*this, stop, end);
  if (ok != nullptr) {
    *ok = parsed;
  }
  return parsed ? value : 0.0;
}

float KString::toFloat(bool* ok, unsigned* end) const {
  return static_cast<float>(toDouble(ok, end));
}

}  // namespace Kyr

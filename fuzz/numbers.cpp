#include "Fuzz.h"

#include <kyr/text/KyrParse.h>
#include <kyr/text/KyrString.h>

#include <cerrno>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace KyrFuzz {

namespace {

bool sameBits(double a, double b) {
  return (a == b && std::signbit(a) == std::signbit(b)) || (std::isnan(a) && std::isnan(b));
}

bool isBlank(char byte) {
  return byte == ' ' || byte == '\t';
}

bool isRestBlank(const std::string& text, std::size_t from) {
  return std::all_of(text.begin() + static_cast<std::ptrdiff_t>(from), text.end(), isBlank);
}

/// What is read of a text is what strtod() reads in the locale "C".
void checkDouble(const std::string& text) {
  char* stop = nullptr;
  const double expected = std::strtod(text.c_str(), &stop);
  const auto length = static_cast<int>(stop - text.c_str());
  bool ok = false;
  int end = -1;
  const QString wide = QString::fromLatin1(text.data(), static_cast<int>(text.size()));
  expect(sameBits(Kyr::qstringToDouble(wide, &ok, &end), length > 0 ? expected : 0.0) &&
             ok == (length > 0) && (!ok || end == length),
         "qstringToDouble reads as strtod");
  unsigned narrowEnd = 0;
  expect(sameBits(Kyr::KString(text).toDouble(&ok, &narrowEnd), length > 0 ? expected : 0.0) &&
             ok == (length > 0) && (!ok || narrowEnd == unsigned(length)),
         "KString::toDouble reads as strtod");
  const bool whole = length > 0 ? isRestBlank(text, stop - text.c_str()) : isRestBlank(text, 0);
  Kyr::qstringToDouble(wide, &ok);
  expect(ok == whole, "without an end index only blanks may follow");
  const bool refused = !refusal([&] { Kyr::expectDouble(wide); }).isNull();
  expect(refused != (length > 0 && whole), "expectDouble wants a number and nothing else");
}

/// What is read of a text is what strtoll() reads.
void checkInteger(const std::string& text) {
  errno = 0;
  char* stop = nullptr;
  const long long expected = std::strtoll(text.c_str(), &stop, 10);
  const auto length = static_cast<int>(stop - text.c_str());
  const bool fits = length > 0 && errno == 0;
  bool ok = false;
  int end = -1;
  const qint64 value = Kyr::qstringToInt64(QString::fromLatin1(text.c_str()), &ok, 10, &end);
  const bool sameSpace = text.find_first_of("\x85\xA0\x1C\x1D\x1E\x1F") == std::string::npos;
  expect(!sameSpace || (ok == fits && (!ok || (value == expected && end == length))),
         "qstringToInt64 reads as strtoll");
  unsigned narrowEnd = 0;
  const bool sameDigits = text.find(':') == std::string::npos;
  const long long narrow = Kyr::KString(text).toInt64(&ok, 10, &narrowEnd);
  expect(!sameDigits || (ok == fits && (!ok || (narrow == expected && int(narrowEnd) == length))),
         "KString::toInt64 reads as strtoll");
}

void checkWrittenDouble(double value, char format, int precision) {
  const std::string shape = std::string("%.*") + format;
  std::string expected(512, '\0');
  expected.resize(static_cast<std::size_t>(
      std::snprintf(expected.data(), expected.size(), shape.c_str(), precision, value)));
  expect(Kyr::KString::number(value, format, precision) == expected, "numbers read as from printf");
  expect(sameBits(Kyr::KString::number(value, 'g', 17).toDouble(), value), "17 digits lead back");
}

void checkWrittenInteger(long long value, int base) {
  bool ok = false;
  const Kyr::KString text = Kyr::KString::number(value, base);
  const bool isRead = value != std::numeric_limits<long long>::min() || (base & (base - 1)) != 0;
  const QString wide = QString::fromStdString(text);
  expect(Kyr::qstringToInt64(wide, &ok, base) == (isRead ? value : 0) && ok == isRead,
         "integers of any base lead back");
  expect(Kyr::qstringToUInt64(wide, &ok, base) == (value < 0 ? 0 : quint64(value)) &&
             ok == (value >= 0),
         "the unsigned parser takes no minus");
  expect(base != 10 || text == std::to_string(value), "integers read as from the standard library");
}

}  // namespace

void harness(Choices input) {
  switch (input.upTo(2)) {
    case 0: {
      const std::string text(input.rest());
      const std::string visible = text.substr(0, text.find('\0'));
      checkDouble(visible);
      return checkInteger(visible);
    }
    case 1: {
      const char format = "fFeEgG"[input.upTo(5)];
      const auto precision = static_cast<int>(input.upTo(99));
      return checkWrittenDouble(input.number<double>(), format, precision);
    }
    default: {
      const auto base = static_cast<int>(2 + input.upTo(34));
      checkWrittenInteger(input.number<long long>(), base);
    }
  }
}

}  // namespace KyrFuzz

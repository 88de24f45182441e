#include <kyr/core/file_parse_error_p.h>
#include <kyr/text/KyrParse.h>
#include <kyr/text/number_fault_p.h>

#include <QtGlobal>

#include <cmath>
#include <limits>
#include <utility>

namespace Kyr {

namespace {

constexpr const char* missing = QT_TRANSLATE_NOOP("Kyr_FileParse", "a value is missing");
constexpr const char* noInteger = QT_TRANSLATE_NOOP("Kyr_FileParse", "\"%1\" is no integer");
constexpr const char* noNumber = QT_TRANSLATE_NOOP("Kyr_FileParse", "\"%1\" is no number");
constexpr const char* outOfRange = QT_TRANSLATE_NOOP("Kyr_FileParse", "\"%1\" is not within %3");

constexpr float largestFloat = std::numeric_limits<float>::max();

/// The index of the first character from \a from on that is no white space.
int skipSpace(const QString& text, int from) {
  while (from < text.size() && text[from].isSpace()) {
    ++from;
  }
  return from;
}

bool isDigit(const QString& text, int index, int base) {
  bool ok = false;
  qstringToUInt64(text.mid(index, 1), &ok, base);
  return ok;
}

/// \throws FileParse::Error
[[noreturn]] void refuse(const QString& text, const NumberFault& fault) {
  FileParse::Finding finding;
  const QChar* const begin = text.constData();
  finding.place.column = FileParse::countCharacters(begin, begin + fault.index) + 1;
  finding.place.token = text.trimmed().left(FileParse::longestToken);
  finding.reason = fault.reason;
  finding.detail = fault.detail;
  const QString message = FileParse::sentence(finding);
  FileParse::raise(std::move(finding), message);
}

template <class Integer>
Integer expectInteger(const QString& text, int base,
                      Integer (*parse)(const QString&, bool*, int, int*)) {
  bool ok = false;
  const Integer value = parse(text, &ok, base, nullptr);
  if (!ok) {
    using Limits = std::numeric_limits<Integer>;
    refuse(text, integerFault(text, base, qint64(Limits::min()), quint64(Limits::max())));
  }
  return value;
}

}  // namespace

NumberFault integerFault(const QString& text, int base, qint64 least, quint64 most, Rest rest) {
  const int begin = skipSpace(text, 0);
  if (begin == text.size()) {
    return {begin, missing, {}};
  }
  int end = begin + (text[begin] == '-' || text[begin] == '+' ? 1 : 0);
  if (!isDigit(text, end, base)) {
    return {end, noInteger, {}};
  }
  while (isDigit(text, end, base)) {
    ++end;
  }
  if (rest == Rest::Nothing && skipSpace(text, end) < text.size()) {
    return {skipSpace(text, end), noInteger, {}};
  }
  return {begin, outOfRange, QString("%1 ... %2").arg(least).arg(most)};
}

NumberFault numberFault(const QString& text) {
  const int begin = skipSpace(text, 0);
  if (begin == text.size()) {
    return {begin, missing, {}};
  }
  bool ok = false;
  int end = begin;
  qstringToDouble(text, &ok, &end);
  return {skipSpace(text, end), noNumber, {}};
}

bool isBeyondFloat(double value) {
  return std::isfinite(value) && std::abs(value) > double(largestFloat);
}

NumberFault beyondFloat(const QString& text) {
  const QString most = QString::number(double(largestFloat), 'g', 8);
  return {skipSpace(text, 0), outOfRange, QString("-%1 ... %1").arg(most)};
}

qint64 expectInt64(const QString& text, int base) {
  return expectInteger(text, base, qstringToInt64);
}

quint64 expectUInt64(const QString& text, int base) {
  return expectInteger(text, base, qstringToUInt64);
}

int expectInt(const QString& text, int base) {
  return expectInteger(text, base, qstringToInt);
}

unsigned int expectUInt(const QString& text, int base) {
  return expectInteger(text, base, qstringToUInt);
}

double expectDouble(const QString& text) {
  bool ok = false;
  const double value = qstringToDouble(text, &ok);
  if (!ok || skipSpace(text, 0) == text.size()) {
    refuse(text, numberFault(text));
  }
  return value;
}

float expectFloat(const QString& text) {
  const double value = expectDouble(text);
  if (isBeyondFloat(value)) {
    refuse(text, beyondFloat(text));
  }
  return static_cast<float>(value);
}

}  // namespace Kyr

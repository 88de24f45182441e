#include "commands.h"
#include "input.h"
#include "output.h"

#include <kyr/i18n/KyrTranslate.h>

#include <QString>
#include <QStringView>

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace KyrTool {

namespace {

constexpr std::size_t longestLine = 1U << 29U;

/// A line as it stands, without its end; bytes that are no UTF-8 come out as they came in.
struct Line {
  QString key;
  std::string_view bytes;
};

/// Takes the digits at the front of a text, or its characters up to the next digit.
QStringView takePart(QStringView* text) {
  const bool isNumber = text->front().isDigit();
  const auto end = std::find_if(text->begin(), text->end(),
                                [&](QChar next) { return next.isDigit() != isNumber; });
  const QStringView part = text->left(end - text->begin());
  *text = text->mid(part.size());
  return part;
}

/// Compares numbers by value; of equal ones, those with more leading zeros come first.
int compareNumbers(QStringView left, QStringView right) {
  const auto value = [](QStringView digits) {
    const auto isZero = [](QChar digit) { return digit.digitValue() == 0; };
    return digits.mid(std::find_if_not(digits.begin(), digits.end(), isZero) - digits.begin());
  };
  const QStringView a = value(left);
  const QStringView b = value(right);
  if (a.size() != b.size()) {
    return a.size() < b.size() ? -1 : 1;
  }
  const auto [x, y] = std::mismatch(a.begin(), a.end(), b.begin(), [](QChar one, QChar other) {
    return one.digitValue() == other.digitValue();
  });
  return x != a.end() ? x->digitValue() - y->digitValue() : int(right.size() - left.size());
}

/// The natural order of NumString, in which numbers beyond 2147483647 have their values, too.
bool isLess(const Line& left, const Line& right) {
  QStringView a = left.key;
  QStringView b = right.key;
  while (!a.isEmpty() && !b.isEmpty()) {
    if (a.front().isDigit() != b.front().isDigit()) {
      return a.front().isDigit();
    }
    const bool areNumbers = a.front().isDigit();
    const QStringView part = takePart(&a);
    const QStringView other = takePart(&b);
    const int order = areNumbers ? compareNumbers(part, other) : part.compare(other);
    if (order != 0) {
      return order < 0;
    }
  }
  return a.isEmpty() && !b.isEmpty();
}

std::string readAll(Input& input) {
  constexpr std::size_t pieceSize = 1U << 16U;
  std::string text;
  Kyr::StructVector<unsigned char> piece;
  do {
    input.read(piece, pieceSize);
    text.append(piece.begin(), piece.end());
  } while (piece.size() == pieceSize);
  return text;
}

Line lineOf(std::string_view bytes) {
  const bool carriageReturn = !bytes.empty() && bytes.back() == '\r';
  const std::size_t size = bytes.size() - (carriageReturn ? 1 : 0);
  return {QString::fromUtf8(bytes.data(), static_cast<int>(size)), bytes};
}

std::vector<Line> linesOf(std::string_view text, const QString& name) {
  std::vector<Line> lines;
  while (!text.empty()) {
    const std::size_t size = std::min(text.find('\n'), text.size());
    if (size > longestLine) {
      throw FileError{Kyr::translate("Kyr_tool", "%1: a line is too long").arg(name)};
    }
    lines.push_back(lineOf(text.substr(0, size)));
    text.remove_prefix(std::min(size + 1, text.size()));
  }
  return lines;
}

}  // namespace

int sortLines(const Arguments& arguments) {
  Input input(arguments.count() > 0 ? arguments[0] : "-");
  const std::string text = readAll(input);
  std::vector<Line> lines = linesOf(text, input.name());
  std::stable_sort(lines.begin(), lines.end(), isLess);
  for (const Line& line : lines) {
    writeBytes(line.bytes.data(), line.bytes.size());
    writeBytes("\n", 1);
  }
  return Fine;
}

}  // namespace KyrTool

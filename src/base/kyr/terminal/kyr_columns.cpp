#include <kyr/terminal/KyrColumns.h>

#include <QChar>
#include <QTextBoundaryFinder>
#include <QVector>

#include <algorithm>

namespace Kyr {

namespace {

/// Whether terminals draw a letter or sign in two columns.
bool isWide(uint character) {
  constexpr struct {
    uint first, last;
  } ranges[] = {{0x1100, 0x115F},   {0x2E80, 0xA4CF},  {0xAC00, 0xD7A3}, {0xF900, 0xFAFF},
                {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},  {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F},
                {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD}};
  return std::any_of(std::begin(ranges), std::end(ranges), [character](const auto& range) {
    return range.first <= character && character <= range.last;
  });
}

int columnsOf(uint character) {
  const QChar::Category category = QChar::category(character);
  const bool isPart = category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing ||
                      category == QChar::Other_Format;
  return isPart ? 0 : isWide(character) ? 2 : 1;
}

/// Whether a wide letter is beside this place; elsewhere lines end at blanks only, not in "a-b".
bool isBesideWide(const QString& word, QString::size_type place) {
  return isWide(word[place - 1].unicode()) || isWide(word[place].unicode());
}

}  // namespace

int columnsOf(const QString& text) {
  int width = 0;
  for (const uint character : text.toUcs4()) {
    width += columnsOf(character);
  }
  return width;
}

QString filledTo(const QString& text, int columns) {
  return text + QString(std::max(columns - columnsOf(text), 0), ' ');
}

QStringList breakablePieces(const QString& word) {
  QStringList pieces;
  QString::size_type begin = 0;
  QTextBoundaryFinder finder(QTextBoundaryFinder::Line, word);
  for (auto place = finder.toNextBoundary(); place > 0; place = finder.toNextBoundary()) {
    if (place == word.size() || isBesideWide(word, place)) {
      pieces << word.mid(begin, place - begin);
      begin = place;
    }
  }
  return pieces;
}

}  // namespace Kyr

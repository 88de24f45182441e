#include <kyr/terminal/KyrColumns.h>
#include <kyr/terminal/progress_line_p.h>

#include <QChar>
#include <QVector>

#include <algorithm>
#include <cmath>

namespace Kyr::ProgressLine {

namespace {

/// A text without what would move the cursor elsewhere.
QString inOneLine(QString text) {
  for (QChar& character : text) {
    if (character.category() == QChar::Other_Control) {
      character = QChar(' ');
    }
  }
  return text;
}

/// The text with spaces behind it, or its beginning with an ellipsis, in so many columns.
QString fitted(const QString& text, int width) {
  QString result;
  int used = 0;
  const bool fits = columnsOf(text) <= width;
  for (const uint character : text.toUcs4()) {
    const QString letter = QString::fromUcs4(&character, 1);
    if (used + columnsOf(letter) > (fits ? width : width - 3)) {
      break;
    }
    result += letter;
    used += columnsOf(letter);
  }
  result += fits ? QString() : QString(std::min(3, std::max(width - used, 0)), '.');
  return filledTo(result, width);
}

}  // namespace

QString remaining(int percent, double seconds) {
  constexpr double tooEarly = 1;  // second, before which nothing is known
  if (percent <= 0 || percent >= 100 || seconds < tooEarly) {
    return {};
  }
  const auto left = static_cast<qint64>(std::ceil(seconds * (100 - percent) / percent));
  if (left >= 360000) {
    return {};
  }
  const QString minutes = QString::number(left / 60 % 60);
  const QString rest = QString("%1").arg(left % 60, 2, 10, QChar('0'));
  return left < 3600
             ? minutes + ':' + rest
             : QString("%1:%2:%3").arg(left / 3600).arg(minutes.rightJustified(2, '0'), rest);
}

QString plain(const QString& text, int percent) {
  return QString("%1% ").arg(percent, 3) + inOneLine(text);
}

QString bar(const QString& text, int percent, double seconds, int width) {
  constexpr int widest = 100;
  constexpr int numbers = 15;  // " 100%" and "  99:59:59"
  const int all = std::min(width, widest);
  const QString end =
      QString(" %1%  ").arg(percent, 3) + remaining(percent, seconds).leftJustified(8);
  if (all < numbers + 12) {
    return QString(" %1%").arg(percent, 3).left(std::max(width, 0)).trimmed();
  }
  const int barWidth = (all - numbers) / 3;
  const int textWidth = all - numbers - barWidth - 3;
  const QString filled(percent * barWidth / 100, '#');
  return fitted(inOneLine(text), textWidth) + " [" + filled.leftJustified(barWidth, '.') + ']' +
         end;
}

}  // namespace Kyr::ProgressLine

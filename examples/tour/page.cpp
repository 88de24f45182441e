#include "page.h"

#include "console_p.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/terminal/KyrColumns.h>

#include <algorithm>
#include <cstdio>

namespace Tour {

namespace {

constexpr int pageWidth = 80;
constexpr int nameWidth = 19;

void print(const QString& line) {
  QString printed = line;
  while (printed.endsWith(' ')) {
    printed.chop(1);
  }
  std::puts(encoded(printed).constData());
}

/// Breaks a text between words into lines of at most \a width columns; a longer word stands
/// alone.
QStringList wrapped(const QString& text, int width) {
  QStringList lines;
  QString line;
  for (const QString& word : text.split(' ', Qt::SkipEmptyParts)) {
    QString gap = line.isEmpty() ? "" : " ";
    for (const QString& piece : Kyr::breakablePieces(word)) {
      if (!line.isEmpty() && Kyr::columnsOf(line + gap + piece) > width) {
        lines << line;
        line.clear();
        gap.clear();
      }
      line += gap + piece;
      gap.clear();
    }
  }
  return lines << line;
}

void draw(const QString& line) {
  std::fputs(encoded('\r' + Kyr::filledTo(line, pageWidth - 1)).constData(), stdout);
  std::fflush(stdout);
}

}  // namespace

void Page::title(const QString& text) {
  print(text);
  print(QString(std::min(pageWidth, Kyr::columnsOf(text)), '='));
}

void Page::section(const QString& text) {
  print(QString("\n%1. %2").arg(++_sections).arg(text));
}

void Page::end(const QString& text) {
  print('\n' + text);
}

void Page::row(const QString& name, const QString& value) {
  QString before = Kyr::filledTo("   " + name, nameWidth) + ' ';
  const QStringList paragraphs = value.split('\n');
  for (const QString& paragraph : paragraphs) {
    for (const QString& line : wrapped(paragraph, pageWidth - nameWidth - 1)) {
      print(before + line);
      before = QString(Kyr::columnsOf(before), ' ');
    }
  }
}

void Page::cells(const QString& name, const QStringList& values) {
  QString line = Kyr::filledTo("   " + name, nameWidth);
  const int width = (pageWidth - nameWidth) / std::max(1, static_cast<int>(values.size()));
  for (const QString& value : values) {
    const QString cell = value.rightJustified(std::max(width, static_cast<int>(value.size()) + 1));
    if (Kyr::columnsOf(line + cell) > pageWidth) {
      print(line);
      line = QString(nameWidth, ' ');
    }
    line += cell;
  }
  print(line);
}

void Page::text(const QString& text) {
  for (const QString& line : wrapped(text, pageWidth - 3)) {
    print("   " + line);
  }
}

void Page::progress(int percent, const QString& what) {
  constexpr int barWidth = 20;
  if (_onTerminal) {
    const QString bar = QString(percent * barWidth / 100, '#').leftJustified(barWidth, '.');
    draw(QString("   %1 [%2] %3%").arg(Kyr::filledTo(what, nameWidth * 2), bar).arg(percent, 3));
  } else if (!what.isEmpty() && what != _progressText) {
    row(Kyr::translate("Tour", "working"), what);
    std::fflush(stdout);
  }
  _progressText = what;
}

void Page::endProgress() {
  if (_onTerminal && !_progressText.isEmpty()) {
    draw({});
    std::fputs("\r", stdout);
  }
  _progressText.clear();
}

}  // namespace Tour

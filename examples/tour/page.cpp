#include "page.h"

#include <QLocale>

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
  std::puts(printed.toLocal8Bit().constData());
}

/// Breaks a text between words into lines of at most \a width characters; a longer word
/// stands alone.
QStringList wrapped(const QString& text, int width) {
  QStringList lines;
  QString line;
  for (const QString& word : text.split(' ', Qt::SkipEmptyParts)) {
    if (!line.isEmpty() && line.size() + 1 + word.size() > width) {
      lines << line;
      line.clear();
    }
    line += line.isEmpty() ? word : ' ' + word;
  }
  return lines << line;
}

QString fixed(double value, int decimals) {
  return QString::number(value, 'f', decimals);
}

}  // namespace

void Page::title(const QString& text) {
  print(text);
  print(QString(std::min<int>(pageWidth, text.size()), '='));
}

void Page::section(const QString& text) {
  print(QString("\n%1. %2").arg(++_sections).arg(text));
}

void Page::end(const QString& text) {
  print('\n' + text);
}

void Page::row(const QString& name, const QString& value) {
  QString before = ("   " + name).leftJustified(nameWidth) + ' ';
  const QStringList paragraphs = value.split('\n');
  for (const QString& paragraph : paragraphs) {
    for (const QString& line : wrapped(paragraph, pageWidth - nameWidth - 1)) {
      print(before + line);
      before.fill(' ');
    }
  }
}

void Page::cells(const QString& name, const QStringList& values) {
  QString line = ("   " + name).leftJustified(nameWidth);
  const int width = (pageWidth - nameWidth) / std::max<int>(1, values.size());
  for (const QString& value : values) {
    const QString cell = value.rightJustified(std::max<int>(width, value.size() + 1));
    if (line.size() + cell.size() > pageWidth) {
      print(line);
      line.fill(' ', nameWidth);
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

QString counted(qint64 number) {
  return QLocale(QLocale::English, QLocale::UnitedStates).toString(number);
}

QString counted(qint64 number, const QString& thing) {
  return counted(number) + ' ' + thing + (number == 1 ? "" : "s");
}

QString bytes(qint64 count) {
  if (count < 10000) {
    return counted(count, "byte");
  }
  const double kibibytes = static_cast<double>(count) / 1024;
  return kibibytes < 1000 ? fixed(kibibytes, 1) + " KiB" : fixed(kibibytes / 1024, 2) + " MiB";
}

QString speed(qint64 count, double seconds) {
  if (seconds < 0.002) {
    return "in less than 2 ms";
  }
  const double rate = static_cast<double>(count) / 1e6 / seconds;
  return QString("at %1 MB/s").arg(fixed(rate, rate < 10 ? 1 : 0));
}

}  // namespace Tour

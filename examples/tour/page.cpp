#include "page.h"

#include <QLocale>

#include <algorithm>
#include <cstdio>

namespace Tour {

namespace {

constexpr int pageWidth = 80;
constexpr int nameWidth = 19;

void print(const QString& line) {
  std::puts(line.toLocal8Bit().constData());
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
    line += value.rightJustified(width);
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

QString bytes(qint64 count) {
  if (count < 10000) {
    return counted(count) + " bytes";
  }
  const double kibibytes = static_cast<double>(count) / 1024;
  return kibibytes < 1000 ? fixed(kibibytes, 1) + " KiB" : fixed(kibibytes / 1024, 2) + " MiB";
}

QString speed(qint64 count, double seconds) {
  return fixed(static_cast<double>(count) / 1e6 / std::max(seconds, 1e-6), 0) + " MB/s";
}

}  // namespace Tour

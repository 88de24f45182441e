/// \file
/// The tour's page: plain text for a terminal of 80 columns.
#pragma once

#include <QString>
#include <QStringList>

namespace Tour {

/// Prints lines of text and keeps to 80 columns.
class Page {
 public:
  /// The line over everything.
  void title(const QString& text);
  /// Starts a numbered section.
  void section(const QString& text);
  /// The line under everything.
  void end(const QString& text);
  /// A name and what belongs to it; long values go on in lines below, under their beginning.
  void row(const QString& name, const QString& value);
  /// Cells of one line of a table; they share the width of the page, each right-aligned;
  /// those that find no room go on in the line below.
  void cells(const QString& name, const QStringList& values);
  /// A remark in words, broken between words.
  void text(const QString& text);

 private:
  int _sections = 0;
};

/// A whole number with separators, "34,835".
QString counted(qint64 number);
/// A whole number of things, "1 point", "34,835 points".
QString counted(qint64 number, const QString& thing);
/// A number of bytes in words, "2.29 MiB".
QString bytes(qint64 count);
/// How fast bytes went, "at 200 MB/s"; the clock knows milliseconds, so short times have no speed.
QString speed(qint64 count, double seconds);

}  // namespace Tour

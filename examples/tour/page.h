/// \file
/// The tour's page: plain text for a terminal of 80 columns.
#pragma once

#include "console_p.h"

#include <QString>
#include <QStringList>

namespace Tour {

/// Prints lines of text and keeps to 80 columns.
class Page {
 public:
  /// Prints the line over everything.
  void title(const QString& text);
  /// Starts a numbered section.
  void section(const QString& text);
  /// Prints the line under everything.
  void end(const QString& text);
  /// Prints a name and its value; long values go on in lines below, under their beginning.
  void row(const QString& name, const QString& value);
  /// Prints the cells of one line of a table; they share the width of the page, each right-aligned;
  /// those that find no room go on in the line below.
  void cells(const QString& name, const QStringList& values);
  /// Prints a remark, broken between words.
  void text(const QString& text);
  /// Shows how far something is: a bar on a terminal, always drawn in the same line; elsewhere a
  /// row for each new text.
  /// \param percent 0 to 100
  void progress(int percent, const QString& what);
  /// Wipes away the bar that progress() has drawn.
  void endProgress();

 private:
  int _sections = 0;
  const bool _onTerminal = standardOutputIsTerminal();
  QString _progressText;  ///< shown last; empty while nothing is in progress
};

}  // namespace Tour

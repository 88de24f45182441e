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
  /// How far something is. A bar on a terminal, always drawn in the same line; elsewhere a row
  /// for each new text.
  /// \param percent 0 to 100
  void progress(int percent, const QString& what);
  /// Ends what progress() began; wipes the bar away.
  void endProgress();

 private:
  int _sections = 0;
  const bool _onTerminal = standardOutputIsTerminal();
  QString _progressText;  ///< shown last; empty while nothing is in progress
};

}  // namespace Tour

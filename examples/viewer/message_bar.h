/// \file
/// What went wrong, above the picture, until the user has read it.
#pragma once

#include <QFrame>

class QLabel;

namespace Viewer {

/// A line of text with a button that puts it away. Blocks nothing.
class MessageBar : public QFrame {
  Q_OBJECT

 public:
  explicit MessageBar(QWidget* parent = nullptr);

  void showProblem(const QString& text) { show(text, "problem"); }
  void showNote(const QString& text) { show(text, "note"); }
  /// The text that is shown; empty when none is.
  QString text() const;

 private:
  void show(const QString& text, const QString& kind);

  QLabel* _text;
};

}  // namespace Viewer

/// \file
/// The line at the bottom: what a computation does, or how the mouse is used.
#pragma once

#include <QStackedWidget>

class QLabel;
class QProgressBar;
class QPushButton;

namespace Viewer {

/// Shows progress with a button to abort while something is computed, else hints and the
/// curvature under the mouse.
class StatusStrip : public QStackedWidget {
  Q_OBJECT

 public:
  explicit StatusStrip(QWidget* parent = nullptr);

  void setBusy(bool busy);
  /// Shows how the mouse is used, when there is a picture to be turned.
  void setHintShown(bool shown);
  void setProgress(int percent, const QString& text);
  /// \param curvature in 1/mm; no number for none
  void setProbe(float curvature);

 Q_SIGNALS:
  void abortRequested();

 private:
  QWidget* makeIdle();
  QWidget* makeBusy();

  QLabel* _hint = nullptr;
  QLabel* _probe = nullptr;
  QLabel* _text = nullptr;
  QLabel* _percent = nullptr;
  QProgressBar* _bar = nullptr;
  QPushButton* _abort = nullptr;
};

}  // namespace Viewer

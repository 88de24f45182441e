/// \file
/// How the progress of a computation comes into the thread of the user interface.
#pragma once

#include <kyr/jobs/KyrGUIThreadEvent.h>
#include <kyr/jobs/KyrProgress.h>

#include <QObject>

#include <memory>

namespace Viewer {

/// Makes itself the receiver of progress events for as long as it lives, and turns each event
/// into a signal. One at a time in the process.
class ProgressBridge : public QObject {
  Q_OBJECT

 public:
  ProgressBridge();
  ~ProgressBridge() override;

 Q_SIGNALS:
  /// The progress has changed: its state at that moment. Sent in the thread of the user interface.
  void progressed(int percent, const QString& text);

 protected:
  void customEvent(QEvent* event) override;

 private:
  std::unique_ptr<Kyr::GUIThreadEventCreator> _creator;
};

}  // namespace Viewer

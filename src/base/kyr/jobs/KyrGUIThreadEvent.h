/// \file
/// Events that carry news of a computation into the thread of the user interface.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QEvent>

namespace Kyr {

/// Something to be done in the GUI thread. Made by a GUIThreadEventCreator on the computing
/// thread, owned by Qt's event queue until it is delivered or its receiver dies.
///
/// The receiver calls process() in its QObject::customEvent().
/// \threadsafety one thread at a time: the computing one until it is posted, then the receiver's
class KYR_EXPORT GUIThreadEvent : public QEvent {
 public:
  /// \param type Qt's number for the kind of event, by default the first one free for
  ///        applications (1000); QEvent::User to QEvent::MaxUser, or customEvent() is not called
  explicit GUIThreadEvent(QEvent::Type type = QEvent::User);
  ~GUIThreadEvent() override;

  /// Does the work of the event.
  /// \threadsafety called by the receiver in its own thread
  virtual void process() = 0;
};

/// Makes the events that tell a user interface of a change of Progress. One object for each
/// interested part of an application, registered with Progress::registerGUIEventCreator().
/// \threadsafety createEvent() is called on any thread, one call at a time
class KYR_EXPORT GUIThreadEventCreator {
 public:
  /// May run under the lock of the registered creators: it must not call what createEvent()
  /// must not call.
  virtual ~GUIThreadEventCreator();

  /// Makes an event for the receiver.
  ///
  /// It may read the progress and its text, and read and set the abort flag. All else of
  /// Progress may wait for a lock that the caller holds, and so may any thread for which this
  /// function waits.
  /// \return a new event, which then belongs to Qt; null for none
  /// \threadsafety called on the thread that changed the progress; one call at a time
  virtual GUIThreadEvent* createEvent() = 0;
};

}  // namespace Kyr

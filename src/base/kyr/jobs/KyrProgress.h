/// \file
/// The progress of the process: how far a computation is, what it does, and whether to stop.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/jobs/KyrGUIThreadEvent.h>
#include <kyr/sync/KyrMutex.h>
#include <kyr/time/KyrTime.h>

#include <QObject>
#include <QString>

#include <atomic>
#include <vector>

namespace Kyr {

/// Progress of the whole process. Any thread advances it, the GUI thread paints it.
///
/// A computation works in a range of the overall scale of 0 to 100 and reports how much of that
/// range is done, in percent. The overall percentage is range minimum + (range maximum - range
/// minimum) * value / 100, cut off to an integer; it is -1 before the first range is set.
///
/// When the overall percentage or the text changes, every registered creator is asked for an
/// event, on the thread that made the change, and the events are posted to one receiver. An
/// exception of a creator comes out of the function that made the change; the change is kept
/// then, the creators after that one are not asked, and no lock stays held.
///
/// Usable from the first static object of an application to its last, also while the process
/// ends. CloseLibrary() destroys the creators and resets the progress.
/// \code
/// Progress::setProgressString("reading");
/// Progress::splitProgress(0, 50, 100);  // a hundred steps in the first half of the scale
/// for (int step = 0; step < 100 && !Progress::getAbortFlag(); ++step) {
///   in.read(room, sizeof room);
///   Progress::addProgressSteps(1);
/// }
/// \endcode
/// \threadsafety any thread for every function, except where it says more
class KYR_EXPORT Progress {
 public:
  /// All of the progress at one moment, for painters: values from separate getters may belong to
  /// different moments.
  struct State {
    unsigned value = 0;  ///< percentage within the range, 0 to 100
    int min = -1;        ///< lower end of the range on the overall scale; -1 before the first
    int max = -1;        ///< upper end of the range on the overall scale; -1 before the first
    int overall = -1;    ///< overall percentage, 0 to 100; -1 before the first range
    QString text;        ///< shown beside the bar
  };

  /// The percentage within the current range, 0 to 100.
  static unsigned getProgress();
  /// The lower end of the current range, 0 to 100; -1 before the first range.
  static int getProgressMin();
  /// The upper end of the current range, 0 to 100; -1 before the first range.
  static int getProgressMax();
  /// The text shown beside the bar.
  static QString getProgressString();
  /// The overall percentage, 0 to 100; -1 before the first range. Computed from the three getters
  /// above it might mix two ranges.
  static int getOverallProgress();
  /// All of the progress at one moment.
  static State getState();

  /// Sets the range and how much of it is done; makes events if the overall percentage changes.
  ///
  /// A thread that reports growing values in one range never moves the overall percentage back.
  /// Of two threads that report into the same range the later call counts, even with the
  /// smaller value; such threads share splitProgress() and addProgressSteps() instead.
  /// Allocates nothing itself.
  /// \param min, max the range on the overall scale, 0 <= min <= max <= 100; -1 for either, for
  ///        a caller without a range, makes the call do nothing at all
  /// \param value 0 to 100 percent of the range
  /// \throws ProgError "invalid progress range" or "invalid progress value"
  static void setProgress(int min, int max, unsigned value);

  /// Sets the text; makes events if it changes, but not within 0.2 seconds of the text change
  /// that made the last ones.
  ///
  /// A change from or to the empty text always makes events. The text is kept in any case.
  /// \param force makes events for a change however soon it comes
  static void setProgressString(const QString& text, bool force = false);

  /// Sets the range 0 to 100, the value 0 and the empty text; makes events if the value or the
  /// text was anything else. The abort flag and the split range are left as they are.
  static void reset();

  /// Divides a range into equal steps for addProgressSteps(), and goes to its beginning.
  /// \param min, max as for setProgress(); -1 for either ends the division, and then
  ///        addProgressSteps() does nothing
  /// \param steps 0 counts as 1
  /// \throws ProgError "invalid progress range"
  static void splitProgress(int min, int max, unsigned steps);

  /// Reports steps as done, and goes to where the range of splitProgress() then is.
  ///
  /// Never goes to the end of the range, however many steps are reported: who divided the range
  /// finishes it with setProgress(). Threads that report at the same time never move the
  /// overall percentage back.
  static void addProgressSteps(unsigned steps);

  /// Asks the computation to stop, or takes that back. The first of several wishes also stops what
  /// hangs on StopToken::ofProgress(), and calls its callbacks on this thread.
  static void setAbortFlag(bool abort);
  /// Whether the computation is to stop; for it to poll.
  static bool getAbortFlag();

  /// Switches the making of events on or off; off at the start. The calls pair: it is on while
  /// there were more calls with true than with false. One with false too many is forgotten.
  static void setCreateGUIEvents(bool on);
  /// Whether the making of events is switched on.
  static bool isCreateGUIEventAllowed();
  /// Sets who receives the events.
  /// \param receiver not owned: unset it before it is deleted; null for none, and then no events
  ///        are made. Once this function has returned, the old one is posted no more events.
  static void setEventReceiver(QObject* receiver);

  /// Adds a creator, which is asked after the ones that are there.
  /// \param creator not null; belongs to Progress until it is deregistered. Added twice, it is
  ///        asked twice, and must be deregistered once before destroyGUIEventCreators().
  static void registerGUIEventCreator(GUIThreadEventCreator* creator);
  /// Takes a creator out without deleting it; of one added twice, the first. An unknown pointer
  /// is ignored.
  static void deregisterGUIEventCreator(GUIThreadEventCreator* creator);
  /// Deletes all creators in the order of their registration.
  static void destroyGUIEventCreators();

  /// The lower bound of part \a i of \a n equal parts of the range \a a to \a b.
  ///
  /// Both bounds are computed in unsigned numbers of 32 bits, as all callers expect them to be.
  /// \param n at least 1
  /// \param i counts from 0
  static int min(int a, int b, unsigned n, unsigned i);
  /// The upper bound of part \a i; as min().
  static int max(int a, int b, unsigned n, unsigned i);

 private:
  friend class ProgressScope;
  friend class StopToken;
  Progress() {}

  /// \return whether the overall percentage has changed
  KYR_HIDDEN static bool store(int min, int max, unsigned value) KYR_REQUIRES(_mutex_progress);
  /// Holds #_event_mutex while it asks the creators and posts; never called with
  /// #_mutex_progress held.
  KYR_HIDDEN static void createGUIEvents();

  // References to what is never destroyed: threads of an application, and its static objects,
  // may outlive the static data of this library. Lock order: _split_mutex before each of
  // _mutex_progress and _event_mutex, which never nest.
  KYR_HIDDEN static Mutex& _mutex_progress;
  KYR_HIDDEN static Mutex& _split_mutex;
  KYR_HIDDEN static Mutex& _abort_mutex;
  KYR_HIDDEN static Mutex& _event_mutex;

  KYR_HIDDEN static unsigned _value KYR_GUARDED_BY(_mutex_progress);
  KYR_HIDDEN static int _min KYR_GUARDED_BY(_mutex_progress);
  KYR_HIDDEN static int _max KYR_GUARDED_BY(_mutex_progress);
  // The percentage of the three above.
  KYR_HIDDEN static int _overall KYR_GUARDED_BY(_mutex_progress);
  KYR_HIDDEN static QString& _text KYR_GUARDED_BY(_mutex_progress);
  KYR_HIDDEN static bool _text_time_set KYR_GUARDED_BY(_mutex_progress);
  KYR_HIDDEN static Time _text_time KYR_GUARDED_BY(_mutex_progress);

  KYR_HIDDEN static int _split_min KYR_GUARDED_BY(_split_mutex);
  KYR_HIDDEN static int _split_max KYR_GUARDED_BY(_split_mutex);
  KYR_HIDDEN static unsigned _split_steps KYR_GUARDED_BY(_split_mutex);
  KYR_HIDDEN static unsigned _steps_done KYR_GUARDED_BY(_split_mutex);

  KYR_HIDDEN static bool _abort KYR_GUARDED_BY(_abort_mutex);

  KYR_HIDDEN static void settleEvents() KYR_REQUIRES(_event_mutex);

  KYR_HIDDEN static int _create_events KYR_GUARDED_BY(_event_mutex);
  KYR_HIDDEN static QObject* _event_receiver KYR_GUARDED_BY(_event_mutex);
  KYR_HIDDEN static std::vector<GUIThreadEventCreator*>& _event_creators
      KYR_GUARDED_BY(_event_mutex);
  // Of the first two; written under _event_mutex.
  KYR_HIDDEN static std::atomic<bool> _makes_events;
};

}  // namespace Kyr

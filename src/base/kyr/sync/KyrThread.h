/// \file
/// The abstract thread from which all threads of the suite derive.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QDeadlineTimer>
#include <QThread>

namespace Kyr {

/// A thread with its creation site and three flags for the user interface. Concrete threads
/// supply run(); starting, waiting and priorities are those of QThread.
/// \code
/// class Reader : public Thread {
///  public:
///   Reader() : Thread(LockGUI, "Reader", "reader", 1) {}
///
///  protected:
///   void run() override { in.read(room, sizeof room); }
/// };
/// Reader reader;
/// reader.start();
/// reader.wait();
/// \endcode
/// \threadsafety the flags are plain fields without a lock
class KYR_EXPORT Thread : public QThread {
 public:
  /// Whether the user interface is locked while the thread runs; only zero or not matters.
  enum LockGUI_t : int {
    NoLockGUI = 0,  ///< the user goes on working meanwhile
    LockGUI = 1     ///< the user waits for the thread
  };

  /// \param lock kept as "is not zero", read with lockGUI()
  /// \param function, file, line the creation site; literals
  Thread(LockGUI_t lock, const char* function, const char* file, unsigned line);
  /// \param parent the QObject that deletes the thread; may be null
  Thread(QObject* parent, LockGUI_t lock, const char* function, const char* file, unsigned line);
  ~Thread() override;

  /// Waits for the end of the thread, as QThread does, and tells ThreadSanitizer of it.
  /// \return false when the time was over before the thread
  bool wait(QDeadlineTimer deadline = QDeadlineTimer(QDeadlineTimer::Forever)) {
    const bool finished = QThread::wait(deadline);
    Platform::orderedAfter(this);
    return finished;
  }
  /// As above.
  /// \param milliseconds ULONG_MAX waits for ever
  bool wait(unsigned long milliseconds) {
    const bool finished = QThread::wait(milliseconds);
    Platform::orderedAfter(this);
    return finished;
  }

  /// Whether the user interface is to be locked while the thread runs; nothing here locks it.
  bool lockGUI() const { return _lockGui; }
  /// Whether what the thread does can be undone; starts false.
  bool isUndoable() const { return _undoable; }
  /// Set before start(), by whoever makes the thread.
  void setUndoable(bool undoable) { _undoable = undoable; }
  /// Whether the thread's changes must be undone when it ends early; starts false.
  bool requiresUndo() const { return _requiresUndo; }
  /// Set before start(), by whoever makes the thread.
  void setRequiresUndo(bool requiresUndo) { _requiresUndo = requiresUndo; }

 protected:
  /// What the thread does; called on the thread itself by start().
  void run() override = 0;

 private:
  Thread(const Thread&);
  Thread& operator=(const Thread&);

  // The creation site, which reports of crashes show.
  const char* _function;
  const char* _file;
  unsigned _line;
  bool _lockGui;
  bool _undoable = false;
  bool _requiresUndo = false;
};

}  // namespace Kyr

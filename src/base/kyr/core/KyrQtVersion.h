/// \file
/// What Qt 5 and Qt 6 do not have in common, for the library and its examples. Only this
/// header asks which of the two it is.
#pragma once

#include <QMutex>
#include <QWaitCondition>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QTextCodec>
#include <Qt>
#else
#include <QThread>
#endif

/// The Qt that the library was built with; its CMake and pkg-config files define it unless it is 5.
#if !defined(KYR_QT)
#define KYR_QT 5
#endif
static_assert(QT_VERSION_MAJOR == KYR_QT, "libKyr was built with another Qt than this is");

namespace Kyr::QtVersion {

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

/// A mutex that its holder can take again if it is built with RecursionMode Recursive.
using AnyMutex = QMutex;

/// Waits with an AnyMutex; returns at once with one that can be taken again.
using AnyWaitCondition = QWaitCondition;

/// Takes a mutex that is free, without a call into Qt.
/// \return false also for every mutex that can be taken again
inline bool tryLockInline(AnyMutex& mutex) {
  return mutex.QBasicMutex::tryLock();
}

/// Has a QSettings read its file as UTF-8.
template <class Settings>
void assumeUtf8In(Settings& settings) {
  settings.setIniCodec("UTF-8");
}

/// Whether file names, arguments and what else comes from the system may be anything but UTF-8.
constexpr bool hasLocalEncodings = true;

/// Sets the encoding of all that, where there is a choice.
/// \param name as "UTF-8"
inline void setLocalEncoding(const char* name) {
  QTextCodec::setCodecForLocale(QTextCodec::codecForName(name));
}

/// Has windows and pictures grow with the resolution of the screen. To be called before the
/// application object, a QCoreApplication, is made.
template <class Application>
void scaleForScreens() {
  Application::setAttribute(Qt::AA_EnableHighDpiScaling);
  Application::setAttribute(Qt::AA_UseHighDpiPixmaps);
}

#else

/// A mutex that its holder can take again if it is built with RecursionMode Recursive. Such a one
/// is only locked and unlocked by this class: its base knows nothing of that.
/// \threadsafety any thread
class AnyMutex : public QMutex {
 public:
  /// Whether its holder may take it again.
  enum RecursionMode : int {
    NonRecursive = 0,  ///< no: it would wait for itself
    Recursive = 1      ///< yes, and gives it back as often
  };

  constexpr AnyMutex() noexcept = default;
  /// One of that kind; without a kind it is NonRecursive.
  explicit AnyMutex(RecursionMode mode) noexcept : _isRecursive(mode == Recursive) {}

  /// Whether its holder may take it again.
  bool isRecursive() const noexcept { return _isRecursive; }

  /// Waits until it is free, and takes it.
  void lock() { tryLock(-1); }

  /// Takes it if it is free, or becomes free in time.
  /// \param milliseconds how long to wait; below 0 for as long as it takes
  /// \return false if somebody else has it
  bool tryLock(int milliseconds = 0) {
    const Qt::HANDLE self = _isRecursive ? QThread::currentThreadId() : nullptr;
    if (_isRecursive && _holder.loadRelaxed() == self) {
      ++_again;
      return true;
    }
    const bool taken = QMutex::tryLock(milliseconds);
    if (taken && _isRecursive) {
      _holder.storeRelaxed(self);
    }
    return taken;
  }

  /// Gives it back; called by its holder.
  void unlock() noexcept {
    if (_again > 0) {
      --_again;
      return;
    }
    if (_isRecursive) {
      _holder.storeRelaxed(nullptr);
    }
    QMutex::unlock();
  }

 private:
  const bool _isRecursive = false;
  unsigned _again = 0;           // guarded by the base
  QAtomicPointer<void> _holder;  // a thread finds itself here only while it is the holder
};

/// Waits with an AnyMutex; returns at once with one that can be taken again.
/// \threadsafety any thread
class AnyWaitCondition : public QWaitCondition {
 public:
  /// Waits for a call of wakeOne() or wakeAll(), during which the mutex is free.
  /// \return false at the end of the time, or with a mutex that can be taken again
  bool wait(AnyMutex* mutex, QDeadlineTimer end = QDeadlineTimer(QDeadlineTimer::Forever)) {
    return !mutex->isRecursive() && QWaitCondition::wait(mutex, end);
  }
};

/// Takes a mutex that is free, without a call into Qt.
/// \return false also for every mutex that can be taken again
inline bool tryLockInline(AnyMutex& mutex) {
  return !mutex.isRecursive() && mutex.QBasicMutex::tryLock();
}

/// A QSettings reads its file as UTF-8 anyway.
template <class Settings>
void assumeUtf8In(Settings& /*settings*/) {}

/// Names, arguments and what else comes from the system are UTF-8.
constexpr bool hasLocalEncodings = false;

/// There is no choice of encodings.
inline void setLocalEncoding(const char* /*name*/) {}

/// Windows are scaled for screens with many pixels anyway.
template <class Application>
void scaleForScreens() {}

#endif

}  // namespace Kyr::QtVersion

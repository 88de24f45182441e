#include <kyr/crash/KyrHeartbeat.h>

#include <kyr/core/forever_p.h>
#include <kyr/crash/living_stacks_p.h>
#include <kyr/recorder/KyrFlightRecorder.h>
#include <kyr/sync/KyrLockDoctor.h>
#include <kyr/sync/KyrThread.h>
#include <kyr/sync/own_thread_p.h>

#include <QElapsedTimer>
#include <QSemaphore>
#include <QTimer>

#include <algorithm>
#include <cstdio>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned ReportMutex = 23, Watcher = 61;
constexpr const char* File = "kyr_heartbeat";
}  // namespace site

namespace {

constexpr int leastPatience = 50;  // milliseconds

QString secondsText(qint64 milliseconds) {
  return QString::number(double(milliseconds) / 1000, 'f', 1) + " s";
}

/// Held for one report after the other.
Forever<Mutex> reportLock("Kyr::HeartbeatWatcher::reportHang", site::File, site::ReportMutex);

/// Who holds which lock; empty unless the lock doctor watches.
QByteArray lockHolders() {
  QByteArray lines;
  const auto add = [](void* context, const char* line, std::size_t length) {
    static_cast<QByteArray*>(context)->append(line, int(length));
  };
  if (LockDoctor::isOn()) {
    LockDoctor::describeHolders(add, &lines);
  }
  return lines.isEmpty() ? lines : "\n\nwho holds which lock:\n" + lines;
}

/// The thread that calls, in a message.
QString ownName(const QString& given) {
  const QString name = given.isEmpty() ? QThread::currentThread()->objectName() : given;
  const QString number = "thread 0x" + QString::number(Platform::threadNumber(), 16);
  return name.isEmpty() ? number : number + " \"" + name + '"';
}

}  // namespace

QByteArray Crash::stacksInTurn(std::uint64_t hanging, bool alone) {
  const AutoMutex locked(&reportLock.object);
  return stacksOfThreads(hanging, alone);
}

/// Looks for beats at each tick, and adds up the ticks without one.
class HeartbeatWatcher final : public Thread {
 public:
  HeartbeatWatcher(Heartbeat& heartbeat, const HeartbeatOptions& options)
      : Thread(NoLockGUI, "Kyr::Heartbeat::Heartbeat", site::File, site::Watcher),
        _heartbeat(heartbeat),
        _log(options.log),
        _journal(options.journal),
        _thread(Platform::threadNumber()),
        _name(ownName(options.name)) {
    setObjectName("Kyr heartbeat");
  }

  void end() {
    _end.release();
    wait();
  }

 protected:
  void run() override {
    Crash::keepSignalsAway();
    const int tick = std::clamp(_heartbeat._patience / 16, 5, 250);
    QElapsedTimer clock;
    clock.start();
    while (!_end.tryAcquire(1, tick)) {
      // Where the process or the machine stood still, this thread did, too: a long tick counts as
      // two.
      look(std::min<qint64>(clock.restart(), qint64{2} * tick));
    }
    if (_heartbeat._hasBeaten.load(std::memory_order_relaxed)) {
      reportRecovery();  // the hang ended while it was reported, and all else right behind
    }
  }

 private:
  void look(qint64 passed) {
    if (_heartbeat._hasBeaten.exchange(false, std::memory_order_relaxed)) {
      reportRecovery();
      _silence = 0;
      return;
    }
    _silence += passed;
    if (_silence >= _heartbeat._patience && !_isHanging) {
      if (Crash::isDebugged()) {
        _silence = 0;
      } else {
        reportHang();
      }
    }
  }

  void reportHang() {
    _isHanging = true;
    QElapsedTimer clock;
    clock.start();
    const QString what = _name + " has not beaten for " + secondsText(_silence);
    FlightRecorder::note("heartbeat", what);
    const QByteArray locks = lockHolders();
    write(what + "; this is where all threads stand:\n" +
          QString::fromUtf8(Crash::stacksInTurn(_thread, false) + locks));
    _silence += clock.elapsed();
  }

  void reportRecovery() {
    if (_isHanging) {
      _isHanging = false;
      const QString what = _name + " beats again, after " + secondsText(_silence);
      FlightRecorder::note("heartbeat", what);
      write(what);
    }
  }

  void write(const QString& text) {
    if (_log) {
      *_log << text << END_LOG;
    }
    if (_journal) {
      _journal->add(Journal::Error, "heartbeat", text);
    }
    if (!_log && !_journal) {
      const QByteArray bytes = text.toLocal8Bit() + '\n';
      std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stderr);
      std::fflush(stderr);
    }
  }

  Heartbeat& _heartbeat;
  SyncErrorLog* const _log;
  Journal* const _journal;
  const std::uint64_t _thread;
  const QString _name;
  QSemaphore _end;
  qint64 _silence = 0;  ///< milliseconds since the last beat
  bool _isHanging = false;
};

Heartbeat::Heartbeat(const HeartbeatOptions& options)
    : _patience(std::max(options.patience, leastPatience)),
      _watcher(std::make_unique<HeartbeatWatcher>(*this, options)) {
  _watcher->start();
}

Heartbeat::~Heartbeat() {
  _watcher->end();
}

void Heartbeat::beatInEventLoop() {
  _timer = std::make_unique<QTimer>();
  QObject::connect(_timer.get(), &QTimer::timeout, _timer.get(), [this] { beat(); });
  _timer->start(_patience / 4);
  beat();
}

}  // namespace Kyr

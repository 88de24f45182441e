#include <kyr/sync/KyrMutex.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/sync/lock_watch_p.h>

#include <QDeadlineTimer>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned InternalMutex = 191, InternalCondition = 192, CopiedMutex = 209,
                   CopiedCondition = 210;
constexpr const char* File = "os_mutex";
constexpr const char* ReadWrite = "Kyr::MutexReadWrite::MutexReadWrite";
}  // namespace site

LockWatch LockWatch::the;

Mutex::~Mutex() {
  if (LockWatch::isOn()) {
    LockBooks::forget(this);
  }
  if (!Base::tryLock()) {
    const ProgError heldMutex(_function, _file, _line, "mutex is still locked");
  }
  Base::unlock();
}

Mutex::Mutex(const Mutex&) : Base() {
  throw ProgError(_function, _file, _line, "copy constructor for mutex is not allowed");
}

Mutex& Mutex::operator=(const Mutex&) {
  throw ProgError(_function, _file, _line, "assignment for mutex is not allowed");
}

void Mutex::lockWatched() {
  const bool again = isRecursive();
  LockBooks::Attempt attempt(this, {_function, _file, _line}, LockBooks::Whole);
  if (!Base::tryLock()) {
    attempt.wait(again);
    if (!Base::tryLock(attempt.patience())) {
      attempt.reportWait();
      Base::lock();
    }
  }
  attempt.hold(again);
}

bool Mutex::tryLockWatched(int milliseconds) {
  if (milliseconds < 0) {
    lockWatched();
    return true;
  }
  const bool taken = Base::tryLock(milliseconds);
  if (taken) {
    LockBooks::Attempt::holdTried(this, {_function, _file, _line}, LockBooks::Whole);
  }
  return taken;
}

void Mutex::forgetHolder() noexcept {
  LockBooks::release(this);
}

Condition::~Condition() = default;

void Condition::waitWatched() {
  const LockBooks::Sleep sleep(_mutex, {_mutex->_function, _mutex->_file, _mutex->_line},
                               {_function, _file, _line});
  _condition.wait(_mutex);
}

bool Condition::waitAtMost(int milliseconds) {
  Platform::orderedBefore(_mutex);
  const bool woken =
      _condition.wait(_mutex, milliseconds < 0 ? QDeadlineTimer(QDeadlineTimer::Forever)
                                               : QDeadlineTimer(milliseconds));
  Platform::orderedAfter(_mutex);
  return woken;
}

Condition::Condition(const Condition&) {
  throw ProgError(_function, _file, _line, "copy constructor for condition is not allowed");
}

Condition& Condition::operator=(const Condition&) {
  throw ProgError(_function, _file, _line, "assignment for condition is not allowed");
}

MutexReadWrite::MutexReadWrite(const char* function, const char* file, unsigned line)
    : _internal(site::ReadWrite, site::File, site::InternalMutex),
      _changed(site::ReadWrite, site::File, site::InternalCondition, &_internal),
      _function(function),
      _file(file),
      _line(line) {}

MutexReadWrite::~MutexReadWrite() {
  if (LockWatch::isOn()) {
    LockBooks::forget(this);
  }
}

MutexReadWrite::MutexReadWrite(const MutexReadWrite&)
    : _internal(site::ReadWrite, site::File, site::CopiedMutex),
      _changed(site::ReadWrite, site::File, site::CopiedCondition, &_internal) {
  throw ProgError(_function, _file, _line, "copy constructor for mutexReadWrite is not allowed");
}

MutexReadWrite& MutexReadWrite::operator=(const MutexReadWrite&) {
  throw ProgError(_function, _file, _line, "assignment for mutexReadWrite is not allowed");
}

void MutexReadWrite::sleep() {
  ++_sleepers;
  _changed.wait();
  --_sleepers;
}

void MutexReadWrite::sleep(LockBooks::Attempt& attempt) {
  attempt.wait(false);
  const int patience = attempt.patience();
  ++_sleepers;
  const bool woken = _changed.waitAtMost(patience);
  --_sleepers;
  if (!woken && patience >= 0) {
    leave();  // whoever holds the lock goes on meanwhile
    attempt.reportWait();
    enter();
  }
}

void MutexReadWrite::awaitNoWriter() {
  while (_writers != 0) {
    sleep();
  }
}

void MutexReadWrite::lockWrite() KYR_NO_THREAD_SAFETY_ANALYSIS {
  if (LockWatch::isOn()) {
    lockWriteWatched();
    return;
  }
  enter();
  while (_writers != 0 || _readers != 0) {
    sleep();
  }
  ++_writers;
  leave();
}

void MutexReadWrite::lockReadWatched() KYR_NO_THREAD_SAFETY_ANALYSIS {
  LockBooks::Attempt attempt(this, {_function, _file, _line}, LockBooks::Read);
  enter();
  while (_writers != 0) {
    sleep(attempt);
  }
  ++_readers;
  leave();
  attempt.hold(true);
}

void MutexReadWrite::lockWriteWatched() KYR_NO_THREAD_SAFETY_ANALYSIS {
  LockBooks::Attempt attempt(this, {_function, _file, _line}, LockBooks::Write);
  enter();
  while (_writers != 0 || _readers != 0) {
    sleep(attempt);
  }
  ++_writers;
  leave();
  attempt.hold(false);
}

void MutexReadWrite::forgetHolder() noexcept {
  LockBooks::release(this);
}

void MutexReadWrite::refuseReader(const char* function, const char* file, unsigned line) {
  throw ProgError(function, file, line,
                  "unlock reader is not possible, because there are no more readers!");
}

void MutexReadWrite::unlockWrite(const char* function, const char* file,
                                 unsigned line) KYR_NO_THREAD_SAFETY_ANALYSIS {
  enter();
  if (_writers == 0) {
    throw ProgError(function, file, line,
                    "unlock write is not possible, because there are no more writers!");
  }
  if (LockWatch::isOn()) {
    forgetHolder();
  }
  if (--_writers == 0 && _sleepers != 0) {
    _changed.broadcast();
  }
  leave();
}

}  // namespace Kyr

#include <kyr/sync/KyrMutex.h>

#include <kyr/core/KyrProgError.h>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned InternalMutex = 191, InternalCondition = 192, CopiedMutex = 209,
                   CopiedCondition = 210;
constexpr const char* File = "os_mutex";
constexpr const char* ReadWrite = "Kyr::MutexReadWrite::MutexReadWrite";
}  // namespace site

Mutex::~Mutex() {
  if (!QMutex::tryLock()) {
    const ProgError heldMutex(_function, _file, _line, "mutex is still locked");
  }
  QMutex::unlock();
}

Mutex::Mutex(const Mutex&) : QMutex() {
  throw ProgError(_function, _file, _line, "copy constructor for mutex is not allowed");
}

Mutex& Mutex::operator=(const Mutex&) {
  throw ProgError(_function, _file, _line, "assignment for mutex is not allowed");
}

Condition::~Condition() = default;

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

MutexReadWrite::~MutexReadWrite() = default;

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

void MutexReadWrite::awaitNoWriter() {
  while (_writers != 0) {
    sleep();
  }
}

void MutexReadWrite::lockWrite() KYR_NO_THREAD_SAFETY_ANALYSIS {
  enter();
  while (_writers != 0 || _readers != 0) {
    sleep();
  }
  ++_writers;
  leave();
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
  if (--_writers == 0 && _sleepers != 0) {
    _changed.broadcast();
  }
  leave();
}

}  // namespace Kyr

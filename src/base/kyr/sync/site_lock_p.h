/// \file
/// What locks as AutoMutex does, and names its own place to those who read reports.
#pragma once

#include <kyr/sync/KyrMutex.h>

namespace Kyr {

/// Holds a mutex for a scope that an exception may leave.
class KYR_SCOPED_CAPABILITY SiteLock {
 public:
  /// \param function, file, line of the unlocking, for when it fails; literals
  SiteLock(Mutex& mutex, const char* function, const char* file, unsigned line) KYR_ACQUIRE(mutex)
      : _mutex(mutex), _function(function), _file(file), _line(line) {
    mutex.lock();
  }
  SiteLock(const SiteLock&) = delete;
  SiteLock& operator=(const SiteLock&) = delete;
  ~SiteLock() KYR_RELEASE() { _mutex.unlock(_function, _file, _line); }

 private:
  Mutex& _mutex;
  const char* const _function;
  const char* const _file;
  const unsigned _line;
};

}  // namespace Kyr

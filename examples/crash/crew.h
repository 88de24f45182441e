/// \file
/// Threads that a crash interrupts.
#pragma once

#include <kyr/sync/KyrMutex.h>
#include <kyr/sync/KyrThread.h>

#include <functional>
#include <memory>
#include <vector>

namespace Crash {

/// A thread of the suite that does one thing.
class Worker : public Kyr::Thread {
 public:
  explicit Worker(std::function<void()> work);

 protected:
  void run() override;

 private:
  std::function<void()> _work;
};

/// Threads that wait for work which never comes.
class Crew {
 public:
  /// Starts them and returns when all are waiting.
  explicit Crew(int size);

 private:
  void waitForWork();

  Kyr::Mutex _mutex;
  Kyr::Condition _changed;
  int _waiting = 0;  // guarded by the mutex
  std::vector<std::unique_ptr<Worker>> _workers;
};

}  // namespace Crash

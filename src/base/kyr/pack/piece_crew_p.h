/// \file
/// Threads that take pieces from one who needs them back in order.
#pragma once

#include <kyr/sync/KyrMutex.h>

#include <cstddef>
#include <memory>
#include <vector>

namespace Kyr {

/// What is to be done with one piece. Nobody touches it between PieceCrew::submit() and the end of
/// PieceCrew::await(), and it outlives both.
class PieceTask {
 public:
  PieceTask() = default;
  PieceTask(const PieceTask&) = delete;
  PieceTask& operator=(const PieceTask&) = delete;
  virtual ~PieceTask() = default;

  /// \param worker whose tools to use: each number is at work on one task at a time
  virtual void run(unsigned worker) noexcept = 0;

 private:
  friend class PieceCrew;
  enum State_t { Idle, Queued, Running, Done };
  State_t _state = Idle;       // guarded by the crew's mutex
  PieceTask* _next = nullptr;  // in the crew's queue; the same holds
};

/// Carries tasks out on helper threads and on the thread that waits for them, which is worker 0.
///
/// One thread owns it. Helpers are started when there is work for them; where the system refuses a
/// thread, there are fewer. They sleep while there is nothing to do, and end with the crew, which
/// waits for them. A process that is forked off has none of them: it leaves the crew alone. Where
/// the system ends them before its owner does, as for static objects of a DLL when a process of
/// Windows ends, the end of the crew may wait for ever.
class PieceCrew {
 public:
  /// \param workers at least 1; no helper is needed for 1
  explicit PieceCrew(unsigned workers);
  /// Waits for tasks that run; those that do not yet never will.
  ~PieceCrew();
  PieceCrew(const PieceCrew&) = delete;
  PieceCrew& operator=(const PieceCrew&) = delete;

  void submit(PieceTask& task);
  bool isDone(const PieceTask& task);
  /// Waits until a submitted task is done, and works meanwhile.
  void await(PieceTask& task);
  /// Forgets the tasks that do not run yet, and waits for the others.
  void recall();

 private:
  class Helper;
  void startHelper();
  PieceTask* take();
  PieceTask* beginFirst() KYR_REQUIRES(_mutex);
  PieceTask* takeInsteadOfWaiting(const PieceTask& task);
  void finish(PieceTask& task);
  void endHelpers();

  const unsigned _workers;
  Mutex _mutex;
  Condition _submitted;
  Condition _finished;
  PieceTask* _first KYR_GUARDED_BY(_mutex) = nullptr;  // of the queue, which takes no memory
  PieceTask* _last KYR_GUARDED_BY(_mutex) = nullptr;
  std::size_t _queued KYR_GUARDED_BY(_mutex) = 0;
  unsigned _sleeping KYR_GUARDED_BY(_mutex) = 0;
  unsigned _running KYR_GUARDED_BY(_mutex) = 0;
  bool _ending KYR_GUARDED_BY(_mutex) = false;
  bool _canStart = true;
  std::vector<std::unique_ptr<Helper>> _helpers;
};

}  // namespace Kyr

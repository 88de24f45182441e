#include <kyr/pack/piece_crew_p.h>

#include <kyr/sync/KyrThread.h>

#include <new>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned CrewMutex = 20, Submitted = 21, Finished = 22, HelperThread = 30;
constexpr const char* File = "kyr_piece_crew";
constexpr const char* Crew = "Kyr::PieceCrew::PieceCrew";
}  // namespace site

class PieceCrew::Helper : public Thread {
 public:
  Helper(PieceCrew& crew, unsigned worker)
      : Thread(NoLockGUI, site::Crew, site::File, site::HelperThread),
        _crew(crew),
        _worker(worker) {}

 protected:
  void run() override {
    while (PieceTask* const task = _crew.take()) {
      task->run(_worker);
      _crew.finish(*task);
    }
  }

 private:
  PieceCrew& _crew;
  const unsigned _worker;
};

PieceCrew::PieceCrew(unsigned workers)
    : _workers(workers),
      _mutex(site::Crew, site::File, site::CrewMutex),
      _submitted(site::Crew, site::File, site::Submitted, &_mutex),
      _finished(site::Crew, site::File, site::Finished, &_mutex) {}

PieceCrew::~PieceCrew() {
  endHelpers();
}

void PieceCrew::endHelpers() {
  {
    AutoMutex lock(&_mutex);
    _ending = true;
    _submitted.broadcast();
  }
  for (const auto& helper : _helpers) {
    helper->wait();
  }
}

void PieceCrew::submit(PieceTask& task) {
  bool isHelpWanted = false;
  {
    AutoMutex lock(&_mutex);
    (_first ? _last->_next : _first) = &task;
    _last = &task;
    ++_queued;
    task._next = nullptr;
    task._state = PieceTask::Queued;
    isHelpWanted = _sleeping < _queued;
    _submitted.signal();
  }
  if (isHelpWanted && _canStart && _helpers.size() + 1 < _workers) {
    startHelper();
  }
}

/// Starts another helper. Without the memory or the right to a thread the others do the work.
void PieceCrew::startHelper() {
  try {
    auto helper = std::make_unique<Helper>(*this, static_cast<unsigned>(_helpers.size()) + 1);
    _helpers.reserve(_helpers.size() + 1);
    helper->start();
    _canStart = helper->isRunning() || helper->isFinished();
    if (_canStart) {
      _helpers.push_back(std::move(helper));
    }
  } catch (const std::bad_alloc&) {
    _canStart = false;
  }
}

/// Waits for a task of the queue and takes it.
/// \return null when the crew ends
PieceTask* PieceCrew::take() {
  AutoMutex lock(&_mutex);
  while (!_first && !_ending) {
    ++_sleeping;
    _submitted.wait();
    --_sleeping;
  }
  return _ending ? nullptr : beginFirst();
}

/// Takes the first task out of the queue.
PieceTask* PieceCrew::beginFirst() {
  PieceTask* const task = _first;
  _first = task->_next;
  --_queued;
  task->_state = PieceTask::Running;
  ++_running;
  return task;
}

void PieceCrew::finish(PieceTask& task) {
  AutoMutex lock(&_mutex);
  task._state = PieceTask::Done;
  --_running;
  _finished.signal();  // nobody but the owner waits for this
}

bool PieceCrew::isDone(const PieceTask& task) {
  AutoMutex lock(&_mutex);
  return task._state == PieceTask::Done;
}

void PieceCrew::await(PieceTask& task) {
  while (PieceTask* const other = takeInsteadOfWaiting(task)) {
    other->run(0);
    finish(*other);
  }
}

/// Waits for a task, or takes another one of the queue.
/// \return null when the task is done
PieceTask* PieceCrew::takeInsteadOfWaiting(const PieceTask& task) {
  AutoMutex lock(&_mutex);
  while (task._state != PieceTask::Done && !_first) {
    _finished.wait();
  }
  return task._state == PieceTask::Done ? nullptr : beginFirst();
}

void PieceCrew::recall() {
  AutoMutex lock(&_mutex);
  for (; _first; _first = _first->_next) {
    _first->_state = PieceTask::Idle;
  }
  _queued = 0;
  while (_running > 0) {
    _finished.wait();
  }
}

}  // namespace Kyr

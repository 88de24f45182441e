#include <kyr/jobs/KyrScheduler.h>

#include <kyr/core/KyrProgError.h>

#include <algorithm>
#include <utility>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned JobCondition = 32, RunningJobs = 49, Interrupt = 127, Clear = 151,
                   IsInterrupted = 162, UnknownWorker = 253, UnlockJobs = 274, Worker = 368,
                   GetState = 386, SetState = 406, GetProgress = 480, SetProgress = 491;
constexpr const char* File = "kyr_scheduler";
}  // namespace site

JobManager::JobManager()
    : _jobCondition("Kyr::JobManager::JobManager", site::File, site::JobCondition, &_jobMutex) {}

JobManager::~JobManager() {
  for (Worker* const worker : _workers) {
    if (worker->isRunning()) {
      const ProgError running("Kyr::JobManager::~JobManager", site::File, site::RunningJobs,
                              "should never destroy a job manager with running jobs.");
    }
    delete worker;
  }
}

void JobManager::startAllWorker() {
  for (Worker* const worker : _workers) {
    worker->start(QThread::InheritPriority);
  }
}

void JobManager::waitForWorker() {
  for (Worker* const worker : _workers) {
    worker->wait();
  }
}

void JobManager::interrupt() {
  _interruptMutex.lock();
  _interrupted = true;
  _interruptMutex.unlock("Kyr::JobManager::interrupt", site::File, site::Interrupt);
  // Inside jobDone() this thread holds the job mutex. On another thread the flag may be seen
  // as well: then the broadcast that follows jobDone() is still to come or the workers that it
  // woke still wait for the job mutex, and either way they test the interrupt flag after it.
  if (!_inNotify.load(std::memory_order_relaxed)) {
    lockJobMutex();
    wakeWaiting();
    unlockJobMutex();
  }
}

bool JobManager::isInterrupted() const {
  _interruptMutex.lock();
  const bool interrupted = _interrupted;
  _interruptMutex.unlock("Kyr::JobManager::isInterrupted", site::File, site::IsInterrupted);
  return interrupted;
}

void JobManager::clearInterruptFlag() {
  _interruptMutex.lock();
  _interrupted = false;
  _interruptMutex.unlock("Kyr::JobManager::clearInterruptFlag", site::File, site::Clear);
}

void JobManager::lockJobMutex() {
  _jobMutex.lock();
}

void JobManager::unlockJobMutex() {
  _jobMutex.unlock("Kyr::JobManager::unlockJobMutex", site::File, site::UnlockJobs);
}

void JobManager::waitForJob() {
  ++_waiting;
  _jobCondition.wait();
}

void JobManager::wakeWaiting() {
  if (_waiting != 0) {
    _waiting = 0;
    _jobCondition.broadcast();
  }
}

void JobManager::registerWorker(Worker* worker) {
  _workers.push_back(worker);
}

bool JobManager::isValidWorker(const Worker* worker) const {
  if (std::find(_workers.begin(), _workers.end(), worker) == _workers.end()) {
    throw ProgError("Kyr::JobManager::isValidWorker", site::File, site::UnknownWorker,
                    "no such worker registered!");
  }
  return true;
}

bool JobManager::getJobData(Worker* worker) {
  isValidWorker(worker);
  if (!isJobAvailable(worker)) {
    return false;
  }
  assignJob(worker);
  return true;
}

void JobManager::notifyJobDone(Worker* worker) {
  isValidWorker(worker);
  lockJobMutex();
  _inNotify.store(true, std::memory_order_relaxed);
  jobDone(worker);
  wakeWaiting();
  _inNotify.store(false, std::memory_order_relaxed);
}

Worker::Worker(LockGUI_t lock, JobManager* manager)
    : Thread(lock, "Kyr::Worker::Worker", site::File, site::Worker), _manager(manager) {
  _manager->registerWorker(this);
}

Worker::~Worker() = default;

WorkerState_t Worker::getState() const {
  _workerMutex.lock();
  const WorkerState_t state = _state;
  _workerMutex.unlock("Kyr::Worker::getState", site::File, site::GetState);
  return state;
}

void Worker::setState(WorkerState_t state) {
  _workerMutex.lock();
  _state = state;
  _workerMutex.unlock("Kyr::Worker::setState", site::File, site::SetState);
}

void Worker::setState(WorkerState_t state, int progress) {
  _workerMutex.lock();
  _state = state;
  _progress = progress;
  _workerMutex.unlock("Kyr::Worker::setState", site::File, site::SetState);
}

int Worker::getProgress() const {
  _workerMutex.lock();
  const int progress = _progress;
  _workerMutex.unlock("Kyr::Worker::getProgress", site::File, site::GetProgress);
  return progress;
}

void Worker::setProgress(int progress) {
  _workerMutex.lock();
  _progress = std::clamp(progress, 0, 100);
  _workerMutex.unlock("Kyr::Worker::setProgress", site::File, site::SetProgress);
}

bool Worker::isManagerInterrupted() const {
  return _manager->isInterrupted();
}

void Worker::run() {
  setState(WorkerLooking, 0);
  _manager->lockJobMutex();
  while (!_manager->isInterrupted() && _manager->hasMoreJobs()) {
    if (!_manager->getJobData(this)) {
      _manager->waitForJob();
      continue;
    }
    _manager->unlockJobMutex();
    setState(WorkerExecuting, 0);
    executeJob();
    setState(WorkerLooking, 100);
    _manager->notifyJobDone(this);
  }
  _manager->unlockJobMutex();
  setState(WorkerStopped);
}

namespace {
std::atomic<std::uint64_t> lastTurn{0};
}

CatchingWorker::CatchingWorker(LockGUI_t lock, JobManager* manager) : Worker(lock, manager) {}

CatchingWorker::~CatchingWorker() = default;

std::exception_ptr CatchingWorker::getException() const {
  const AutoMutex lock(&_failureMutex);
  return _exception;
}

void CatchingWorker::keep(std::exception_ptr exception) {
  const AutoMutex lock(&_failureMutex);
  if (!_exception) {
    _exception = std::move(exception);
    _turn = ++lastTurn;
  }
}

void CatchingWorker::run() {
  {
    const AutoMutex lock(&_failureMutex);
    _exception = nullptr;
  }
  Worker::run();
}

void CatchingWorker::executeJob() {
  try {
    executeJobOrThrow();
  } catch (...) {
    keep(std::current_exception());
    _manager->interrupt();
  }
}

void CatchingWorker::waitAndRethrow(JobManager& manager) {
  manager.waitForWorker();
  std::exception_ptr first;
  std::uint64_t firstTurn = 0;
  for (auto worker = manager.workerBegin(); worker != manager.workerEnd(); ++worker) {
    if (const auto* const catching = dynamic_cast<const CatchingWorker*>(*worker)) {
      const AutoMutex lock(&catching->_failureMutex);
      if (catching->_exception && (!first || catching->_turn < firstTurn)) {
        first = catching->_exception;
        firstTurn = catching->_turn;
      }
    }
  }
  if (first) {
    std::rethrow_exception(first);
  }
}

}  // namespace Kyr

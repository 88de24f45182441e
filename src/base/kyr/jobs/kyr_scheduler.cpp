#include <kyr/jobs/KyrScheduler.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/jobs/work_context_p.h>
#include <kyr/recorder/KyrFlightRecorder.h>
#include <kyr/trace/KyrTrace.h>

#include <algorithm>
#include <exception>
#include <utility>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned JobCondition = 32, RunningJobs = 49, UnknownWorker = 253, Worker = 368;
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
  {
    const AutoMutex lock(&_interruptMutex);
    if (_stop && _stop->isStopped() && !isInterruptedNow()) {
      _stop.reset();  // an abort flag that stopped it was meant for the run before, or is still set
    }
  }
  stopToken();  // made here, where want of memory is met by somebody
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
  std::optional<StopToken> stop;
  {
    const AutoMutex lock(&_interruptMutex);
    _interrupted = true;
    stop = _stop;
  }
  if (stop) {
    stop->stop();
  }
  // Inside jobDone() this thread holds the job mutex. On another thread the flag may be seen
  // as well: then the broadcast that follows jobDone() is still to come or the workers that it
  // woke still wait for the job mutex, and either way they test the interrupt flag after it.
  if (!_inNotify.load(std::memory_order_relaxed)) {
    const AutoMutex lock(&_jobMutex);
    wakeWaiting();
  }
}

bool JobManager::isInterrupted() const {
  const AutoMutex lock(&_interruptMutex);
  return isInterruptedNow();
}

bool JobManager::isInterruptedNow() const {
  return _interrupted || (_stopAbove && _stopAbove->isStopped());
}

void JobManager::clearInterruptFlag() {
  const AutoMutex lock(&_interruptMutex);
  _interrupted = false;
  _stop.reset();
}

StopToken JobManager::stopToken() const {
  const AutoMutex lock(&_interruptMutex);
  if (!_stop) {
    _stop = (_stopAbove ? *_stopAbove : StopToken::ofProgress()).child();
    if (_interrupted) {
      _stop->stop();  // nobody else knows it yet: there is nothing to be called
    }
  }
  return *_stop;
}

void JobManager::setStopToken(const StopToken& token) {
  const AutoMutex lock(&_interruptMutex);
  _stopAbove = token;
  _stop.reset();
}

void JobManager::setProgressScope(ProgressScope* scope) {
  _scope = scope;
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
  if (!isJobAvailable(worker)) {
    return false;
  }
  assignJob(worker);
  return true;
}

void JobManager::notifyJobDone(Worker* worker) {
  _inNotify.store(true, std::memory_order_relaxed);
  jobDone(worker);
  wakeWaiting();
  _inNotify.store(false, std::memory_order_relaxed);
}

bool JobManager::takeJob(Worker* worker, bool hasDone) {
  isValidWorker(worker);
  const AutoMutex lock(&_jobMutex);
  if (hasDone) {
    notifyJobDone(worker);
  }
  while (!isInterrupted() && hasMoreJobs()) {
    if (getJobData(worker)) {
      return true;
    }
    waitForJob();
  }
  return false;
}

Worker::Worker(LockGUI_t lock, JobManager* manager)
    : Thread(lock, "Kyr::Worker::Worker", site::File, site::Worker), _manager(manager) {
  _manager->registerWorker(this);
}

Worker::~Worker() = default;

WorkerState_t Worker::getState() const {
  const AutoMutex lock(&_workerMutex);
  return _state;
}

void Worker::setState(WorkerState_t state) {
  const AutoMutex lock(&_workerMutex);
  _state = state;
}

void Worker::setState(WorkerState_t state, int progress) {
  const AutoMutex lock(&_workerMutex);
  _state = state;
  _progress = progress;
}

int Worker::getProgress() const {
  const AutoMutex lock(&_workerMutex);
  return _progress;
}

void Worker::setProgress(int progress) {
  const AutoMutex lock(&_workerMutex);
  _progress = std::clamp(progress, 0, 100);
}

bool Worker::isManagerInterrupted() const {
  return _manager->isInterrupted();
}

void Worker::countJob() {
  if (WorkOnItems* const items = std::exchange(_jobToCount, nullptr)) {
    items->count(1);
  }
}

namespace {

/// Has the flight recorder know of a job, from its construction to its end.
class JobNote {
 public:
  /// \param worker its name; lives longer than this object
  explicit JobNote(const char* worker) noexcept : _worker(worker) {
    FlightRecorder::note(_worker, "job begins");
  }
  ~JobNote() {
    const bool failed = std::uncaught_exceptions() > _exceptions;
    FlightRecorder::note(_worker, failed ? "job ends by an exception" : "job ends");
  }
  JobNote(const JobNote&) = delete;
  JobNote& operator=(const JobNote&) = delete;

 private:
  const char* const _worker;
  const int _exceptions = std::uncaught_exceptions();
};

}  // namespace

void Worker::run() {
  const StopToken stop = _manager->stopToken();
  WorkOnItems items(_manager->_scope, stop);
  const QString name = objectName().isEmpty() ? "Worker" : objectName();
  const QByteArray source = name.toUtf8();
  Trace::nameThread(name);
  setState(WorkerLooking, 0);
  bool hasDone = false;
  while (_manager->takeJob(this, hasDone)) {
    setState(WorkerExecuting, 0);
    _jobToCount = &items;
    {
      const TraceSpan span("Worker::executeJob", "job");
      const JobNote note(source.constData());
      executeJob();
    }
    countJob();
    setState(WorkerLooking, 100);
    hasDone = true;
  }
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
  FlightRecorder::note("CatchingWorker", "job fails by an exception");
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
    countJob();
  } catch (...) {
    _jobToCount = nullptr;
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

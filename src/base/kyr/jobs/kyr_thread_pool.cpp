#include <kyr/jobs/KyrThreadPool.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/core/forever_p.h>
#include <kyr/trace/KyrTrace.h>

#include <utility>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned ThreadMutex = 45, ThreadCondition = 46, PoolMutex = 139, Duplicate = 208;
constexpr const char* File = "kyr_thread_pool";
constexpr const char* Thread = "Kyr::PoolThread::PoolThread";
}  // namespace site

PoolThread::PoolThread(LockGUI_t lock, const char* function, const char* file, unsigned line)
    : Thread(lock, function, file, line),
      _mutex(site::Thread, site::File, site::ThreadMutex),
      _changed(site::Thread, site::File, site::ThreadCondition, &_mutex) {}

PoolThread::~PoolThread() = default;

// A thread that is woken wants the mutex at once: startWorking() and reportDone() wake it when they
// have given it back. The object outlives both, as its owner calls the one and run() the other.
void PoolThread::startWorking() {
  AutoMutex locked(&_mutex);
  _state = Working;
  locked.unlock();
  // All are woken: a single one could be a waitForWorking() that came after the unlock.
  _changed.broadcast();
}

bool PoolThread::tryStartWorking() {
  bool sleeps = false;
  {
    const AutoMutex locked(&_mutex);
    sleeps = _state == Idle;
    if (sleeps) {
      _state = Working;
    }
  }
  if (sleeps) {
    _changed.broadcast();
  }
  return sleeps;
}

void PoolThread::waitForWorking() {
  const AutoMutex locked(&_mutex);
  while (_state == Working) {
    _changed.wait();
  }
}

void PoolThread::prepareExit() {
  const AutoMutex locked(&_mutex);
  _state = Exiting;
  _changed.signal();
}

bool PoolThread::awaitRequest() {
  const AutoMutex locked(&_mutex);
  while (_state == Idle) {
    _changed.wait();
  }
  return _state != Exiting;
}

void PoolThread::reportDone() {
  AutoMutex locked(&_mutex);
  const bool done = _state == Working;
  if (done) {
    _state = Idle;
  }
  locked.unlock();
  if (done) {
    _changed.signal();
  }
}

void PoolThread::run() {
  Trace::nameThread(objectName().isEmpty() ? "PoolThread" : objectName());
  while (awaitRequest()) {
    work();
    reportDone();
  }
}

namespace {

Forever<Mutex> lockRoom("Kyr::PoolForThreads::_m", site::File, site::PoolMutex);

}  // namespace

PoolForThreads* PoolForThreads::_pool = nullptr;
Mutex& PoolForThreads::_m = lockRoom.object;

PoolForThreads::PoolForThreads() = default;
PoolForThreads::~PoolForThreads() = default;

PoolForThreads* PoolForThreads::getPool() {
  const AutoMutex locked(&_m);
  if (!_pool) {
    _pool = new PoolForThreads;
  }
  return _pool;
}

void PoolForThreads::deinitialize() {
  const AutoMutex locked(&_m);
  if (_pool) {
    _pool->destroyAllThreads();
    delete _pool;
    _pool = nullptr;
  }
}

void PoolForThreads::registerThreads(const QString& name, const std::vector<PoolThread*>& threads) {
  if (threads.empty()) {
    return;
  }
  // All memory is taken before the lock, so that want of it leaves the pool as it was.
  std::map<QString, std::vector<PoolThread*>> group{{name, threads}};
  const AutoMutex locked(&_m);
  if (_threads.count(name) != 0) {
    throw ProgError("Kyr::PoolForThreads::registerThreads", site::File, site::Duplicate,
                    "Thread with the same name exists!");
  }
  _threads.merge(group);
}

unsigned PoolForThreads::getNumberOfThreads(const QString& name) {
  const AutoMutex locked(&_m);
  const auto group = _threads.find(name);
  return group == _threads.end() ? 0 : static_cast<unsigned>(group->second.size());
}

void PoolForThreads::destroyThreads(QString name) {
  const AutoMutex locked(&_m);
  destroyThreadsImp(std::move(name));
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): a reference might be to the erased key
void PoolForThreads::destroyThreadsImp(QString name) {
  const auto group = _threads.find(name);
  if (group == _threads.end()) {
    return;
  }
  for (PoolThread* const thread : group->second) {
    if (thread) {
      thread->prepareExit();
      thread->wait();
      delete thread;
    }
  }
  _threads.erase(group);
}

void PoolForThreads::destroyAllThreads() {
  while (!_threads.empty()) {
    destroyThreadsImp(_threads.begin()->first);
  }
}

}  // namespace Kyr

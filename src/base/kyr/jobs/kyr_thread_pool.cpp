#include <kyr/jobs/KyrThreadPool.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/core/forever_p.h>

#include <new>
#include <utility>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned ThreadMutex = 45, ThreadCondition = 46, Start = 64, Await = 80, Exit = 92,
                   RunExits = 109, RunWorks = 113, RunIdles = 125, PoolMutex = 139, GetPool = 160,
                   NothingToEnd = 173, Ended = 180, Duplicate = 208, Registered = 214, Count = 233,
                   Destroyed = 251;
constexpr const char* File = "kyr_thread_pool";
constexpr const char* Thread = "Kyr::PoolThread::PoolThread";
constexpr const char* Run = "Kyr::PoolThread::run";
constexpr const char* Register = "Kyr::PoolForThreads::registerThreads";
constexpr const char* Deinitialize = "Kyr::PoolForThreads::deinitialize";
}  // namespace site

PoolThread::PoolThread(LockGUI_t lock, const char* function, const char* file, unsigned line)
    : Thread(lock, function, file, line),
      _mutex(site::Thread, site::File, site::ThreadMutex),
      _changed(site::Thread, site::File, site::ThreadCondition, &_mutex) {}

PoolThread::~PoolThread() = default;

// Who is woken wants the mutex at once, hence the wake-ups after the unlock here and in
// reportDone(). The object outlives them: its owner is here, and run() is not over there.
void PoolThread::startWorking() {
  _mutex.lock();
  _state = Working;
  _mutex.unlock("Kyr::PoolThread::startWorking", site::File, site::Start);
  // Not one: without the mutex, that one could be a waitForWorking() that came meanwhile.
  _changed.broadcast();
}

void PoolThread::waitForWorking() {
  _mutex.lock();
  while (_state == Working) {
    _changed.wait();
  }
  _mutex.unlock("Kyr::PoolThread::waitForWorking", site::File, site::Await);
}

void PoolThread::prepareExit() {
  _mutex.lock();
  _state = Exiting;
  _changed.signal();
  _mutex.unlock("Kyr::PoolThread::prepareExit", site::File, site::Exit);
}

bool PoolThread::awaitRequest() {
  _mutex.lock();
  while (_state == Idle) {
    _changed.wait();
  }
  const bool exits = _state == Exiting;
  _mutex.unlock(site::Run, site::File, exits ? site::RunExits : site::RunWorks);
  return !exits;
}

void PoolThread::reportDone() {
  _mutex.lock();
  const bool done = _state == Working;
  if (done) {
    _state = Idle;
  }
  _mutex.unlock(site::Run, site::File, site::RunIdles);
  if (done) {
    _changed.signal();
  }
}

void PoolThread::run() {
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
  _m.lock();
  if (!_pool) {
    // Without memory there is no pool yet, which the caller sees; the lock must not stay.
    _pool = new (std::nothrow) PoolForThreads;
  }
  PoolForThreads* const pool = _pool;
  _m.unlock("Kyr::PoolForThreads::getPool", site::File, site::GetPool);
  if (!pool) {
    throw std::bad_alloc();
  }
  return pool;
}

void PoolForThreads::deinitialize() {
  _m.lock();
  if (!_pool) {
    _m.unlock(site::Deinitialize, site::File, site::NothingToEnd);
    return;
  }
  _pool->destroyAllThreads();
  delete _pool;
  _pool = nullptr;
  _m.unlock(site::Deinitialize, site::File, site::Ended);
}

void PoolForThreads::registerThreads(const QString& name, const std::vector<PoolThread*>& threads) {
  if (threads.empty()) {
    return;
  }
  // All memory is taken before the lock, so that want of it leaves the pool as it was.
  std::map<QString, std::vector<PoolThread*>> group{{name, threads}};
  std::map<QString, std::vector<bool>> flags{{name, std::vector<bool>(threads.size(), true)}};
  _m.lock();
  if (_threads.count(name) != 0) {
    throw ProgError(site::Register, site::File, site::Duplicate,
                    "Thread with the same name exists!");
  }
  _threads.merge(group);
  _flags.merge(flags);
  _m.unlock(site::Register, site::File, site::Registered);
}

unsigned PoolForThreads::getNumberOfThreads(const QString& name) {
  _m.lock();
  const auto group = _threads.find(name);
  const auto count = group == _threads.end() ? 0 : group->second.size();
  _m.unlock("Kyr::PoolForThreads::getNumberOfThreads", site::File, site::Count);
  return static_cast<unsigned>(count);
}

void PoolForThreads::destroyThreads(QString name) {
  _m.lock();
  destroyThreadsImp(std::move(name));
  _m.unlock("Kyr::PoolForThreads::destroyThreads", site::File, site::Destroyed);
}

// NOLINTNEXTLINE(performance-unnecessary-value-param): the caller's may be the erased key
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
  _flags.erase(name);
}

void PoolForThreads::destroyAllThreads() {
  while (!_threads.empty()) {
    destroyThreadsImp(_threads.begin()->first);
  }
}

}  // namespace Kyr

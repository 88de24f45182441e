/// \file
/// Jobs that may depend on each other, carried out by several threads.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/jobs/KyrProgressScope.h>
#include <kyr/jobs/KyrStopToken.h>
#include <kyr/sync/KyrMutex.h>
#include <kyr/sync/KyrThread.h>

#include <atomic>
#include <cstdint>
#include <exception>
#include <optional>
#include <vector>

namespace Kyr {

class WorkOnItems;
class Worker;

/// Says which jobs there are and who may take one when; owns the workers that execute them.
///
/// An application derives from it, creates the manager, then its workers (each registers
/// itself), prepares the jobs, and calls startAllWorker() and waitForWorker(). Deleting the
/// manager deletes the workers. A manager may run again after waitForWorker(); after an
/// interruption only when clearInterruptFlag() was called.
///
/// The four operations that a manager supplies run on the workers' threads, one at a time, with
/// the job mutex held: what only they touch needs no lock of its own. They must not wait for
/// anything and, jobDone() apart, not call interrupt(), which would wait for itself.
/// After each job all waiting workers wake and ask again, so a job that others depend on
/// needs no signal of its own.
/// \code
/// class Smoothing : public JobManager {
///  public:
///   class Hand : public Worker {
///    public:
///     explicit Hand(JobManager* manager) : Worker(NoLockGUI, manager) {}
///     std::size_t index = 0;
///
///    protected:
///     void executeJob() override { points[index] *= 0.5; }
///   };
///
///  protected:
///   bool hasMoreJobs() override { return _next < points.size(); }
///   bool isJobAvailable(Worker*) override { return true; }
///   void assignJob(Worker* worker) override { static_cast<Hand*>(worker)->index = _next++; }
///   void jobDone(Worker*) override {}
///
///  private:
///   std::size_t _next = 0;
/// };
/// Smoothing smoothing;
/// new Smoothing::Hand(&smoothing);  // registers itself, and is deleted by the manager
/// new Smoothing::Hand(&smoothing);
/// smoothing.startAllWorker();
/// smoothing.waitForWorker();
/// \endcode
/// \threadsafety as each function says; the controlling thread is the one that starts the workers
class KYR_EXPORT JobManager {
 public:
  using WorkerIterator = std::vector<Worker*>::iterator;             ///< over pointers, never null
  using ConstWorkerIterator = std::vector<Worker*>::const_iterator;  ///< over pointers, never null

  /// A manager without workers, not interrupted.
  JobManager();
  /// Deletes the workers in the order of their registration.
  /// \throws ProgError "should never destroy a job manager with running jobs." at the first
  ///         worker that runs; those before it are deleted by then
  virtual ~JobManager();
  JobManager(const JobManager&) = delete;
  JobManager& operator=(const JobManager&) = delete;

  /// Starts the threads of all workers with the priority of the calling one; without any worker
  /// nothing is done, and waitForWorker() returns at once.
  /// \threadsafety the controlling thread
  void startAllWorker();
  /// Waits until the threads of all workers have ended; without a time limit.
  /// \threadsafety any thread but a worker's
  void waitForWorker();
  /// Lets every worker end: a waiting one at once, an executing one when its job is done,
  /// which is still reported with jobDone(). Does not wait for that.
  /// \threadsafety any thread; from the manager's own operations only inside jobDone()
  void interrupt();
  /// Whether interrupt() was called, and clearInterruptFlag() not since; or the token of
  /// setStopToken() is stopped.
  /// \threadsafety any thread
  bool isInterrupted() const;
  /// Makes an interrupted manager fit for another start. Nothing else clears the flag.
  /// \threadsafety any thread; meant for the controlling one, after waitForWorker()
  void clearInterruptFlag();

  /// What jobs look at to stop early; on their threads it is StopToken::current(). Stopped by
  /// interrupt() and with the token of setStopToken(); without one, by the abort flag of Progress
  /// as well, which by itself does not interrupt the manager.
  /// \return a token for this run: another one after clearInterruptFlag(), and at a start when no
  ///         interruption has stopped it
  /// \threadsafety any thread
  StopToken stopToken() const;
  /// Takes a token that interrupts the manager while it is stopped. Who waits for a job sees that
  /// when a job is done.
  /// \threadsafety the controlling thread, while no worker runs
  void setStopToken(const StopToken& token);
  /// Makes each job a step of a scope, whichever worker executes it. A job that begins a
  /// ProgressScope fills its step with that one, and one that threw does not count.
  /// \param scope must outlive the run; null for none, as at the start
  /// \threadsafety the controlling thread, while no worker runs
  void setProgressScope(ProgressScope* scope);

  /// The workers in the order of their registration.
  /// \threadsafety any thread, as long as nobody creates a worker
  WorkerIterator workerBegin() { return _workers.begin(); }
  /// Behind the last worker.
  /// \threadsafety as workerBegin()
  WorkerIterator workerEnd() { return _workers.end(); }
  /// The workers in the order of their registration.
  /// \threadsafety any thread, as long as nobody creates a worker
  ConstWorkerIterator workerBegin() const { return _workers.begin(); }
  /// Behind the last worker.
  /// \threadsafety as workerBegin()
  ConstWorkerIterator workerEnd() const { return _workers.end(); }

 protected:
  /// Whether jobs are left to be taken or executed.
  /// \return false lets the asking worker end
  virtual bool hasMoreJobs() = 0;
  /// Whether a job can be given to \a worker now; else it waits until some job is done, and for
  /// ever, but for interrupt(), when none is being executed.
  virtual bool isJobAvailable(Worker* worker) = 0;
  /// Hands the data of the next job to \a worker; follows an isJobAvailable() that gave true.
  virtual void assignJob(Worker* worker) = 0;
  /// Takes the result of the job that \a worker has executed.
  virtual void jobDone(Worker* worker) = 0;

 private:
  friend class Worker;

  KYR_HIDDEN void waitForJob() KYR_REQUIRES(_jobMutex);
  KYR_HIDDEN void wakeWaiting() KYR_REQUIRES(_jobMutex);
  KYR_HIDDEN void registerWorker(Worker* worker);
  /// Raises an internal error for a worker that is not registered.
  KYR_HIDDEN bool isValidWorker(const Worker* worker) const;
  KYR_HIDDEN bool isInterruptedNow() const KYR_REQUIRES(_interruptMutex);
  KYR_HIDDEN bool getJobData(Worker* worker) KYR_REQUIRES(_jobMutex);
  KYR_HIDDEN void notifyJobDone(Worker* worker) KYR_REQUIRES(_jobMutex);
  /// Reports the job that a worker has done, if any, and gives it the next; waits for one. Does all
  /// of it in one lock of the job mutex: giving it back in between would cost a turn of the others.
  /// \return false when the worker is to end
  KYR_HIDDEN bool takeJob(Worker* worker, bool hasDone);

  std::vector<Worker*> _workers;
  Mutex _jobMutex;
  Condition _jobCondition;
  /// Set under the job mutex, but read by interrupt() without it.
  std::atomic<bool> _inNotify{false};
  mutable Mutex _interruptMutex;
  bool _interrupted KYR_GUARDED_BY(_interruptMutex) = false;
  std::optional<StopToken> _stopAbove KYR_GUARDED_BY(_interruptMutex);
  mutable std::optional<StopToken> _stop KYR_GUARDED_BY(_interruptMutex);  // made when asked for
  ProgressScope* _scope = nullptr;
  /// Workers that went to sleep since the last broadcast; there is none to wake when it is 0.
  unsigned _waiting KYR_GUARDED_BY(_jobMutex) = 0;
  // What later versions need besides.
  [[maybe_unused]] void* _more = nullptr;
};

/// What a worker is doing.
enum WorkerState_t : int {
  WorkerStopped = 0,    ///< its thread has not begun or has ended
  WorkerLooking = 1,    ///< looks for a job or waits for one
  WorkerExecuting = 2,  ///< in executeJob(); back to WorkerLooking when that returns
};

/// A thread that executes the jobs of a manager until there are no more.
///
/// An application derives from it, gives it members for a job's data and result, which the
/// manager fills and reads, and supplies executeJob(). An exception that leaves executeJob()
/// ends the process, which is right where jobs do not throw; derive from CatchingWorker where
/// they may.
/// \threadsafety as each function says
class KYR_EXPORT Worker : public Thread {
 public:
  /// Registers the worker with \a manager, which deletes it.
  /// \param lock kept by the thread, see Thread::lockGUI()
  /// \threadsafety one thread at a time for a manager, none of whose workers runs
  Worker(LockGUI_t lock, JobManager* manager);
  /// Does not take the worker from its manager's list.
  ~Worker() override;

  /// What the worker is doing.
  /// \threadsafety any thread
  WorkerState_t getState() const;
  /// How far the worker is.
  /// \return the percentage of the current job, 0 to 100; meaningless before the first start
  /// \threadsafety any thread
  int getProgress() const;
  /// What executeJob() polls to stop early.
  /// \threadsafety any thread
  bool isManagerInterrupted() const;

 protected:
  void run() override;
  /// Executes the job that the manager assigned; called on the worker's thread, no lock held.
  virtual void executeJob() = 0;
  /// Tells how far the worker is.
  /// \param progress percentage of the current job; below 0 counts as 0, above 100 as 100
  /// \threadsafety any thread
  void setProgress(int progress);

 private:
  friend class CatchingWorker;

  KYR_HIDDEN void setState(WorkerState_t state);
  KYR_HIDDEN void setState(WorkerState_t state, int progress);
  /// Counts the present job as a step, once.
  KYR_HIDDEN void countJob();

  JobManager* _manager;
  mutable Mutex _workerMutex;
  WorkerState_t _state KYR_GUARDED_BY(_workerMutex) = WorkerStopped;
  int _progress KYR_GUARDED_BY(_workerMutex) = 0;
  WorkOnItems* _jobToCount = nullptr;  // null when the present job counts no more
  // What later versions need besides.
  [[maybe_unused]] void* _more = nullptr;
};

/// A worker whose jobs may throw.
///
/// Derive from Worker where an exception in a job is a defect: the process then ends at the
/// spot, with the stack of the failure. Derive from this class where it is a result, as an
/// unreadable file or exhausted memory: the worker keeps what the job threw and interrupts the
/// manager, and waitAndRethrow() throws it again where the run is awaited; with waitForWorker()
/// it stays unseen. A manager may own workers of both classes.
///
/// The manager gets jobDone() for the failed job as well, with isInterrupted() already true;
/// failed() of the worker tells it there that no result is to be taken and that what depends
/// on the job must not become available.
/// \threadsafety as each function says
class KYR_EXPORT CatchingWorker : public Worker {
 public:
  /// As the constructor of Worker.
  /// \threadsafety one thread at a time for a manager, none of whose workers runs
  CatchingWorker(LockGUI_t lock, JobManager* manager);
  ~CatchingWorker() override;

  /// Whether a job of this worker has thrown since the last start of its thread.
  /// \threadsafety any thread
  bool failed() const { return getException() != nullptr; }
  /// What a job of this worker threw, the first one since the last start of its thread; null
  /// for none.
  /// \threadsafety any thread; the exception object itself is shared
  std::exception_ptr getException() const;

  /// Waits until the threads of all workers have ended, and throws again what the first failed
  /// job threw, if there was one. Every caller gets it until the workers start again; what
  /// other workers kept stays readable there.
  /// \param manager owner of workers of any class
  /// \throws whatever the job threw; all workers have ended by then
  /// \threadsafety any thread but a worker's
  static void waitAndRethrow(JobManager& manager);

 protected:
  void run() override;
  /// Executes the job that the manager assigned; may throw anything. Called on the worker's
  /// thread, no lock held.
  virtual void executeJobOrThrow() = 0;

 private:
  void executeJob() final;
  KYR_HIDDEN void keep(std::exception_ptr exception);

  mutable Mutex _failureMutex;
  std::exception_ptr _exception KYR_GUARDED_BY(_failureMutex);
  /// Orders the failures of all workers in time.
  std::uint64_t _turn KYR_GUARDED_BY(_failureMutex) = 0;
};

}  // namespace Kyr

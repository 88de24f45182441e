#include "surface/analysis.h"

#include "surface/abort.h"
#include "surface/survey_p.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrProgress.h>
#include <kyr/jobs/KyrScheduler.h>
#include <kyr/os/KyrOS.h>

#include <QString>

#include <algorithm>
#include <deque>

namespace Surface {

namespace {

using Kyr::Progress;

/// One pass on one chunk. The passes: 0 sorts the corners, 1 finds the stars, then comes the
/// smoothing, and the last one computes curvatures.
struct Job {
  unsigned pass = 0;
  unsigned chunk = 0;
};

/// Shows which pass is being worked on. Jobs of a later pass may be done before; they count
/// when their pass is shown, so that the progress never goes back.
class PassProgress {
 public:
  PassProgress(const AnalysisOptions& options, std::vector<unsigned> jobs)
      : _min(options.progressMin),
        _max(options.progressMax),
        _jobs(std::move(jobs)),
        _done(_jobs.size()) {
    show(0);
  }
  ~PassProgress() { Progress::splitProgress(-1, -1, 0); }
  PassProgress(const PassProgress&) = delete;
  PassProgress& operator=(const PassProgress&) = delete;

  void jobDone(unsigned pass) {
    ++_done[pass];
    if (pass == _shown) {
      Progress::addProgressSteps(1);
    }
    while (_done[_shown] == _jobs[_shown] && _shown + 1 < _jobs.size()) {
      show(_shown + 1);
    }
  }

  void allDone() { Progress::setProgress(_min, _max, 100); }

 private:
  void show(unsigned pass) {
    _shown = pass;
    Progress::setProgressString(text(), true);
    const auto passes = static_cast<unsigned>(_jobs.size());
    Progress::splitProgress(Progress::min(_min, _max, passes, pass),
                            Progress::max(_min, _max, passes, pass), _jobs[pass]);
    Progress::addProgressSteps(_done[pass]);
  }

  QString text() const {
    if (_shown + 1 == _jobs.size()) {
      return Kyr::translate("Surface", "Computing curvatures");
    }
    return _shown == 0   ? Kyr::translate("Surface", "Sorting the corners of triangles")
           : _shown == 1 ? Kyr::translate("Surface", "Finding neighbours and normals")
                         : Kyr::translate("Surface", "Smoothing normals");
  }

  const int _min;
  const int _max;
  const std::vector<unsigned> _jobs;
  std::vector<unsigned> _done;
  unsigned _shown = 0;
};

class Analyst;

/// Knows which jobs wait for which.
class Schedule : public Kyr::JobManager {
 public:
  Schedule(Survey& survey, const AnalysisOptions& options);

  std::size_t jobs() const { return _jobs; }
  bool isDone() const { return _left == 0; }
  void allDone() { _progress.allDone(); }
  bool execute(const Job& job, const GoOn& goOn);

 protected:
  bool hasMoreJobs() override { return _left > 0; }
  bool isJobAvailable(Kyr::Worker* /*worker*/) override { return !_ready.empty(); }
  void assignJob(Kyr::Worker* worker) override;
  void jobDone(Kyr::Worker* worker) override;

 private:
  unsigned lastPass() const { return _smoothing + 2; }
  static std::vector<unsigned> jobsOfPasses(const Survey& survey, unsigned smoothing);
  void addForAllChunks(unsigned pass, unsigned chunks);
  void release(const Job& job);
  void awaitNeighbours(unsigned pass, unsigned chunk);
  void neighbourDone(unsigned pass, unsigned chunk);

  Survey& _survey;
  const unsigned _smoothing;
  PassProgress _progress;
  std::size_t _jobs;
  std::size_t _left;
  unsigned _unsorted;
  std::deque<Job> _ready;
  /// For each chunk, how many neighbours its next even and odd pass still wait for. Neighbours
  /// that are done before the chunk knows how many it has make the number negative. Two
  /// suffice, since no chunk is two passes ahead of a neighbour.
  std::vector<int> _missing[2];
};

/// Executes one job after the other.
class Analyst : public Kyr::CatchingWorker {
 public:
  explicit Analyst(Schedule* schedule) : CatchingWorker(NoLockGUI, schedule), _schedule(schedule) {}

  void setJob(const Job& job) { _job = job; }
  const Job& job() const { return _job; }
  /// Whether the job came to its end.
  bool isComplete() const { return _complete; }

 protected:
  void executeJobOrThrow() override {
    _complete = false;
    _complete = _schedule->execute(
        _job, [this](std::size_t done, std::size_t all) { return goOn(done, all); });
  }

 private:
  bool goOn(std::size_t done, std::size_t all) {
    if (Progress::getAbortFlag()) {
      _schedule->interrupt();
    }
    setProgress(static_cast<int>(100.0 * static_cast<double>(done) / static_cast<double>(all)));
    return !isManagerInterrupted();
  }

  Schedule* _schedule;
  Job _job;
  bool _complete = false;
};

std::size_t total(const std::vector<unsigned>& counts) {
  std::size_t result = 0;
  for (const unsigned count : counts) {
    result += count;
  }
  return result;
}

Schedule::Schedule(Survey& survey, const AnalysisOptions& options)
    : _survey(survey),
      _smoothing(options.smoothingPasses),
      _progress(options, jobsOfPasses(survey, _smoothing)),
      _jobs(total(jobsOfPasses(survey, _smoothing))),
      _left(_jobs),
      _unsorted(survey.triangleChunks().count()) {
  for (std::vector<int>& missing : _missing) {
    missing.resize(survey.pointChunks().count());
  }
  addForAllChunks(0, _unsorted);
}

std::vector<unsigned> Schedule::jobsOfPasses(const Survey& survey, unsigned smoothing) {
  std::vector<unsigned> jobs(smoothing + std::size_t{3}, survey.pointChunks().count());
  jobs.front() = survey.triangleChunks().count();
  return jobs;
}

bool Schedule::execute(const Job& job, const GoOn& goOn) {
  if (job.pass == 0) {
    return _survey.sortCorners(job.chunk, goOn);
  }
  if (job.pass == 1) {
    return _survey.findStars(job.chunk, goOn);
  }
  return job.pass == lastPass() ? _survey.bend(job.chunk, _smoothing, goOn)
                                : _survey.smooth(job.chunk, job.pass - 2, goOn);
}

void Schedule::assignJob(Kyr::Worker* worker) {
  static_cast<Analyst*>(worker)->setJob(_ready.front());
  _ready.pop_front();
}

void Schedule::jobDone(Kyr::Worker* worker) {
  const Analyst& analyst = *static_cast<Analyst*>(worker);
  if (analyst.isComplete()) {
    --_left;
    release(analyst.job());
    _progress.jobDone(analyst.job().pass);
  }
}

void Schedule::addForAllChunks(unsigned pass, unsigned chunks) {
  for (unsigned chunk = 0; chunk < chunks; ++chunk) {
    _ready.push_back({pass, chunk});
  }
}

/// Makes jobs available that waited for this one.
void Schedule::release(const Job& job) {
  if (job.pass == 0) {
    // Until all are sorted nobody knows where the corners of a chunk come from.
    if (--_unsorted == 0) {
      addForAllChunks(1, _survey.pointChunks().count());
    }
    return;
  }
  if (job.pass == lastPass()) {
    return;
  }
  if (job.pass == 1) {
    awaitNeighbours(2, job.chunk);
    awaitNeighbours(3, job.chunk);
  }
  for (const unsigned neighbour : _survey.neighbours(job.chunk)) {
    neighbourDone(job.pass + 1, neighbour);
  }
}

void Schedule::awaitNeighbours(unsigned pass, unsigned chunk) {
  _missing[pass % 2][chunk] += static_cast<int>(_survey.neighbours(chunk).size());
}

/// \param pass the one that needs the neighbour
void Schedule::neighbourDone(unsigned pass, unsigned chunk) {
  if (--_missing[pass % 2][chunk] == 0) {
    _ready.push_back({pass, chunk});
    awaitNeighbours(pass + 2, chunk);
  }
}

}  // namespace

unsigned numberOfWorkers(const AnalysisOptions& options) {
  constexpr unsigned most = 256;  // of those that nobody asked for by their number
  return options.workers > 0 ? options.workers : std::min(Kyr::OS::getNumberOfCPUs(), most);
}

Analysis analyse(const Mesh& mesh, const AnalysisOptions& options) {
  stopIfAborted();
  Survey survey(mesh);
  Schedule schedule(survey, options);
  for (unsigned worker = 0; worker < numberOfWorkers(options); ++worker) {
    new Analyst(&schedule);  // the schedule deletes it
  }
  schedule.startAllWorker();
  Kyr::CatchingWorker::waitAndRethrow(schedule);
  if (schedule.isInterrupted()) {
    throw Aborted();
  }
  if (!schedule.isDone()) {
    throw Kyr::Exception(
        Kyr::translate("Surface", "the system starts no threads for the analysis"));
  }
  schedule.allDone();
  Analysis result = survey.take(options.smoothingPasses);
  result.jobs = schedule.jobs();
  return result;
}

}  // namespace Surface

#include "surface/analysis.h"

#include "surface/abort.h"
#include "surface/survey_p.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrProgressScope.h>
#include <kyr/jobs/KyrScheduler.h>
#include <kyr/jobs/KyrStopToken.h>
#include <kyr/os/KyrOS.h>

#include <QString>

#include <algorithm>
#include <deque>

namespace Surface {

namespace {

/// One pass on one chunk. The passes: 0 sorts the corners, 1 finds the stars, then comes the
/// smoothing, and the last one computes curvatures.
struct Job {
  unsigned pass = 0;
  unsigned chunk = 0;
};

class Analyst;

/// Knows which jobs wait for which.
class Schedule : public Kyr::JobManager {
 public:
  Schedule(Survey& survey, const AnalysisOptions& options);

  std::size_t jobs() const { return _jobs; }
  bool isDone() const { return _left == 0; }
  void execute(const Job& job);

 protected:
  bool hasMoreJobs() override { return _left > 0; }
  bool isJobAvailable(Kyr::Worker* /*worker*/) override { return !_ready.empty(); }
  void assignJob(Kyr::Worker* worker) override;
  void jobDone(Kyr::Worker* worker) override;

 private:
  unsigned lastPass() const { return _smoothing + 2; }
  void countJob(unsigned pass);
  void showPass() const;
  void addForAllChunks(unsigned pass, unsigned chunks);
  void release(const Job& job);
  void awaitNeighbours(unsigned pass, unsigned chunk);
  void neighbourDone(unsigned pass, unsigned chunk);

  Survey& _survey;
  const unsigned _smoothing;
  std::vector<unsigned> _leftOfPass;
  unsigned _shown = 0;  // pass; jobs of later ones may be done before
  const std::size_t _jobs;
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

 protected:
  void executeJobOrThrow() override { _schedule->execute(_job); }

 private:
  Schedule* _schedule;
  Job _job;
};

Schedule::Schedule(Survey& survey, const AnalysisOptions& options)
    : _survey(survey),
      _smoothing(options.smoothingPasses),
      _leftOfPass(_smoothing + std::size_t{3}, survey.pointChunks().count()),
      _jobs(survey.triangleChunks().count() +
            (_smoothing + std::size_t{2}) * survey.pointChunks().count()),
      _left(_jobs),
      _unsorted(survey.triangleChunks().count()) {
  _leftOfPass.front() = _unsorted;
  for (std::vector<int>& missing : _missing) {
    missing.resize(survey.pointChunks().count());
  }
  addForAllChunks(0, _unsorted);
  showPass();
}

void Schedule::execute(const Job& job) {
  if (job.pass == 0) {
    _survey.sortCorners(job.chunk);
  } else if (job.pass == 1) {
    _survey.findStars(job.chunk);
  } else if (job.pass == lastPass()) {
    _survey.bend(job.chunk, _smoothing);
  } else {
    _survey.smooth(job.chunk, job.pass - 2);
  }
}

/// Shows the first pass that is not over.
void Schedule::countJob(unsigned pass) {
  --_left;
  --_leftOfPass[pass];
  while (_leftOfPass[_shown] == 0 && _shown < lastPass()) {
    ++_shown;
    showPass();
  }
}

void Schedule::showPass() const {
  Kyr::ProgressScope::setText(
      _shown == lastPass() ? Kyr::translate("Surface", "Computing curvatures")
      : _shown == 0        ? Kyr::translate("Surface", "Sorting the corners of triangles")
      : _shown == 1        ? Kyr::translate("Surface", "Finding neighbours and normals")
                           : Kyr::translate("Surface", "Smoothing normals"),
      true);
}

void Schedule::assignJob(Kyr::Worker* worker) {
  static_cast<Analyst*>(worker)->setJob(_ready.front());
  _ready.pop_front();
}

void Schedule::jobDone(Kyr::Worker* worker) {
  const Analyst& analyst = *static_cast<Analyst*>(worker);
  if (!analyst.failed()) {
    release(analyst.job());
    countJob(analyst.job().pass);
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
    // The corners of a chunk may come from any triangle, so all must be sorted first.
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

/// Notes that a neighbour of a chunk has done what a pass of the chunk needs.
/// \param pass the one that needs the neighbour
void Schedule::neighbourDone(unsigned pass, unsigned chunk) {
  if (--_missing[pass % 2][chunk] == 0) {
    _ready.push_back({pass, chunk});
    awaitNeighbours(pass + 2, chunk);
  }
}

}  // namespace

unsigned numberOfWorkers(const AnalysisOptions& options) {
  constexpr unsigned most = 256;  // threads, where nobody has asked for a number
  return options.workers > 0 ? options.workers : std::min(Kyr::OS::getNumberOfCPUs(), most);
}

Analysis analyse(const Mesh& mesh, const AnalysisOptions& options) try {
  Kyr::throwIfStopped();
  Survey survey(mesh);
  Schedule schedule(survey, options);
  Kyr::ProgressScope scope(Kyr::ProgressScope::Range{options.progressMin, options.progressMax},
                           "analyse", schedule.jobs());
  schedule.setProgressScope(&scope);
  for (unsigned worker = 0; worker < numberOfWorkers(options); ++worker) {
    new Analyst(&schedule);  // the schedule deletes it
  }
  schedule.startAllWorker();
  Kyr::CatchingWorker::waitAndRethrow(schedule);
  if (!schedule.isDone()) {
    throw Kyr::Exception(
        Kyr::translate("Surface", "the system starts no threads for the analysis"));
  }
  Analysis result = survey.take(options.smoothingPasses);
  result.jobs = schedule.jobs();
  return result;
} catch (const Kyr::Stopped&) {
  throw Aborted();
}

}  // namespace Surface

#include <kyr/jobs/KyrProgressScope.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/jobs/KyrProgress.h>
#include <kyr/jobs/work_context_p.h>

#include <algorithm>
#include <limits>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned EarlyEnd = 154;
constexpr const char* File = "kyr_progress_scope";
}  // namespace site

namespace {

// A scope fills so many ticks of the whole. All shares are cut off to whole ticks, and what that
// leaves over is given at the scope's end: so nothing is ever given twice, and nothing stays.
constexpr unsigned tickBits = 32;
constexpr std::uint64_t allTicks = std::uint64_t{1} << tickBits;
constexpr std::uint64_t never = std::numeric_limits<std::uint64_t>::max();
/// What all scopes together may hold back of the whole; less than a percent.
constexpr std::uint64_t heldBack = allTicks / 128;

/// As many ticks as rounding down may lose before a percentage shows it.
constexpr std::uint64_t cutOff = allTicks / 65536;

unsigned percentOf(std::uint64_t ticks) {
  const std::uint64_t percent = (ticks + cutOff) * 100 >> tickBits;
  return ticks >= allTicks ? 100 : static_cast<unsigned>(std::min<std::uint64_t>(percent, 99));
}

/// The least number of ticks that are so much.
std::uint64_t ticksFor(unsigned percent) {
  return percent >= 100 ? allTicks : (percent * allTicks + 99) / 100 - cutOff;
}

/// Whether an outermost scope moves the progress; a second one must not move it back.
std::atomic<bool> isInUse{false};

}  // namespace

/// What an outermost scope and all its parts share.
struct ProgressScope::Whole {
  explicit Whole(const Range* given) : range(given ? *given : Range{0, 100}) {
    if (range.min == -1 || range.max == -1 || isInUse.exchange(true)) {
      return;
    }
    moves = true;
    percent = 0;
    try {
      Progress::setProgress(range.min, range.max, 0);
    } catch (...) {
      isInUse = false;
      throw;
    }
  }
  ~Whole() {
    if (moves) {
      isInUse = false;
    }
  }
  Whole(const Whole&) = delete;
  Whole& operator=(const Whole&) = delete;

  /// Adds ticks, and shows the progress if that is due. The lock is the one of Progress, so that
  /// none with less comes after one with more, and a step that shows something takes no other.
  /// \return whether the overall percentage has changed
  bool add(std::uint64_t more) KYR_REQUIRES(Progress::_mutex_progress) {
    ticks += more;
    const unsigned reached = percentOf(ticks);
    if (reached <= percent) {
      return false;
    }
    percent = reached;
    return Progress::store(range.min, range.max, reached);
  }

  void tellIf(bool changed) {
    if (changed && Progress::_makes_events.load(std::memory_order_relaxed)) {
      tell();
    }
  }

  /// One thread at a time; others do not wait for it, nor does a creator of events that takes a
  /// step itself, as it tells what they have shown.
  void tell() {
    if (untold.fetch_add(1) != 0) {
      return;
    }
    unsigned told = 0;
    do {
      told = untold;
      try {
        Progress::createGUIEvents();
      } catch (...) {
        untold = 0;
        throw;
      }
    } while (untold.fetch_sub(told) != told);
  }

  /// How many ticks a scope may keep to itself until its next report. Of the living scopes the
  /// n-th that reported last saw n at least: 1/2 + 1/6 + 1/12 + ... is never more than the whole.
  std::uint64_t patience() const KYR_REQUIRES(Progress::_mutex_progress) {
    const std::uint64_t change = ticksFor(percentOf(ticks) + 1);
    const std::uint64_t untilChange = change > ticks ? change - ticks : 1;
    const std::uint64_t all = scopes;
    return all == 1 ? untilChange
                    : std::clamp<std::uint64_t>(heldBack / (all * (all + 1)), 1, untilChange);
  }

  const Range range;
  bool moves = false;  // the progress
  std::uint64_t ticks KYR_GUARDED_BY(Progress::_mutex_progress) = 0;
  /// Shown last; only grows, and shows nothing at first.
  unsigned percent KYR_GUARDED_BY(Progress::_mutex_progress) = 100;
  unsigned scopes KYR_GUARDED_BY(Progress::_mutex_progress) = 1;  // that live
  /// Changes that were shown, and of which events were not made yet.
  std::atomic<unsigned> untold{0};
};

ProgressScope::ProgressScope(const char* name, std::uint64_t steps, std::uint64_t weight)
    : ProgressScope(nullptr, workContext().scope, name, steps, weight) {}

ProgressScope::ProgressScope(ProgressScope& parent, const char* name, std::uint64_t steps,
                             std::uint64_t weight)
    : ProgressScope(nullptr, &parent, name, steps, weight) {}

ProgressScope::ProgressScope(Range range, const char* name, std::uint64_t steps)
    : ProgressScope(&range, workContext().scope, name, steps, 1) {}

ProgressScope::ProgressScope(const Range* range, ProgressScope* parent, const char* name,
                             std::uint64_t steps, std::uint64_t weight)
    : _name(name),
      _parent(parent),
      _before(workContext().scope),
      _own(parent ? nullptr : std::make_unique<Whole>(range)),
      _whole(parent ? parent->_whole : *_own),
      _steps(std::max<std::uint64_t>(steps, 1)),
      _span(parent ? parent->begin(weight) : allTicks),
      _ticksPerStep(_span / _steps),
      _isCoarse(_ticksPerStep >= heldBack),
      _share(static_cast<double>(_span) / static_cast<double>(_steps)),
      _stepsPerTick(static_cast<double>(_steps) /
                    static_cast<double>(std::max<std::uint64_t>(_span, 1))),
      _publishAt(_whole.moves && _span != 0 ? 0 : never),
      _traced(name, "scope") {
  WorkContext& context = workContext();
  context.scope = this;
  if (parent) {
    ++parent->_parts;
    context.claimed += parent == context.items ? std::min(weight, parent->_steps) : 0;
  }
  if (Pauses::areMeasured()) {
    _begun = Pauses::now();
    if (!_before) {
      context.looked = _begun;
      context.partSeconds = 0;
    }
  }
}

ProgressScope::~ProgressScope() {
  if (_parts != 0) {
    const ProgError early("Kyr::ProgressScope::~ProgressScope", site::File, site::EarlyEnd,
                          "progress scope ends before a part of it");
  }
  WorkContext& context = workContext();
  if (Pauses::areMeasured()) {
    const double seconds = Pauses::now() - std::max(_begun, context.looked);
    if (seconds > context.partSeconds) {
      context.partSeconds = seconds;
      context.longestPart = _name;
    }
    if (!_before) {
      Pauses::noteLook();
    }
  }
  context.scope = _before;
  AutoMutex locked(&Progress::_mutex_progress);
  const bool changed = _whole.add(give(_span));
  --_whole.scopes;
  locked.unlock();
  try {
    _whole.tellIf(changed);
  } catch (...) {  // NOLINT(bugprone-empty-catch): of a creator of events; the progress is moved
  }
  if (_parent) {
    --_parent->_parts;
  }
}

void ProgressScope::setText(const QString& text, bool force) {
  Progress::setProgressString(text, force);
}

/// The share of so many steps; more for more steps, and never more than all.
std::uint64_t ProgressScope::ticksOf(std::uint64_t steps) const {
  if (steps >= _steps) {
    return _span;
  }
  return _isCoarse
             ? steps * _ticksPerStep
             : std::min(_span, static_cast<std::uint64_t>(static_cast<double>(steps) * _share));
}

/// The least number of steps whose share is so much; where rounding leaves a doubt, one less.
std::uint64_t ProgressScope::stepsFor(std::uint64_t ticks) const {
  constexpr double doubt = 1.0 / 65536;
  const double steps = static_cast<double>(ticks) * _stepsPerTick - doubt;
  return ticks >= _span ? _steps : static_cast<std::uint64_t>(std::max(steps, 0.0)) + 1;
}

/// Sets ticks aside.
/// \return how many there were
std::uint64_t ProgressScope::give(std::uint64_t ticks) {
  const std::uint64_t more = std::min(ticks, _span - _given - _shown);
  _given += more;
  return more;
}

/// Counts a new part of this scope, and sets its share aside.
std::uint64_t ProgressScope::begin(std::uint64_t weight) {
  const std::uint64_t share = ticksOf(weight);
  const AutoMutex locked(&Progress::_mutex_progress);
  ++_whole.scopes;
  return give(share);
}

/// Shows steps that are done, and says when to do so again. The release of the lock waits for all
/// that is stored: so what takes time comes before it, or not at all.
void ProgressScope::publish(std::uint64_t done) {
  AutoMutex locked(&Progress::_mutex_progress);
  if (done < _publishAt.load(std::memory_order_relaxed)) {
    return;  // another thread has shown more
  }
  const std::uint64_t most = _span - _given;
  const std::uint64_t ticks = std::min(ticksOf(done), most);  // not less than before
  const bool changed = _whole.add(ticks - _shown);
  _shown = ticks;
  const std::uint64_t next = ticks >= most ? never
                             : _isCoarse   ? done + 1
                                         : std::max(stepsFor(ticks + _whole.patience()), done + 1);
  _publishAt.store(next, std::memory_order_relaxed);
  locked.unlock();
  _whole.tellIf(changed);
}

}  // namespace Kyr

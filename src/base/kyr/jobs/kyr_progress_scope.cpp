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

unsigned shiftFor(std::uint64_t steps) {
  unsigned shift = 0;
  while (steps >> shift >= allTicks) {
    ++shift;
  }
  return shift;
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
    next = ticksFor(1);
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

  void add(std::uint64_t more) { showIfDue(ticks.fetch_add(more) + more); }

  void showIfDue(std::uint64_t reached) {
    if (reached >= next.load(std::memory_order_relaxed)) {
      show();
    }
  }

  /// Shows the progress that is due, on one thread at a time, so that none with less comes after
  /// one with more. The next report is made known first: what comes out of this one must not end
  /// reporting.
  void show() {
    AutoMutex locked(&Progress::_mutex_progress);
    const unsigned percent = percentOf(ticks.load());
    next.store(percent >= 100 ? never : ticksFor(percent + 1), std::memory_order_relaxed);
    const bool changed = Progress::store(range.min, range.max, percent);
    locked.unlock();
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
  std::uint64_t patience(std::uint64_t reached) const {
    const std::uint64_t change = ticksFor(percentOf(reached) + 1);
    const std::uint64_t untilChange = change > reached ? change - reached : 1;
    const std::uint64_t all = scopes.load(std::memory_order_relaxed);
    return all == 1 ? untilChange
                    : std::clamp<std::uint64_t>(heldBack / (all * (all + 1)), 1, untilChange);
  }

  const Range range;
  bool moves = false;  // the progress
  std::atomic<std::uint64_t> ticks{0};
  std::atomic<std::uint64_t> next{never};  // to be shown then; only grows
  std::atomic<unsigned> scopes{0};
  std::atomic<unsigned> untold{
      0};  // changes that were shown, and of which events were not made yet
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
      _shift(shiftFor(_steps)),
      _span(parent ? parent->give(parent->ticksOf(weight)) : allTicks),
      _publishAt(_whole.moves && _span != 0 ? 0 : never),
      _traced(name, "scope") {
  WorkContext& context = workContext();
  context.scope = this;
  ++_whole.scopes;
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
  try {
    _whole.add(give(_span));
  } catch (...) {  // NOLINT(bugprone-empty-catch): of a creator of events; the progress is moved
  }
  --_whole.scopes;
  if (_parent) {
    --_parent->_parts;
  }
}

void ProgressScope::setText(const QString& text, bool force) {
  Progress::setProgressString(text, force);
}

/// The share of so many steps.
std::uint64_t ProgressScope::ticksOf(std::uint64_t steps) const {
  return steps >= _steps ? _span : _span * (steps >> _shift) / (_steps >> _shift);
}

/// The least number of steps whose share is so much.
std::uint64_t ProgressScope::stepsFor(std::uint64_t ticks) const {
  const std::uint64_t steps = _steps >> _shift;
  return ticks >= _span ? _steps : (ticks * steps + _span - 1) / _span << _shift;
}

/// Sets ticks aside for a part.
/// \return how many there were
std::uint64_t ProgressScope::give(std::uint64_t ticks) {
  const std::uint64_t given = _given.load(std::memory_order_relaxed) + _shown;
  const std::uint64_t more = std::min(ticks, _span - std::min(_span, given));
  _given.fetch_add(more, std::memory_order_relaxed);
  return more;
}

void ProgressScope::publish() {
  // One thread at a time publishes; others do not wait for it, as it sees what they have added.
  std::uint64_t due = _publishAt.load();
  while (due != never && _done.load() >= due) {
    if (_publishAt.compare_exchange_weak(due, never)) {
      due = publishSteps();
    }
  }
}

/// Shows all steps that are done, and says when to do so again.
/// \return the number of steps at which that is
std::uint64_t ProgressScope::publishSteps() {
  const std::uint64_t done = _done.load();
  const std::uint64_t before = _shown.load(std::memory_order_relaxed);
  const std::uint64_t most = _span - std::min(_span, _given.load(std::memory_order_relaxed));
  const std::uint64_t ticks = std::max(std::min(ticksOf(done), most), before);
  _shown.store(ticks, std::memory_order_relaxed);
  const std::uint64_t reached = _whole.ticks.fetch_add(ticks - before) + ticks - before;
  // The next report is made known first: what comes out of this one must not end reporting.
  const std::uint64_t next =
      ticks >= most ? never : std::max(stepsFor(ticks + _whole.patience(reached)), done + 1);
  _publishAt.store(next, std::memory_order_release);
  _whole.showIfDue(reached);
  return next;
}

}  // namespace Kyr

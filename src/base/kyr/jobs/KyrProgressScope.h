/// \file
/// Parts of the progress, which fill the parts of those around them.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/trace/KyrTrace.h>

#include <QString>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>

namespace Kyr {

/// A piece of work of so many steps, which moves Progress while it lives.
///
/// The outermost scope is the whole scale of Progress, a scope inside of another one fills one of
/// its steps, or as many as it has weight. So a function divides its own work without knowing what
/// it is a part of, and nothing is handed over to it:
/// \code
/// void readAll(const std::vector<QString>& names) {
///   Kyr::ProgressScope scope("read all", names.size());
///   for (const QString& name : names) {
///     readOne(name);
///     scope.step();
///   }
/// }
///
/// void readAndMeasure(const std::vector<QString>& names) {
///   Kyr::ProgressScope scope("read and measure", 10);
///   {
///     Kyr::ProgressScope reading("read", 1, 9);  // nine tenths of the time
///     reading.setText("Reading");
///     readAll(names);  // whose own scope fills the one step
///   }
///   measure();  // the tenth; counted at the end of the scope
/// }
/// \endcode
///
/// Scopes on several threads add up when they share a parent; steps may be reported from any
/// thread:
/// \code
/// void readHalves(const std::vector<QString>& one, const std::vector<QString>& other) {
///   Kyr::ProgressScope scope("read halves", 2);
///   const auto first = std::async(std::launch::async, [&] {
///     Kyr::ProgressScope half(scope, "read one half", 1);
///     readAll(one);
///   });
///   readAll(other);
/// }
/// \endcode
///
/// The percentage never goes back and never over the range while the outermost scope lives; it is
/// less than one percent behind the steps, and 100 when that scope ends, also by an exception.
/// Steps and weights too many count for nothing, missing ones count at the end of their scope.
/// While a scope without a parent lives, another one without a parent, on another thread, moves
/// nothing.
///
/// Traces show each scope; see Trace.
///
/// Scopes are automatic objects: on each thread they end in the reverse order of their beginning,
/// and a parent ends after its parts.
/// \threadsafety step() and setText() on any thread, all else on the scope's own
class KYR_EXPORT ProgressScope {
 public:
  /// A part of the scale of Progress.
  struct Range {
    int min;  ///< 0 to 100, or -1 for a caller without a range
    int max;  ///< from min to 100, or -1
  };

  /// Begins a part of the innermost scope of this thread; or, without one, the whole progress, at
  /// 0.
  /// \param name for developers, as "read points"; a literal
  /// \param steps that the scope has; may be millions, or bytes of a file
  /// \param weight how many steps of the scope around it fills
  ProgressScope(const char* name, std::uint64_t steps, std::uint64_t weight = 1);
  /// Begins a part of \a parent, which may be of another thread.
  ProgressScope(ProgressScope& parent, const char* name, std::uint64_t steps,
                std::uint64_t weight = 1);
  /// Begins a part of the scale, for a program that divides the scale itself; inside of another
  /// scope it is a part of that one, and the range counts for nothing. With -1 as one of the
  /// bounds the scope moves nothing.
  /// \throws ProgError "invalid progress range"
  ProgressScope(Range range, const char* name, std::uint64_t steps);
  /// Counts what is missing of the scope. An exception of a creator of events is lost.
  /// \throws ProgError "progress scope ends before a part of it"
  ~ProgressScope();
  ProgressScope(const ProgressScope&) = delete;
  ProgressScope& operator=(const ProgressScope&) = delete;
  static void* operator new(std::size_t) = delete;
  static void* operator new[](std::size_t) = delete;

  /// Reports steps as done. Costs less than a lock where the percentage stays, two where it moves,
  /// and allocates nothing itself. An exception of a creator of events comes out of it.
  void step(std::uint64_t steps = 1) {
    const std::uint64_t done = _done.fetch_add(steps, std::memory_order_relaxed) + steps;
    if (done >= _publishAt.load(std::memory_order_relaxed)) {
      publish(done);
    }
  }
  /// Sets the text of Progress, for the user. It stays until the next one.
  /// \param force as for Progress::setProgressString()
  static void setText(const QString& text, bool force = false);

  /// The name that the constructor was given.
  const char* name() const { return _name; }

 private:
  struct KYR_HIDDEN Whole;

  ProgressScope(const Range* range, ProgressScope* parent, const char* name, std::uint64_t steps,
                std::uint64_t weight);
  KYR_HIDDEN std::uint64_t ticksOf(std::uint64_t steps) const;
  KYR_HIDDEN std::uint64_t stepsFor(std::uint64_t ticks) const;
  KYR_HIDDEN std::uint64_t begin(std::uint64_t weight);
  KYR_HIDDEN std::uint64_t give(std::uint64_t ticks);
  void publish(std::uint64_t done);

  const char* const _name;
  ProgressScope* const _parent;
  ProgressScope* const _before;       // innermost of this thread when this one began
  const std::unique_ptr<Whole> _own;  // of an outermost scope
  Whole& _whole;
  const std::uint64_t _steps;  // at least 1
  const std::uint64_t _span;   // ticks that the scope fills
  const std::uint64_t _ticksPerStep;
  const bool _isCoarse;  // steps are about a percent each, and too few for cutting off to show
  const double _share;
  const double _stepsPerTick;           // divisions cost as much as a lock
  std::atomic<std::uint64_t> _done{0};  // steps
  std::atomic<std::uint64_t> _publishAt{0};
  std::uint64_t _shown = 0;  // ticks of steps; under the lock of Progress, as the next one
  std::uint64_t _given = 0;  // ticks of parts
  std::atomic<unsigned> _parts{0};
  double _begun = 0;  // seconds, where pauses are measured
  const TraceSpan _traced;
  // What later versions need besides.
  [[maybe_unused]] void* _more = nullptr;
};

}  // namespace Kyr

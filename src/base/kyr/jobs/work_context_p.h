/// \file
/// What a thread works on at present.
#pragma once

#include <cstdint>

namespace Kyr {

class ProgressScope;
class StopToken;

/// The innermost scope and token of a thread, and when it last looked whether it is to stop.
struct WorkContext {
  ProgressScope* scope = nullptr;
  const StopToken* stop = nullptr;  ///< null for that of Progress

  /// A scope whose steps are counted by others than the work, as by parallelFor(); null for none.
  ProgressScope* items = nullptr;
  std::uint64_t claimed = 0;  ///< steps of it that the work's own scopes have taken over

  double looked = 0;  ///< seconds of some clock; the beginning of the outermost scope counts
  const char* longestPart = nullptr;  ///< of the scopes that ended since then, the longest one
  double partSeconds = 0;
};

/// That of this thread.
WorkContext& workContext() noexcept;

/// Gives the thread another scope and token for a while. The steps of the scope are counted by
/// count(), so that work that begins a scope of its own for a step does not count it twice.
class WorkOnItems {
 public:
  /// \param scope null for a thread without one
  /// \param stop must outlive this object
  WorkOnItems(ProgressScope* scope, const StopToken& stop);
  ~WorkOnItems();
  WorkOnItems(const WorkOnItems&) = delete;
  WorkOnItems& operator=(const WorkOnItems&) = delete;

  /// Counts steps of the scope, without those that scopes of the work have taken over since the
  /// last call.
  void count(std::uint64_t steps);

 private:
  const WorkContext _before;
};

namespace Pauses {

bool areMeasured() noexcept;
/// In seconds; a clock that is set meanwhile spoils a measurement, and nothing else.
double now();
/// Notes that the thread looked, or that its outermost scope ends.
void noteLook() noexcept;

}  // namespace Pauses
}  // namespace Kyr

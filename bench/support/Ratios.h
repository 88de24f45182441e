/// \file
/// Comparisons between benchmarks of the same run.
#pragma once

namespace KyrBench {

/// Announces a comparison for the table at the end of the run. Make one at namespace scope.
///
/// The table shows the median time of one iteration of the peer divided by the median of the
/// subject: 2 means that the subject is twice as fast. Both must do the same work in one
/// iteration. The time is the processor's; benchmarks with UseRealTime() count by the clock.
struct Ratio {
  /// \param title what is compared, a few words
  /// \param subject, peer full names of two benchmarks, with their arguments
  /// \param goal the speed ratio to reach; 0 only reports it
  Ratio(const char* title, const char* subject, const char* peer, double goal);
};

/// As Ratio, for costs that may not grow: the median of \a subject divided by that of \a base
/// is to stay at or below \a limit.
struct Growth {
  Growth(const char* title, const char* subject, const char* base, double limit);
};

}  // namespace KyrBench

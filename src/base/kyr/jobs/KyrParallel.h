/// \file
/// Loops whose turns several threads share.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/jobs/KyrStopToken.h>

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>

namespace Kyr {

/// The numbers from begin on, without end.
/// \threadsafety a value
struct IndexRange {
  /// The numbers from 0 on, so many.
  IndexRange(std::size_t count) : end(count) {}
  /// The numbers from \a first on, without \a behindLast.
  IndexRange(std::size_t first, std::size_t behindLast) : begin(first), end(behindLast) {}

  std::size_t begin = 0;  ///< the first number
  std::size_t end = 0;    ///< a range that ends before its beginning is empty
};

/// How parallelFor() does its work.
/// \threadsafety a value
struct ParallelOptions {
  /// Of the scope that the loop makes; a literal.
  const char* name = "parallelFor";
  /// How many steps of the scope around it the loop fills; see ProgressScope.
  std::uint64_t weight = 1;
  /// Threads with the caller's, at most 256; 0 takes one for each processor, see
  /// OS::getNumberOfCPUs().
  unsigned threads = 0;
  /// How many turns a thread takes over at once; 0 makes it some hundredths of a millisecond's
  /// worth.
  std::size_t grain = 0;
  /// Stops the loop; by default the token of the work around, see StopToken::current().
  std::optional<StopToken> stop = std::nullopt;
  /// For later versions.
  std::uintptr_t spare[4] = {};
};

namespace Parallel {

/// A run of calls of a body, which is passed back as it was handed over.
using Block = void (*)(void* body, std::size_t begin, std::size_t end);
/// What parallelFor() calls, which says all that is to be said of it.
/// \threadsafety as parallelFor()
KYR_EXPORT void run(IndexRange range, Block block, void* body, const ParallelOptions& options);

}  // namespace Parallel

/// Calls body(index) for each index of a range, each once, in any order and several at a time: on
/// this thread and on threads of PoolForThreads, which live on until CloseLibrary(). Returns when
/// all calls have returned. With one processor, or where the system gives no threads, all is done
/// on this thread.
///
/// Where the work around has a ProgressScope, the loop is a part of it, in which each index is a
/// step. A call of the body may begin a scope of its own, which then fills the index's step, may
/// call throwIfStopped(), and may itself call parallelFor() or parallelInvoke().
/// \code
/// void readInParallel(const std::vector<QString>& names, std::vector<double>& results) {
///   Kyr::ProgressScope scope("read all", 2);
///   scope.setText("Reading");
///   Kyr::parallelFor(names.size(), [&](std::size_t i) { results[i] = lengthIn(names[i]); });
///   scope.setText("Sorting");
///   Kyr::parallelInvoke([&] { sortByName(names); }, [&] { sortByLength(results); });
/// }
/// \endcode
/// \param body called with std::size_t; on other threads by reference, so it must bear that
/// \throws what the first call that threw did; calls that run then are awaited, no others begun
/// \throws Stopped when the loop was stopped before its last call
/// \threadsafety any thread, but none that holds a lock for which the body waits
template <class Body>
void parallelFor(IndexRange range, Body&& body, const ParallelOptions& options = {}) {
  using Called = std::remove_reference_t<Body>;
  const auto block = [](void* called, std::size_t begin, std::size_t end) {
    Called& each = *static_cast<Called*>(called);
    for (std::size_t index = begin; index != end; ++index) {
      each(index);
    }
  };
  Parallel::run(range, block, const_cast<void*>(static_cast<const void*>(std::addressof(body))),
                options);
}

/// Calls body(element) for each element of a container that knows data() and size(), as a
/// std::vector; otherwise as above.
/// \threadsafety as above
template <class Container, class Body,
          class = decltype(std::declval<Container&>().data() + std::declval<Container&>().size())>
void parallelFor(Container& container, Body&& body, const ParallelOptions& options = {}) {
  auto* const elements = container.data();
  parallelFor(
      IndexRange(static_cast<std::size_t>(container.size())),
      [&](std::size_t index) { body(elements[index]); }, options);
}

/// Calls functions without arguments, several at a time; otherwise as parallelFor(), with a step
/// for each function.
/// \threadsafety as parallelFor()
template <class... Functions>
void parallelInvoke(Functions&&... functions) {
  static_assert(sizeof...(functions) != 0);
  const std::function<void()> all[] = {std::ref(functions)...};
  ParallelOptions options;
  options.name = "parallelInvoke";
  options.grain = 1;
  parallelFor(
      IndexRange(sizeof...(functions)), [&](std::size_t index) { all[index](); }, options);
}

}  // namespace Kyr

#include <kyr/jobs/work_context_p.h>

#include <kyr/core/forever_p.h>
#include <kyr/jobs/KyrProgressScope.h>
#include <kyr/jobs/KyrStopToken.h>
#include <kyr/sync/KyrMutex.h>
#include <kyr/time/time_clock_p.h>

#include <algorithm>
#include <atomic>

namespace Kyr {

namespace site {
constexpr unsigned PauseMutex = 24;
constexpr const char* File = "kyr_work_context";
}  // namespace site

namespace {

thread_local WorkContext context;

std::atomic<bool> measures{KYR_DEBUG_BUILD != 0};
Forever<Mutex> pauseLock("Kyr::StopToken::measurePauses", site::File, site::PauseMutex);
Mutex& pauseMutex = pauseLock.object;
StopToken::Pause longest KYR_GUARDED_BY(pauseMutex);

}  // namespace

WorkContext& workContext() noexcept {
  return context;
}

WorkOnItems::WorkOnItems(ProgressScope* scope, const StopToken& stop) : _before(context) {
  const bool begins = !context.scope && scope;
  context.scope = scope;
  context.stop = &stop;
  context.items = scope;
  context.claimed = 0;
  if (begins && Pauses::areMeasured()) {
    context.looked = Pauses::now();
    context.partSeconds = 0;
  }
}

WorkOnItems::~WorkOnItems() {
  const WorkContext now = context;
  context = _before;
  context.looked = now.looked;
  context.longestPart = now.longestPart;
  context.partSeconds = now.partSeconds;
}

void WorkOnItems::count(std::uint64_t steps) {
  const std::uint64_t claimed = std::min(context.claimed, steps);
  context.claimed = 0;
  if (context.items && steps != claimed) {
    context.items->step(steps - claimed);
  }
}

bool Pauses::areMeasured() noexcept {
  return measures.load(std::memory_order_relaxed);
}

double Pauses::now() {
  return static_cast<double>(Clock::milliseconds()) / 1000;
}

void Pauses::noteLook() noexcept {
  if (!context.scope) {
    return;
  }
  const double present = now();
  const double seconds = present - context.looked;
  const char* const name =
      context.partSeconds > seconds / 2 ? context.longestPart : context.scope->name();
  context.looked = present;
  context.partSeconds = 0;
  const AutoMutex lock(&pauseMutex);
  if (measures && seconds > longest.seconds) {
    longest = {seconds, name};
  }
}

void StopToken::measurePauses(bool on) {
  const AutoMutex lock(&pauseMutex);
  measures = on;
  longest = {};
}

StopToken::Pause StopToken::longestPause() {
  const AutoMutex lock(&pauseMutex);
  return longest;
}

}  // namespace Kyr

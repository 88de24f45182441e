#include <kyr/diagnostics/KyrMemoryObserver.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/crash/KyrNewHandler.h>
#include <kyr/diagnostics/memory_use_p.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr const char* File = "kyr_memory_observer";
constexpr unsigned Forget = 61;
}  // namespace site

namespace {

/// A quantity as seen from its threshold: reached by growing or by shrinking.
struct Reading {
  bool isKnown;
  bool grows;
  std::uint64_t value;
};

Reading readingOf(MemoryObserver::Quantity_t quantity, const MemoryUse& use) {
  switch (quantity) {
    case MemoryObserver::ProcessSize:
      return {use.resident > 0, true, use.resident};
    case MemoryObserver::SystemLeft:
      return {use.systemTotal > 0, false, use.systemAvailable};
    case MemoryObserver::AddressSpaceLeft:
      return {use.addressTotal > 0, false, use.addressAvailable};
  }
  return {false, false, 0};
}

bool isCrossed(const Reading& reading, std::uint64_t threshold) {
  return reading.isKnown &&
         (reading.grows ? reading.value >= threshold : reading.value <= threshold);
}

/// Whether the quantity is so far back that the next crossing counts.
bool isBack(const Reading& reading, std::uint64_t threshold) {
  const std::uint64_t margin = threshold / 16;
  constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();
  const std::uint64_t above = threshold > most - margin ? most : threshold + margin;
  return reading.isKnown &&
         (reading.grows ? reading.value < threshold - margin : reading.value > above);
}

}  // namespace

MemoryObserver::MemoryObserver() : MemoryObserver(&MemoryObserver::measure) {}

MemoryObserver::MemoryObserver(Source source) : _source(std::move(source)) {}

MemoryObserver::~MemoryObserver() = default;

unsigned MemoryObserver::watch(Quantity_t quantity, std::uint64_t threshold, Callback callback) {
  _watches.push_back({++_lastNumber, quantity, threshold, std::move(callback), true});
  return _lastNumber;
}

std::vector<MemoryObserver::Watch>::iterator MemoryObserver::find(unsigned number) {
  return std::find_if(_watches.begin(), _watches.end(),
                      [=](const Watch& each) { return each.number == number; });
}

void MemoryObserver::forget(unsigned watch) {
  const auto found = find(watch);
  if (found == _watches.end()) {
    throw ProgError("Kyr::MemoryObserver::forget", site::File, site::Forget, "Unknown watch");
  }
  _watches.erase(found);
}

MemoryUse MemoryObserver::poll() {
  const MemoryUse use = _source();
  std::vector<unsigned> crossed;
  for (Watch& each : _watches) {
    const Reading reading = readingOf(each.quantity, use);
    each.armed = each.armed || isBack(reading, each.threshold);
    if (each.armed && isCrossed(reading, each.threshold)) {
      crossed.push_back(each.number);
    }
  }
  for (const unsigned number : crossed) {
    callBack(number, use);
  }
  return use;
}

/// Calls a watch's callback, as a copy: it may remove its own watch. An earlier callback may have
/// removed the watch, or polled and so called it already.
void MemoryObserver::callBack(unsigned number, const MemoryUse& use) {
  const auto found = find(number);
  if (found != _watches.end() && found->armed) {
    found->armed = false;
    const Callback callback = found->callback;
    callback(use);
  }
}

MemoryUse MemoryObserver::measure() {
  return Platform::measureMemory();
}

bool MemoryObserver::freeMemory() {
  try {
    NewHandler::freeMemory();
    return true;
  } catch (const std::bad_alloc&) {
    return false;
  }
}

}  // namespace Kyr

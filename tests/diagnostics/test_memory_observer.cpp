#include <kyr/diagnostics/KyrMemoryObserver.h>

#include <kyr/crash/KyrNewHandler.h>

#include "support/Support.h"

#include <stdexcept>

using namespace Kyr;

namespace {

constexpr std::uint64_t most = std::numeric_limits<std::uint64_t>::max();

MemoryUse useOf(MemoryObserver::Quantity_t quantity, std::uint64_t value) {
  MemoryUse use;
  use.resident = quantity == MemoryObserver::ProcessSize ? value : 0;
  use.systemTotal = quantity == MemoryObserver::SystemLeft ? most : 0;
  use.systemAvailable = value;
  use.addressTotal = quantity == MemoryObserver::AddressSpaceLeft ? most : 0;
  use.addressAvailable = value;
  return use;
}

TEST(Memory, CallsOncePerCrossing) {
  constexpr auto grows = MemoryObserver::ProcessSize;
  constexpr auto shrinks = MemoryObserver::SystemLeft;
  const struct {
    MemoryObserver::Quantity_t quantity;
    std::uint64_t threshold;
    std::vector<std::uint64_t> values;
    std::string calls;  // one sign for each value
    const char* fault;
  } rows[] = {
      {grows, 1600, {1599, 1600, 1700, 1601}, ".x..", "at the threshold, once"},
      {grows, 1600, {1600, 1500, 1600, 1499, 1600}, "x...x", "a sixteenth back and no less"},
      {grows, 1600, {1600, 0, 1600}, "x..", "an unknown size is no small one"},
      {grows, 0, {1, 2}, "x.", "a threshold of nothing"},
      {shrinks, 1600, {1601, 1600, 0, 1599}, ".x..", "at the threshold, once"},
      {shrinks, 1600, {1600, 1700, 1600, 1701, 1600}, "x...x", "a sixteenth back and no less"},
      {shrinks, most - 1, {5, most, 5}, "x..", "the way back overflows"},
      {MemoryObserver::AddressSpaceLeft, 16, {17, 16}, ".x", "the other quantities"},
  };
  for (const auto& row : rows) {
    MemoryUse now;
    std::string calls;
    MemoryObserver observer([&] { return now; });
    observer.watch(row.quantity, row.threshold, [&](const MemoryUse&) { calls.back() = 'x'; });
    observer.poll();  // nothing is known
    for (const std::uint64_t value : row.values) {
      calls += '.';
      now = useOf(row.quantity, value);
      observer.poll();
    }
    EXPECT_EQ(calls, row.calls) << row.fault;
  }
}

TEST(Memory, LetsCallbacksChangeWhatIsWatched) {
  MemoryUse now = useOf(MemoryObserver::ProcessSize, 10);
  MemoryObserver observer([&] { return now; });
  std::string calls;
  unsigned third = 0;
  const unsigned first = observer.watch(MemoryObserver::ProcessSize, 1, [&](const MemoryUse&) {
    calls += '1';
    observer.forget(first);
    observer.forget(third);
    for (char name = 'a'; name < 'e'; ++name) {  // moves what is watched in memory
      observer.watch(MemoryObserver::ProcessSize, 1,
                     [&, name](const MemoryUse&) { calls += name; });
    }
    calls += '2';  // what it captures is still there
  });
  observer.watch(MemoryObserver::ProcessSize, 2, [&](const MemoryUse& use) {
    calls += use.resident == 10 ? 's' : '?';
    throw std::runtime_error("full");
  });
  third = observer.watch(MemoryObserver::ProcessSize, 3, [&](const MemoryUse&) { calls += '3'; });
  EXPECT_THROW(observer.poll(), std::runtime_error);
  EXPECT_EQ(calls, "12s") << "in their order, without those that were forgotten meanwhile";
  EXPECT_EQ(observer.poll().resident, 10U);
  EXPECT_EQ(calls, "12sabcd") << "a callback that threw is not called again, those behind are";
}

TEST(Memory, LetsCallbacksPoll) {
  MemoryObserver observer([] { return useOf(MemoryObserver::ProcessSize, 10); });
  std::string calls;
  for (const char name : {'1', '2', '3'}) {
    observer.watch(MemoryObserver::ProcessSize, 1, [&, name](const MemoryUse&) {
      calls += name;
      observer.poll();
    });
  }
  observer.poll();
  EXPECT_EQ(calls, "123") << "one that was called meanwhile is called again";
}

TEST(Memory, RefusesUnknownNumbers) {
  const KyrTest::Ended ended = KyrTest::inChild([] {
    MemoryObserver observer;
    const unsigned number = observer.watch(MemoryObserver::ProcessSize, 1, [](const auto&) {});
    observer.forget(number);
    observer.forget(number);
  });
  EXPECT_EQ(
      KyrTest::reportProblem(ended, KyrTest::report("Unknown watch", "Kyr::MemoryObserver::forget",
                                                    "kyr_memory_observer", 61)),
      "");
}

TEST(Memory, MeasuresThisProcess) {
  const MemoryUse before = MemoryObserver::measure();
  EXPECT_GT(before.resident, 100000U);
  EXPECT_GE(before.peakResident, before.resident / 2) << "another unit";
  EXPECT_GT(before.systemTotal, before.systemAvailable);
  EXPECT_GT(before.systemTotal, before.resident) << "another unit";
  const std::vector<char> block(64 << 20, 'x');
  const MemoryUse after = MemoryObserver::measure();
  EXPECT_GT(after.resident, before.resident + (block.size() / 4) * 3);
  EXPECT_GE(after.peakResident + (1 << 20), after.resident) << "the kernel counts roughly";
}

/// A cache with something in it.
struct Cache : NewHandler {
  bool freeSomeMemory() override { return true; }
};

TEST(Memory, AsksTheMemoryHandlers) {
  Cache cache;
  EXPECT_FALSE(MemoryObserver::freeMemory()) << "there is nobody";
  cache.registerThisNewHandler();
  EXPECT_TRUE(MemoryObserver::freeMemory());
  cache.deregisterThisNewHandler();
}

}  // namespace

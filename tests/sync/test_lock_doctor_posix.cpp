#include "support/Support.h"

#include <kyr/sync/KyrLockDoctor.h>

#include <unistd.h>

using namespace Kyr;

TEST(LockDoctorPosix, GoesOnInAForkedChild) {
  LockDoctor::stop();
  LockDoctor::start();
  Mutex a("a", "locks", 1), b("b", "locks", 2);
  const AutoMutex held(&a);
  { const AutoMutex inner(&b); }
  const KyrTest::Ended ended = KyrTest::inChild([&] {
    const std::vector<LockHolder> all = LockDoctor::holders();
    std::cout << all.size() << (all.at(0).thread == std::uint64_t(::getpid()))
              << all.at(0).held.size();
    std::thread([&] {
      const AutoMutex outer(&b);
      if (a.tryLock(0)) {
        std::cout << "free";
        a.unlock("", "", 0);
      }
    }).join();
    Mutex again("a", "locks", 1);
    std::thread([&] {
      const AutoMutex outer(&b);
      const AutoMutex inner(&again);
    }).join();
    std::cout << LockDoctor::findings().size();
  });
  LockDoctor::stop();
  EXPECT_EQ(ended.output, "1111") << "one holder, the child, of one lock; one circle";
  EXPECT_TRUE(ended.errors.contains(" held a (locks:1) and took b (locks:2)\n"))
      << ended.errors.data();
}

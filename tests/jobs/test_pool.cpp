#include "support/Support.h"

#include <kyr/jobs/KyrThreadPool.h>

using namespace Kyr;

namespace {

using Action = std::function<void()>;

struct Passes : PoolThread {
  explicit Passes(Action end, Action pass = {})
      : PoolThread(NoLockGUI, "f", "g", 1), _end(std::move(end)), _pass(std::move(pass)) {}
  ~Passes() override {
    EXPECT_FALSE(isRunning());
    _end();
  }
  void work() override { _pass(); }
  const Action _end, _pass;
};

}  // namespace

TEST(PoolThread, DoesOnePassForEachRequest) {
  std::array<KyrTest::Gate, 2> entered, leave;
  std::size_t passes = 0;
  const auto pass = [&] {
    entered.at(passes).open();
    leave.at(passes).await("the end of the pass");
    ++passes;
  };
  Passes thread([] {}, pass);
  thread.waitForWorking();  // nothing asked for: returns at once
  thread.start();
  thread.startWorking();
  entered[0].await("the first pass");
  thread.startWorking();  // not kept for another pass
  leave[0].open();
  thread.waitForWorking();
  EXPECT_EQ(passes, 1U);
  thread.startWorking();
  entered[1].await("the second pass");
  thread.prepareExit();
  thread.waitForWorking();  // with the pass still running, or this hangs
  leave[1].open();
  EXPECT_TRUE(thread.wait(30000));
  EXPECT_EQ(passes, 2U);
}

TEST(PoolForThreads, EndsGroupsInOrder) {
  PoolForThreads::deinitialize();  // there is none yet
  std::string ended;
  const auto append = [&](const char* text) { return [&ended, text] { ended += text; }; };
  auto* const second = new Passes(append("2"), append("w"));
  const auto endOfFirst = [&] {
    ended += "1";
    second->startWorking();  // it still serves
    second->waitForWorking();
  };
  auto* const first = new Passes(endOfFirst);
  first->start();
  second->start();
  PoolForThreads* const pool = PoolForThreads::getPool();
  pool->registerThreads("mesh", {first, nullptr, second});
  pool->registerThreads("mesh", {});  // registers nothing, so no duplicate
  for (const char* const name : {"b", "a", "B"}) {
    pool->registerThreads(name, {new Passes(append(name))});  // never started
  }
  pool->destroyThreads("Mesh");
  EXPECT_EQ(PoolForThreads::getPool()->getNumberOfThreads("mesh"), 3U);
  pool->destroyThreads("mesh");
  EXPECT_EQ(ended, "1w2");
  EXPECT_EQ(pool->getNumberOfThreads("mesh"), 0U);
  PoolForThreads::deinitialize();
  EXPECT_EQ(ended, "1w2Bab") << "all groups, by name";
  EXPECT_EQ(PoolForThreads::getPool()->getNumberOfThreads("a"), 0U) << "a fresh pool";
}

TEST(PoolForThreads, StaysLockedAfterADuplicateName) {
  const auto duplicate = KyrTest::inChild([] {
    setFatalErrorHook([] {
      const bool locked = KyrTest::hangs([] { PoolForThreads::getPool(); });
      std::fputs(locked ? "locked" : "free", stderr);
    });
    for (int i = 0; i < 2; ++i) {
      PoolForThreads::getPool()->registerThreads("mesh", {nullptr});
    }
  });
  const auto expected =
      KyrTest::report("Thread with the same name exists!", "Kyr::PoolForThreads::registerThreads",
                      "kyr_thread_pool", 208);
  EXPECT_EQ(KyrTest::reportProblem(duplicate, "locked" + expected), "");
}

TEST(PoolForThreads, MayBeInUseWhenTheProcessEnds) {
  const auto ended = KyrTest::inChild([] {
    PoolForThreads::getPool()->registerThreads("mesh", {new Passes([] { std::exit(9); })});
    PoolForThreads::deinitialize();  // holds the lock while the thread ends
  });
  EXPECT_EQ(std::pair(ended.code, ended.errors), std::pair(9, QByteArray()));
}

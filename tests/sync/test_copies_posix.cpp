// Nobody can call the private copies; what the library exports of them is called by symbol.
#include "support/Support.h"

#include <kyr/sync/KyrThread.h>

#include <QMutex>

#include <dlfcn.h>

namespace {

using namespace Kyr;

/// A thread that is never started.
struct Idle : Kyr::Thread {
  Idle() : Thread(NoLockGUI, "f", "g", 1) {}
  void run() override {}
};

TEST(Sync, RefusesCopies) {
  using KyrTest::report;
  alignas(std::max_align_t) std::array<std::byte, 1024> room{};  // a copy in place of nothing
  static_assert(sizeof(MutexReadWrite) <= room.size() && sizeof(Idle) <= room.size());
  Mutex mutex("f", "g", 1);
  Condition condition("f", "g", 2, nullptr);
  MutexReadWrite lock("f", "g", 3);
  Idle thread;
  const struct {
    const char* symbol;
    void* target;
    std::string errors;
  } rows[] = {
      {"_ZN3Kyr5MutexC1ERKS0_", &room,
       report("copy constructor for mutex is not allowed", "", "", 0)},
      {"_ZN3Kyr5MutexaSERKS0_", &mutex, report("assignment for mutex is not allowed", "f", "g", 1)},
      {"_ZN3Kyr9ConditionC1ERKS0_", &room,
       report("copy constructor for condition is not allowed", "", "", 0)},
      {"_ZN3Kyr9ConditionaSERKS0_", &condition,
       report("assignment for condition is not allowed", "f", "g", 2)},
      {"_ZN3Kyr14MutexReadWriteC1ERKS0_", &room,
       report("copy constructor for mutexReadWrite is not allowed", "", "", 0)},
      {"_ZN3Kyr14MutexReadWriteaSERKS0_", &lock,
       report("assignment for mutexReadWrite is not allowed", "f", "g", 3)},
      {"_ZN3Kyr6ThreadC2ERKS0_", &room,
       report("Copy-Constructor is not allowed for threads!", "Kyr::Thread::Thread", "os_thread",
              78)},
      {"_ZN3Kyr6ThreadaSERKS0_", &thread,
       report("assignment operator is not allowed for threads!",
              "Kyr::Thread::operator =", "os_thread", 86)},
  };
  for (const auto& row : rows) {
    const auto ended = KyrTest::inChild([&row] {
      using Copy = void (*)(void* target, const void* source);
      reinterpret_cast<Copy>(::dlsym(RTLD_DEFAULT, row.symbol))(row.target, row.target);
    });
    EXPECT_EQ(KyrTest::reportProblem(ended, row.errors), "") << row.symbol;
  }
}

}  // namespace

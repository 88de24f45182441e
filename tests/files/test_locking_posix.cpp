#include "files/Mounts.h"
#include "support/Support.h"

#include <kyr/files/KyrLockingManager.h>
#include <kyr/files/KyrSafeFile.h>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace Kyr;

TEST(LockingPosix, NeverWaitsForAPipeNorWritesThroughALink) {
  const KyrTest::TempDir dir;
  ASSERT_EQ(::mkfifo(dir.file("a.lock").toUtf8().constData(), 0600), 0);
  const QString target = dir.write("target", "0");
  ASSERT_TRUE(QFile::link(target, dir.file("b.lock")) &&
              QFile::link(dir.file("missing"), dir.file("c.lock")));
  const LockingManager manager;
  EXPECT_EQ(manager.isLocked(dir.file("a")), LockingManager::NotLocked);
  EXPECT_FALSE(manager.lock(dir.file("a")) || ExclusiveLock(dir.file("a")).tryLock());
  EXPECT_TRUE(ExclusiveLock(dir.file("b")).tryLock() && KyrTest::readFile(target) == "0");
  EXPECT_FALSE(ExclusiveLock(dir.file("c")).tryLock() || QFile::exists(dir.file("missing")));
}

TEST(LockingPosix, StaysWithTheParentWhenAForkedChildEnds) {
  const KyrTest::TempDir dir;
  ExclusiveLock lock(dir.file("a"));
  ASSERT_TRUE(lock.tryLock());
  KyrTest::inChild([&lock] { lock.unlock(); });
  EXPECT_EQ(LockingManager().isLocked(dir.file("a")), LockingManager::LockedHere);
  dir.write("a.lock", "another's");
  lock.unlock();
  EXPECT_EQ(KyrTest::readFile(dir.file("a.lock")), "another's") << "removed all the same";
}

TEST(LockingPosix, KeepsTheOwnerOfWhomNothingCanBeRead) {
  KYR_SKIP_ADDRESS_SANITIZER("UndefinedBehaviorSanitizer looks at memory through a pipe");
  const KyrTest::TempDir dir;
  const LockingManager manager;
  ExclusiveLock lock(dir.file("a"));
  ASSERT_TRUE(lock.tryLock() && manager.lock(dir.file("b")));
  Kyr::SafeFile saved(dir.file("c"));
  const QStringList before = Kyr::OS::listDirectory(dir.path());
  const KyrTest::Ended ended = KyrTest::inChild([&] {
    const rlimit few{20, 20};
    ::setrlimit(RLIMIT_NOFILE, &few);
    const int last = ::dup(STDIN_FILENO);
    while (::dup(STDIN_FILENO) >= 0) {
    }
    ::close(last);
    std::atomic<bool> isOver{false};
    std::thread rival([&] {
      while (!isOver) {
        ::close(::open("/dev/null", O_RDONLY));
      }
    });
    int stolen = 0;
    for (int i = 0; i < 3000; ++i) {
      stolen += ExclusiveLock(dir.file("a")).tryLock() || manager.lock(dir.file("b")) ? 1 : 0;
      stolen += manager.isLocked(dir.file("b")) == LockingManager::NotLocked ? 1 : 0;
      manager.unlock(dir.file("b"));
      manager.removeStaleLocks(dir.path());
      KyrTest::failure([&] { Kyr::SafeFile(dir.file("d")).discard(); });
    }
    isOver = true;
    rival.join();
    std::cout << stolen;
  });
  EXPECT_EQ(ended.output, "0") << ended.errors.toStdString();
  EXPECT_EQ(Kyr::OS::listDirectory(dir.path()), before);
}

/// Leaves only the system's own name for this machine.
bool hideOtherIdentifiers() {
  const char* const folder = "/var/lib/dbus";
  return KyrTest::mayMount() &&
         (!QFile::exists(folder) || ::mount("none", folder, "tmpfs", 0, nullptr) == 0);
}

TEST(LockingPosix, OutlivesItsOwnerOnNoKindOfSystem) {
  const KyrTest::TempDir dir;
  const KyrTest::Ended ended = KyrTest::inChild([&] {
    if (!hideOtherIdentifiers()) {
      std::cout << "skipped";
      return;
    }
    const pid_t owner = ::fork();
    if (owner == 0) {
      ExclusiveLock lock(dir.file("a"));
      ::_exit(lock.tryLock() ? 0 : 1);
    }
    int status = 0;
    ::waitpid(owner, &status, 0);
    std::cout << (status == 0) << ExclusiveLock(dir.file("a")).tryLock();
  });
  if (ended.output == "skipped") {
    GTEST_SKIP() << "this system lets nobody mount";
  }
  EXPECT_EQ(ended.output, "11") << ended.errors.toStdString();
}

}  // namespace

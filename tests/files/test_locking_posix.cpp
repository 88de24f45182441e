#include "support/Support.h"

#include <kyr/files/KyrLockingManager.h>

#include <gtest/gtest.h>

#include <QFile>

#include <sys/stat.h>

namespace {

using Kyr::ExclusiveLock;
using Kyr::LockingManager;

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
}

}  // namespace

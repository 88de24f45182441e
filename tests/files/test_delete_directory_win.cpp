// Files that other programs hold.
#include "support/Support.h"

#include <kyr/log/KyrErrorLog.h>

#include <windows.h>

using Kyr::OS;

TEST(DeleteDirectoryWin, GoesOnAndReportsEachFailure) {
  const KyrTest::TempDir dir;
  ASSERT_TRUE(OS::mkdir(dir.file("tree/a/b")) && OS::mkdir(dir.file("tree/z")));
  const QString held = dir.write("tree/a/b/held", "x");
  dir.write("tree/a/free", "x");
  dir.write("tree/z/free", "x");
  const HANDLE file = ::CreateFileW(held.toStdWString().c_str(), GENERIC_READ, FILE_SHARE_READ,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
  Kyr::ErrorLog log;
  EXPECT_FALSE(OS::deleteDirectoryRecursion(dir.file("tree"), &log));
  EXPECT_EQ(log.getLog(), "cannot delete " + held + ": another program uses it");
  EXPECT_EQ(OS::listDirectory(dir.file("tree/a")).join(' '), "b") << "it stopped";
  EXPECT_EQ(OS::listDirectory(dir.file("tree")).join(' '), "a") << "it stopped";
  ::CloseHandle(file);
  EXPECT_TRUE(OS::deleteDirectoryRecursion(dir.file("tree"), nullptr));
}

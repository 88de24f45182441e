// Links, permissions, very deep trees, and somebody who exchanges directories for links.
#include "files/Mounts.h"
#include "support/Support.h"

#include <kyr/log/KyrErrorLog.h>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <unistd.h>

using Kyr::OS;

namespace {

std::string path(const KyrTest::TempDir& dir, const char* name) {
  return dir.file(name).toStdString();
}

TEST(DeleteDirectoryPosix, StaysInTheTree) {
  const KyrTest::TempDir dir;
  ASSERT_TRUE(OS::mkdir(dir.file("tree")) && OS::mkdir(dir.file("outside")));
  const QString kept = dir.write("outside/kept", "kept");
  ASSERT_EQ(::symlink("../outside", path(dir, "tree/directory").c_str()), 0);
  ASSERT_EQ(::symlink("../outside/kept", path(dir, "tree/file").c_str()), 0);
  ASSERT_EQ(::symlink("missing", path(dir, "tree/dangling").c_str()), 0);
  ASSERT_EQ(::symlink("outside", path(dir, "link").c_str()), 0);
  ASSERT_EQ(::mkfifo(path(dir, "tree/pipe").c_str(), 0600), 0);
  ASSERT_EQ(::mkdir(path(dir, "tree/\xff\xfe no text").c_str(), 0700), 0);
  EXPECT_TRUE(OS::deleteDirectoryRecursion(dir.file("tree"), nullptr));
  EXPECT_TRUE(OS::deleteDirectoryRecursion(dir.file("link"), nullptr));
  EXPECT_EQ(OS::listDirectory(dir.path()), QStringList("outside"));
  EXPECT_EQ(KyrTest::readFile(kept), "kept");
}

TEST(DeleteDirectoryPosix, LeavesAloneWhatIsMountedInside) {
  const KyrTest::TempDir dir;
  ASSERT_TRUE(OS::mkdir(dir.file("tree/mount")) && OS::mkdir(dir.file("outside")));
  const QString kept = dir.write("outside/kept", "kept");
  const KyrTest::Ended ended = KyrTest::inChild([&] {
    const bool isMounted = KyrTest::mayMount() &&
                           ::mount(path(dir, "outside").c_str(), path(dir, "tree/mount").c_str(),
                                   nullptr, MS_BIND, nullptr) == 0;
    Kyr::ErrorLog log;
    const bool isGone = isMounted && OS::deleteDirectoryRecursion(dir.file("tree"), &log);
    std::cout << isMounted << isGone << QString(log.getLog()).count("tree/mount");
  });
  if (ended.output.startsWith('0')) {
    GTEST_SKIP() << "this system lets nobody mount a directory";
  }
  EXPECT_EQ(ended.output, "101");
  EXPECT_EQ(KyrTest::readFile(kept), "kept");
}

TEST(DeleteDirectoryPosix, GoesOnAndReportsEachFailure) {
  const KyrTest::TempDir dir;
  for (const char* name : {"a/locked", "b/c/locked", "z"}) {
    ASSERT_TRUE(OS::mkdir(dir.file("tree/") + name));
    dir.write(QString("tree/") + name + "/file", "x");
  }
  const KyrTest::Ended ended = KyrTest::inChild([&] {
    for (const char* name : {"", "tree", "tree/a", "tree/b", "tree/b/c", "tree/z"}) {
      if (::chown(path(dir, name).c_str(), 65534, 65534) != 0) {
        break;  // nobody but root may, or need
      }
    }
    for (const char* name : {"tree/a/locked", "tree/b/c/locked"}) {
      ::chmod(path(dir, name).c_str(), 0555);
    }
    if (::geteuid() == 0 && ::seteuid(65534) != 0) {
      return;
    }
    Kyr::ErrorLog log(true);
    std::cout << OS::deleteDirectoryRecursion(dir.file("tree"), &log) << '\n'
              << QString(log.getLog()).replace(dir.path(), "D").toStdString();
  });
  for (const char* name : {"tree/a/locked", "tree/b/c/locked"}) {
    ::chmod(path(dir, name).c_str(), 0755);
  }
  QList<QByteArray> lines = ended.output.split('\n');
  std::sort(lines.begin(), lines.end());
  EXPECT_EQ(lines.join('\n'),
            "0\ncannot delete D/tree/a/locked/file: access is denied\n"
            "cannot delete D/tree/b/c/locked/file: access is denied");
  EXPECT_EQ(OS::listDirectory(dir.file("tree")).join(' '), "a b") << "it stopped";
}

TEST(DeleteDirectoryPosix, KnowsNoLongestPathNorDepth) {
  const KyrTest::TempDir dir;
  ASSERT_TRUE(OS::mkdir(dir.file("tree")));
  int at = ::open(path(dir, "tree").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
  for (int i = 0; i < 1500; ++i) {
    ASSERT_EQ(::mkdirat(at, "below", 0700), 0);
    const int below = ::openat(at, "below", O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ::close(at);
    at = below;
  }
  ::close(at);
  Kyr::ErrorLog log;
  EXPECT_TRUE(OS::deleteDirectoryRecursion(dir.file("tree"), &log)) << log.getLog().toStdString();
  EXPECT_FALSE(OS::stat(dir.file("tree")));
}

TEST(DeleteDirectoryPosix, FollowsNoLinkThatComesMeanwhile) {
  const KyrTest::TempDir dir;
  ASSERT_TRUE(OS::mkdir(dir.file("outside")));
  const QString kept = dir.write("outside/kept", "kept");
  ASSERT_EQ(::symlink(path(dir, "outside").c_str(), path(dir, "link").c_str()), 0);
  const std::string inside = path(dir, "tree/x/y");
  const std::string link = path(dir, "link");
  std::atomic<bool> goesOn{true};
  std::thread intruder([&] {
    while (goesOn) {
      ::renameat2(AT_FDCWD, inside.c_str(), AT_FDCWD, link.c_str(), RENAME_EXCHANGE);
    }
  });
  for (int i = 0; i < 150 && OS::stat(kept); ++i) {
    OS::mkdir(dir.file("tree/x/y/z"));
    std::ofstream(path(dir, "tree/x/y/file")) << 'x';
    OS::deleteDirectoryRecursion(dir.file("tree"), nullptr);
  }
  goesOn = false;
  intruder.join();
  EXPECT_EQ(KyrTest::readFile(kept), "kept");
}

}  // namespace

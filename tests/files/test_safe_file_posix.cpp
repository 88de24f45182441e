// The order of system calls, full disks, permissions and links.
#include "files/Mounts.h"
#include "support/Support.h"

#include <kyr/files/KyrSafeFile.h>
#include <kyr/log/KyrSyncErrorLog.h>
#include <kyr/pack/KyrZipStream.h>

#include <grp.h>
#include <sched.h>
#include <sys/mount.h>
#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace Kyr;
using KyrTest::readFile;

namespace {

const QByteArray oldContent(90000, 'o');
const QByteArray newContent(150000, 'n');

void save(const QString& path) {
  SafeFile file(path);
  for (int i = 0; i < newContent.size(); i += 1000) {
    file.stream().write(newContent.constData() + i, 1000);
  }
  file.commit();
}

/// Bytes that cannot be compressed, of two pieces.
QByteArray noise() {
  std::mt19937 random(1);
  QByteArray bytes(400000, '\0');
  std::generate(bytes.begin(), bytes.end(), [&random] { return char(random()); });
  return bytes;
}

void saveInPieces(const QString& path) {
  static const QByteArray content = noise();
  SafeFile file(path);
  ZipOutStream zip(&file.stream(), 1, ZipPieces());
  zip.write(content.constData(), content.size());
  zip.close();
  file.commit();
}

/// What \a action does in a child: a letter for each write of over 1000 bytes (a sanitizer writes
/// some of its own), fsync, rename and getdents; empty where the system lets nobody trace its
/// child.
std::string callsOf(const std::function<void()>& action) {
  constexpr int notTraced = 77;
  const pid_t child = ::fork();
  if (child == 0) {
    if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) {
      ::_exit(notTraced);
    }
    ::raise(SIGSTOP);
    action();
    ::_exit(0);
  }
  std::string calls;
  int status = 0;
  while (::waitpid(child, &status, 0) == child && WIFSTOPPED(status)) {
    ::ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD);
    __ptrace_syscall_info info{};
    ::ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof info, &info);
    const auto call = info.op == PTRACE_SYSCALL_INFO_ENTRY ? info.entry.nr : 0;
    calls += call == SYS_write && info.entry.args[2] > 1000 ? "w" : "";
    calls += call == SYS_fsync ? "f" : call == SYS_rename ? "r" : call == SYS_getdents64 ? "g" : "";
    ::ptrace(PTRACE_SYSCALL, child, nullptr, nullptr);
  }
  const bool isTraced = !WIFEXITED(status) || WEXITSTATUS(status) != notTraced;
  EXPECT_TRUE(!isTraced || status == 0) << status;
  return isTraced ? calls : std::string();
}

TEST(SafeFilePosix, IsOnTheDiskBeforeItTakesThePlaceOfTheOldFile) {
  const KyrTest::TempDir dir;
  const std::string calls = callsOf([&] { save(dir.file("a")); });
  if (calls.empty()) {
    GTEST_SKIP() << "this system lets nobody trace its child";
  }
  EXPECT_EQ(calls, "ggwwwfrf") << "only so a power cut does no harm";
  EXPECT_EQ(callsOf([&] { saveInPieces(dir.file("a")); }), "ggwwfrf") << "the same of pieces";
  for (int i = 0; i < 1100; ++i) {
    dir.write(QString::number(i), {});
  }
  const std::string twice = callsOf([&] { save(dir.file("a")), save(dir.file("b")); });
  EXPECT_EQ(twice.substr(twice.find('r')), "rfwwwfrf") << "each save lists a large directory anew";
}

/// Mounts a disk of 64 KiB on a directory, for this process only.
bool mountSmallDisk(const QString& directory) {
  return KyrTest::mayMount() &&
         ::mount("small", directory.toUtf8().constData(), "tmpfs", 0, "size=64k") == 0;
}

void limitFiles(rlim_t bytes) {
  const rlimit limit{bytes, bytes};
  ::setrlimit(RLIMIT_FSIZE, &limit);
}

TEST(SafeFilePosix, LeavesTheOldFileWhenTheDiskIsFull) {
  const KyrTest::TempDir dir;
  for (const int limit : {0, 1, 65535, 65536, 100000, 149999, -1}) {
    for (void (*const action)(const QString&) : {save, saveInPieces}) {
      const QString path = dir.write("file", "old");
      const bool isDisk = limit < 0;
      const KyrTest::Ended ended = KyrTest::inChild([&] {
        if (isDisk && !mountSmallDisk(dir.path())) {
          std::cout << "skipped";
          return;
        }
        dir.write("file", "old");
        if (!isDisk) {
          limitFiles(static_cast<rlim_t>(limit));
        }
        std::cout << KyrTest::failure([&] { action(path); }) << '|'
                  << OS::listDirectory(dir.path()).join(' ').toStdString() << '|'
                  << readFile(path).toStdString();
      });
      if (isDisk && ended.output == "skipped") {
        GTEST_SKIP() << "this system lets nobody mount a small disk";
      }
      EXPECT_EQ(ended.output, "cannot save " + path.toUtf8() + ": " +
                                  (isDisk ? "no space is left on the disk"
                                          : "the file would be larger than is allowed") +
                                  "|file|old")
          << limit << ended.errors.toStdString();
    }
  }
}

TEST(SafeFilePosix, GivesUpWhereNothingIsTaken) {
  KYR_SKIP_ADDRESS_SANITIZER("UndefinedBehaviorSanitizer looks at memory through a pipe");
  const KyrTest::TempDir dir;
  const QString path = dir.write("file", "old");
  const KyrTest::Ended ended = KyrTest::inChild([&] {
    ::alarm(20);
    if (!KyrTest::takeNothing()) {
      std::cout << "skipped";
      return;
    }
    Kyr::SyncSystemErrorLog(false, dir.file("log")) << "lost" << Kyr::END_LOG;
    std::cout << KyrTest::failure([&] { save(path); });
  });
  if (ended.output == "skipped") {
    GTEST_SKIP() << "this system lets nobody filter its calls";
  }
  EXPECT_EQ(ended.output, "cannot save " + path.toUtf8() + ": the disk or its connection failed");
}

TEST(SafeFilePosix, KeepsPermissionsAndLinks) {
  const KyrTest::TempDir dir;
  ASSERT_TRUE(OS::mkdir(dir.file("far")));
  const QString target = dir.write("far/target", "old");
  ASSERT_TRUE(QFile::link("far/target", dir.file("near")));
  ASSERT_TRUE(QFile::link("near", dir.file("link")));
  ASSERT_TRUE(QFile::link("far/missing", dir.file("dangling")));
  ASSERT_TRUE(QFile::link("loop", dir.file("loop")));
  for (const mode_t mode : {0640U, 0600U, 0777U, 0200U}) {
    ASSERT_EQ(::chmod(target.toUtf8().constData(), mode), 0);
    save(dir.file("link"));
    struct stat found = {};
    ASSERT_EQ(::lstat(target.toUtf8().constData(), &found), 0);
    EXPECT_EQ(found.st_mode & 07777U, mode);
  }
  EXPECT_TRUE(OS::getStatus(dir.file("link")).isLink && OS::getStatus(dir.file("near")).isLink);
  save(dir.file("dangling"));
  EXPECT_TRUE(OS::getStatus(dir.file("far/missing")).isFile) << "the link is replaced";
  EXPECT_THROW(save(dir.file("loop")), Kyr::Exception);
  EXPECT_EQ(OS::listDirectory(dir.file("far")).join(' '), "missing target");
  const mode_t mask = ::umask(027);
  save(dir.file("new"));
  ::umask(mask);
  struct stat found = {};
  ASSERT_EQ(::stat(dir.file("new").toUtf8().constData(), &found), 0);
  EXPECT_EQ(found.st_mode & 07777U, 0640U) << "a new file is not as any other";
}

TEST(SafeFilePosix, GivesOtherGroupsNoRights) {
  if (::geteuid() != 0) {
    GTEST_SKIP() << "only root has users to try it with";
  }
  const KyrTest::TempDir dir;
  const std::string path = dir.write("file", "old").toStdString();
  ASSERT_EQ(::chmod(dir.path().toUtf8().constData(), 0777), 0);
  const KyrTest::Ended ended = KyrTest::inChild([&] {
    for (const gid_t group : {2000U, 1U}) {
      struct stat found = {};
      const bool isSetUp = ::seteuid(0) == 0 && ::setgroups(1, &group) == 0 &&
                           ::chown(path.c_str(), 1000, 2000) == 0 &&
                           ::chmod(path.c_str(), 04674) == 0 && ::seteuid(1001) == 0;
      save(QString::fromStdString(path));
      std::cout << (isSetUp && ::stat(path.c_str(), &found) == 0 && found.st_gid == 2000) << ' '
                << std::oct << (found.st_mode & 07777U) << '|';
    }
  });
  EXPECT_EQ(ended.output, "1 674|0 644|") << "a colleague is shut out, or a stranger let in";
}

TEST(SafeFilePosix, LeavesTheFilesOfOtherContainersAlone) {
  const KyrTest::TempDir dir;
  SafeFile file(dir.file("file"));
  const KyrTest::Ended ended = KyrTest::inChild([&] {
    if (::unshare(CLONE_NEWPID) != 0 || ::fork() != 0) {
      ::wait(nullptr);
      return;
    }
    SafeFile(dir.file("any")).discard();
    std::cout << OS::getPID() << std::flush;
    ::_exit(0);
  });
  if (ended.output != "1") {
    GTEST_SKIP() << "this system lets nobody make a container";
  }
  file.commit();
}

}  // namespace

// The desktop, played by a program of the same name as its own, and what file systems cannot do.
#include "support/Support.h"

#include <cerrno>

#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

using Kyr::OS;

namespace {

TEST(OpenOnDesktopPosix, HandsOverOneArgument) {
  const KyrTest::TempDir dir;
  const QString pipe = dir.file("pipe");
  ASSERT_EQ(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
  const QString opener =
      dir.write("xdg-open", "#!/bin/sh\nprintf '%s:%s' $# \"$1\" >'" + pipe.toUtf8() + "'\n");
  QFile(opener).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  const QString document = dir.write("-a $HOME;b.txt", "x");
  const KyrTest::ScopedEnvironment path("PATH", dir.path().toUtf8());
  const QString before = QDir::currentPath();
  ASSERT_TRUE(QDir::setCurrent(dir.path()));
  const std::pair<QString, QString> rows[] = {
      {"-a $HOME;b.txt", document},
      {"HTTPS://host/?a=b&c#d", "HTTPS://host/?a=b&c#d"},
      {"mailto:a@b", "mailto:a@b"},
      {".", dir.path()},
  };
  for (const auto& [given, received] : rows) {
    OS::openOnDesktop(given);
    EXPECT_EQ(KyrTest::readFile(pipe).toStdString(), "1:" + received.toStdString());
  }
  QDir::setCurrent(before);
  QFile::remove(opener);
  EXPECT_THROW(OS::openOnDesktop(document), Kyr::Exception) << "there is no desktop";
}

TEST(SystemPosix, IsCalledAsItCallsItself) {
  const QByteArray release = KyrTest::readFile("/etc/os-release");
  const QString name = OS::getSystemName();
  EXPECT_TRUE(release.contains("PRETTY_NAME=\"" + name.toUtf8() + '"')) << name.toStdString();
  EXPECT_TRUE(KyrTest::readFile("/proc/version").contains(' ' + OS::getSystemVersion().toUtf8()));
}

TEST(SystemPosix, RefusesATemporaryPathThatIsNoText) {
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"/tmp\xff", "", "a last byte that is dropped"},
      {"/t\xc3\xa4\xc3/", "", "half a character that is dropped in front of the slash"},
      {"/t\xe0\x80\xaf", "", "a slash in three bytes"},
      {"/t\xc3\xa4/", "/t\xc3\xa4", "a good path that is refused"},
  };
  for (const auto& [given, taken, catches] : rows) {
    const KyrTest::ScopedEnvironment path("TMPDIR", given);
    EXPECT_EQ(OS::getTempDirectory().toStdString(), taken) << catches;
  }
}

TEST(SystemPosix, CountsNoProcessThatHasEnded) {
  const pid_t child = ::fork();
  if (child == 0) {
    ::_exit(0);
  }
  siginfo_t ended = {};
  EXPECT_EQ(::waitid(P_PID, static_cast<id_t>(child), &ended, WEXITED | WNOWAIT), 0);
  EXPECT_FALSE(OS::pidExists(child)) << "nobody has asked for its end yet";
  ::waitpid(child, nullptr, 0);
}

TEST(SystemPosix, TellsWhyTheDirectoryAboveIsMissing) {
  const std::string above = KyrTest::failure([] { OS::makeDirectory("/sys/kyr"); });
  const std::string below = KyrTest::failure([] { OS::makeDirectory("/sys/kyr/below"); });
  EXPECT_EQ(below.substr(below.rfind(": ")), above.substr(above.rfind(": ")));
}

/// From now on the kernel knows no renaming in one step to a name that must be free.
bool forgetRenameToFree() {
  sock_filter rules[] = {BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                         BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_renameat2, 0, 1),
                         BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EINVAL),
                         BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
  const sock_fprog program{4, rules};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

TEST(SystemPosix, KeepsWhatHasTheName) {
  const KyrTest::TempDir dir;
  const QString file = dir.write("file", "kept");
  ASSERT_TRUE(OS::mkdir(dir.file("full/below")) && OS::mkdir(dir.file("empty")));
  ASSERT_EQ(::mkfifo(dir.file("pipe").toUtf8().constData(), 0600), 0);
  EXPECT_THROW(OS::copy(file, dir.file("pipe")), Kyr::Exception);
  const KyrTest::Ended ended = KyrTest::inChild([&] {
    if (!forgetRenameToFree()) {
      return;
    }
    for (const char* to : {"pipe", "empty", "new"}) {
      for (const QString& from : {dir.file("full"), file}) {
        std::cout << (KyrTest::failure([&] { OS::rename(from, dir.file(to)); }).empty() ? '+'
                                                                                        : '-');
      }
    }
    OS::rename(file, dir.file("last"));
  });
  if (ended.output.isEmpty()) {
    GTEST_SKIP() << "this system lets nobody change what the kernel knows";
  }
  EXPECT_EQ(ended.output, "----+-");
  EXPECT_EQ(OS::listDirectory(dir.path()).join(' '), "empty last new pipe");
}

TEST(SystemPosix, FailsWhereAFileMayNotGrow) {
  const KyrTest::TempDir dir;
  const QString full = dir.write("full", QByteArray(4096, 'x'));
  const QString name = dir.file("new");
  const struct {
    std::function<bool()> isWritten;
    const char* catches;
  } rows[] = {
      {[&] {
         std::ofstream stream;
         OS::openStdStream(stream, name, OS::OpenWrite, true);
         return bool(stream << std::string(4096, 'x') << std::flush);
       },
       "a stream"},
      {[&] {
         const KyrTest::Stream file(OS::openFile(name, OS::OpenAppend), &std::fclose);
         return std::fputs("much", file.get()) >= 0 && std::fflush(file.get()) == 0;
       },
       "a stream of the C library"},
      {[&] { return OS::copyFile(full, dir.file("copy")); }, "a copy"},
  };
  for (const auto& row : rows) {
    const KyrTest::Ended ended = KyrTest::inChild([&] {
      const rlimit none{0, 0};
      ::setrlimit(RLIMIT_FSIZE, &none);
      std::cout << (row.isWritten() ? "written" : "refused");
    });
    EXPECT_EQ(ended.output, "refused") << row.catches;
  }
  EXPECT_FALSE(OS::stat(dir.file("copy"))) << "half a copy stays";
  const Kyr::ProcessResult started = OS::run("grep", {"SigIgn", "/proc/self/status"});
  const quint64 ignored =
      started.output.mid(started.output.indexOf(':') + 1).trimmed().toULongLong(nullptr, 16);
  EXPECT_EQ(ignored >> (SIGXFSZ - 1) & 1U, 0U) << "programs that are started inherit it";
}

}  // namespace

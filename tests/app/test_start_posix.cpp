// What a user of Linux finds after the start.
#include "app/home.h"
#include "support/Shared.h"

#include <pwd.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

using namespace Kyr;
using namespace KyrTest;

namespace {

std::string folders() {
  return (OS::getSpecialFolder(OS::FolderRoamingData) + " " +
          OS::getSpecialFolder(OS::FolderLocalData))
      .toStdString();
}

TEST(StartOnLinux, FindsTheFoldersOfTheUser) {
  const std::string home = ::getpwuid(::getuid())->pw_dir;
  const struct {
    KyrTest::Variables variables;
    std::string expected;
    const char* catches;
  } rows[] = {
      {{}, home + "/.config " + home + "/.local/share", "no environment at all"},
      {{{"HOME", "/h/"}}, "/h/.config /h/.local/share", "a slash at the end"},
      {{{"HOME", "h"}}, home + "/.config " + home + "/.local/share", "a relative home"},
      {{{"HOME", "/h"}, {"XDG_CONFIG_HOME", "/c"}, {"XDG_DATA_HOME", "/d/"}}, "/c /d", "ignored"},
      {{{"HOME", "/h"}, {"XDG_CONFIG_HOME", "c"}}, "/h/.config /h/.local/share", "a relative one"},
  };
  const Home answers;
  for (const auto& row : rows) {
    inChild([&] {
      ::clearenv();
      for (const auto& [name, value] : row.variables) {
        OS::setEnv(name, value);
      }
      answers.say(QString::fromStdString(folders()));
    });
    EXPECT_EQ(answers.said(), row.expected) << row.catches;
  }
}

TEST(StartOnLinux, KeepsItsFoldersFromOthers) {
  const Home home;
  inChild([&] {
    ::umask(0);
    home.start({{"KYR_CONFIG_DIR", QString()},
                {"XDG_CONFIG_HOME", home.file("c/d")},
                {"XDG_DATA_HOME", home.file("d")}});
    home.say(KyrInit::getConfigDirectory(KyrInit::ConfigNonRoaming));
  });
  EXPECT_EQ(home.said(), home.file("d/orv").toStdString());
  for (const char* made : {"c", "c/d/orv/log", "c/d/orv/v6.2.0", "d/orv/tmp"}) {
    const auto others = QFile::ReadGroup | QFile::WriteGroup | QFile::ReadOther | QFile::WriteOther;
    EXPECT_TRUE(QFileInfo(home.file(made)).isDir()) << made;
    EXPECT_FALSE(QFile::permissions(home.file(made)) & others) << made;
  }
}

TEST(StartOnLinux, GoesOnWithoutAHomeThatItCanWrite) {
  const Home home;
  const auto ended = inChild([&] {
    ::clearenv();
    home.start({{"KYR_CONFIG_DIR", "/proc/self"}, {"KYR_CONSOLE", "terminal"}});
    home.say(KyrInit::createVersionConfigName("x"));
  });
  EXPECT_EQ(home.said(), "/proc/self/v6.2.0/x");
  EXPECT_TRUE(ended.exited && ended.output.endsWith("System memory management\n"));
}

TEST(StartOnLinux, ReadsTheProfileDirectoryFromTheSystemsSettings) {
  const Home home;
  const QString written = QString::fromUtf8("/srv/Pr\xc3\xbc\x66ung");
  QFile settings(home.file("ORV.conf"));
  ASSERT_TRUE(settings.open(QIODevice::WriteOnly));
  settings.write("[General]\nProfileDirectory=" + written.toUtf8() + "\nInstallerLanguage=1031\n");
  settings.close();
  inChild([&] {
    home.start({{"XDG_CONFIG_DIRS", home.path()},
                {"XDG_CONFIG_HOME", home.path()},
                {"KYR_PROFILE_DIR", "/else"}});
    home.say(KyrInit::getProfileDirectory(KyrInit::ProfileOfVersion) + " " +
             KyrInit::getProfileDirectory(KyrInit::ProfileConfigured) + " " +
             OS::getRegistryValue(OS::RegistryUser, "InstallerLanguage"));
  });
  EXPECT_EQ(home.said(), (written + "/v6.2.0 " + written + " 1031").toStdString());
}

TEST(StartOnLinux, WritesItsOwnFileForTheUserAlone) {
  const Home home;
  const auto start = [&home](const auto& prepare) {
    return inChild([&] {
      OS::setEnv("TMPDIR", home.path());
      const QString own = KyrInit::getProgramLogfile(OS::getPID());
      prepare(own);
      ::umask(0);
      home.start({{"KYR_CONSOLE", QString()}});
      EXPECT_EQ(std::system("echo child"), 0);
      home.say(QFileInfo(own).isSymLink() ? "link" : KyrTest::readFile(own));
      home.say(QString::number(QFile::permissions(own) & 0xFF, 16));
    });
  };
  QFile(home.file("victim")).open(QIODevice::WriteOnly);
  start([&](const QString& own) { QFile::link(home.file("victim"), own); });
  const std::string written = home.said();
  EXPECT_EQ(written.substr(written.find("management\n")), "management\nchild\n0")
      << "another's link is followed, or others may read";
  EXPECT_EQ(KyrTest::readFile(home.file("victim")), "");
  start([](const QString&) { ::close(STDOUT_FILENO); });
  EXPECT_EQ(home.said(), written) << "a closed standard output is not for the children";
  const auto refused = start([](const QString& own) { OS::mkdir(own); });
  EXPECT_TRUE(refused.errors.startsWith("Could not redirect stdout to " + home.path().toUtf8()));
  EXPECT_TRUE(refused.output.startsWith("Could not redirect stderr to " + home.path().toUtf8()));
}

TEST(StartOnLinux, SurvivesAFileThatMayNotGrow) {
  const Home home;
  inChild([&] {
    home.start({{"KYR_CONSOLE", "terminal"}});
    std::raise(SIGXFSZ);
    home.say("alive");
  });
  EXPECT_EQ(home.said(), "alive");
}

TEST(StartOnLinux, TakesTheNullDeviceForATemporaryDirectoryThatIsTooLong) {
  const Home home;
  for (const int length : {260, 261, 5000}) {
    const auto ended = inChild([&] {
      home.start({{"TMPDIR", "/" + QString(length - 1, 'x')}, {"KYR_CONSOLE", QString()}});
      home.say(KyrInit::getProgramLogfile(1) == OS::nullDevice() ? "null" : "file");
    });
    EXPECT_EQ(home.said(), length > 260 ? "null" : "file") << length;
    EXPECT_EQ(ended.errors.isEmpty(), length > 260) << "told of a file that cannot be made";
  }
  struct stat null = {};
  EXPECT_TRUE(::stat("/dev/null", &null) == 0 && S_ISCHR(null.st_mode)) << "removed";
}

/// A program outside of any "bin" whose current directory is gone; the next test runs it.
TEST(StartOnLinux, DISABLED_Nowhere) {
  const Home home;
  ASSERT_EQ(::rmdir(home.file("current").toLocal8Bit()), 0);
  home.start({{"KYR", QString()}}, {}, StartOptions());
  home.say(OS::stat(KyrInit::getSoftwareDirectory() + "/messages/Kyr_de.qm") ? "texts " : "none ");
  home.say(OS::stat(home.file("config")) ? "traces" : "");
  home.start({{"KYR", QString()}, {"KYR_CONSOLE", "terminal"}});
}

TEST(StartOnLinux, NeedsAPlaceOfTheSoftware) {
  const Home home;
  const QByteArray program = home.file("program").toLocal8Bit();
  ASSERT_TRUE(QFile::copy("/proc/self/exe", program));
  ASSERT_TRUE(OS::mkdir(home.file("current")));
  const auto ended = inChild([&] {
    if (::chdir(home.file("current").toLocal8Bit()) != 0) {
      ::_exit(2);
    }
    ::execl(program, program.data(), "--gtest_filter=*DISABLED_Nowhere",
            "--gtest_also_run_disabled_tests", nullptr);
  });
  EXPECT_TRUE(
      ended.errors.startsWith("\nInternal program error: Unable to determine KYR root dir\n\n"))
      << ended.errors.toStdString();
  EXPECT_EQ(home.said(), "texts ") << "those beside the library, and no directories made";
}

int listenAs(const QString& path) {
  const int listener = ::socket(AF_UNIX, SOCK_DGRAM | SOCK_NONBLOCK, 0);
  sockaddr_un address = {};
  address.sun_family = AF_UNIX;
  path.toLocal8Bit().toStdString().copy(address.sun_path, sizeof address.sun_path - 1);
  EXPECT_EQ(::bind(listener, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
  return listener;
}

TEST(StartOnLinux, TellsTheLauncherOnce) {
  const Home home;
  const int launcher = listenAs(home.file("start_app-5"));
  const struct {
    const char* number;
    QString folder;
    const char* expected;
    const char* catches;
  } rows[] = {
      {"5", home.path(), "10", "not told; told twice"},
      {"6", home.path(), "00", "nobody there"},
      {"-5", home.path(), "00", "a negative number"},
      {"5x", home.path(), "00", "no number"},
      {"5", home.path() + QString(100, '/'), "00", "a name that is too long"},
      {"5", QString(), "00", "no session"},
      {"5", QDir::current().relativeFilePath(home.path()), "00", "a folder of whoever starts it"},
  };
  for (const auto& row : rows) {
    inChild([&] {
      home.start({{"XDG_RUNTIME_DIR", row.folder}}, {"app", "-start-app-socket", row.number});
      const unsigned before = openFiles();
      home.say(KyrInit::signalMainWindowStarted() ? "1" : "0");
      home.say(KyrInit::signalMainWindowStarted() ? "1" : "0");
      home.say(openFiles() == before ? "" : " a socket stays open");
    });
    EXPECT_EQ(home.said(), row.expected) << row.catches;
  }
  std::array<char, 16> bytes{};
  EXPECT_EQ(::recv(launcher, bytes.data(), bytes.size(), 0), 4);
  EXPECT_EQ(std::string(bytes.data(), 4), std::string("\0\4\0\0", 4));
  EXPECT_EQ(::recv(launcher, bytes.data(), bytes.size(), 0), -1) << "a second message";
  ::close(launcher);
}

}  // namespace

// What a process finds after the start; each in a child with a folder of its own.
#include "app/home.h"
#include "support/Shared.h"

#include <kyr/jobs/KyrGUIThreadEvent.h>
#include <kyr/jobs/KyrProgress.h>
#include <kyr/jobs/KyrThreadPool.h>
#include <kyr/units/KyrUnits.h>

using namespace Kyr;
using namespace KyrTest;

namespace {

const QByteArray announcement =
    "Motion 6.2.0-6 Rev. 28774 Build 2010-02-05: System memory management\n";

QByteArray linesOf(const QString& path) {
  return KyrTest::readFile(path).replace("\r\n", "\n");
}

QString config(KyrInit::ConfigDirectory which) {
  return KyrInit::getConfigDirectory(which);
}

QString profile(KyrInit::ProfileDirectory_t which) {
  return KyrInit::getProfileDirectory(which);
}

TEST(Start, SettlesDirectories) {
  const Home home;
  const QString config = home.file(QString::fromUtf8("K\xc3\xb6ln"));
  inChild([&] {
    const Program program;
    home.start({{"KYR_CONFIG_DIR", QString(config).replace('/', '\\')},
                {"XDG_CONFIG_DIRS", home.path()},
                {"KYR_PROFILE_DIR", "\\p"},
                {"KYR", "\"/a b\\c\""}});
    home.say(QStringList{::config(KyrInit::ConfigRoaming), ::config(KyrInit::ConfigRoamingVersion),
                         ::config(KyrInit::ConfigNonRoaming), profile(KyrInit::ProfileInUse),
                         profile(KyrInit::ProfileOfVersion), KyrInit::getSoftwareDirectory(),
                         KyrInit::getConfigVersionString(), KyrInit::getApplicationName(),
                         QCoreApplication::libraryPaths().join("|")}
                 .join("|"));
    home.start({}, {}, ApplicationViewer);
    home.say("|" + profile(KyrInit::ProfileInUse) + profile(KyrInit::ProfileConfigured));
    home.start({{"KYR", QString()}});
    const QString unset = KyrInit::getSoftwareDirectory();
    home.start({{"KYR", "\"\""}});
    home.say(KyrInit::getSoftwareDirectory() == unset ? "" : "an empty text in quotes");
  });
  EXPECT_EQ(home.said(), QString("%1|%1/v6.2.0|%1|/p|/p/v6.2.0|/a b/c|v6.2.0|Motion|/a b/c/lib|")
                             .arg(config)
                             .toStdString());
  for (const char* made : {"/v6.2.0", "/log", "/tmp"}) {
    EXPECT_TRUE(OS::stat(config + made)) << made;
  }
}

TEST(Start, SendsOutputWhereTheEnvironmentSays) {
  const Home home;
  const auto named = inChild([&] {
    QFile(home.file("output")).open(QIODevice::WriteOnly);
    home.start({{"KYR_CONSOLE", "file:" + home.file("x.log")}});
    home.start({{"KYR_CONSOLE", "file:" + home.file("x.log")}});
  });
  EXPECT_EQ(linesOf(home.file("x.log")), announcement + announcement) << "not at the end";
  EXPECT_EQ(named.output + named.errors, "");

  inChild([&] {
    OS::setEnv("TMPDIR", home.path());
    OS::setEnv("TMP", home.path());
    std::ofstream stale;
    OS::openStdStream(stale, KyrInit::getProgramLogfile(OS::getPID()), OS::OpenWrite, true);
    stale << "of an earlier process" << std::flush;
    stale.close();
    home.start({{"KYR_CONSOLE", "file:"}});
    std::fputs("error\n", stderr);
    home.start({{"KYR_CONSOLE", QString()}});
    home.say(KyrInit::getProgramLogfile(OS::getPID()));
  });
  const QString own = QString::fromStdString(home.said());
  EXPECT_TRUE(OS::convertSeparatorsToUnix(own).startsWith(home.path())) << own.toStdString();
  EXPECT_EQ(linesOf(own), announcement + "error\n" + announcement)
      << "an earlier process's lines are left, or those of the first start are gone";
}

TEST(Start, GoesOnWithTheStreamsThatItHasWhenTheLogCannotBeOpened) {
  const Home home;
  const QString target = home.file("missing/x.log");
  const auto ended = inChild([&] {
    home.start({{"KYR_CONSOLE", "file:" + target}});
    std::fputs("error\n", stderr);
  });
  const QByteArray name = target.toLocal8Bit();
  EXPECT_EQ(ended.errors, "Could not redirect stdout to " + name + "\nerror\n");
  EXPECT_EQ(ended.output, "Could not redirect stderr to " + name + "\n" + announcement);
}

TEST(Start, LeavesAProgramOfItsOwnAsItIs) {
  const Home home;
  const auto ended = inChild([&] {
    const Program program;
    QCoreApplication::setLibraryPaths({home.path()});
    const QString twice = home.start({{"KYR", QString()}}, {"app", "-start-app-socket", "5", "x"},
                                     {QString::fromUtf8("Pr\xc3\xbc\x66ung"), "1.2"})
                              .join(' ');
    std::printf("seen\n");
    std::fflush(stdout);
    home.say(QStringList{twice, KyrInit::getApplicationName(),
                         KyrInit::getTranslatedApplicationName(), KyrInit::getApplicationVersion(),
                         QCoreApplication::applicationName(),
                         QCoreApplication::applicationVersion(),
                         QCoreApplication::libraryPaths().join("|").remove(home.path())}
                 .join("|"));
    home.start({});
    home.say("|" + QString(KyrInit::getApplicationName()) + KyrInit::getApplicationVersion());
  });
  EXPECT_EQ(ended.output + ended.errors, "seen\n") << "redirected, or something else is printed";
  const std::string own = "Pr\xc3\xbc\x66ung|";
  EXPECT_EQ(home.said(), "app x|" + own + own + "1.2|" + own + "1.2||Motion6.2.0-6");
  EXPECT_EQ(linesOf(home.file("output")), announcement) << "only the second start names itself";
}

TEST(Start, CountsProcessorsAsItIsTold) {
  const Home home;
  inChild([&] {
    for (const char* told : {"", "3x", "3"}) {
      home.start({{"KYR_NUMBER_OF_CPUS", told}});
      home.say(QString::number(OS::getNumberOfCPUs()) + " ");
    }
  });
  const std::string real = std::to_string(OS::getNumberOfCPUs()) + " ";
  EXPECT_EQ(home.said(), real + real + "3 ") << "an empty text, a number with a rest, the number";
}

TEST(Start, TakesTheLaunchersNumberOutOfTheArguments) {
  const Home home;
  const struct {
    const char* arguments;
    const char* left;
    const char* catches;
  } rows[] = {
      {"app -start-app-socket 5 file", "app file", "option or number stay"},
      {"app -start-app-socket", "app -start-app-socket", "the option without a number"},
      {"-start-app-socket 5", "-start-app-socket 5", "the program's name"},
      {"app -start-app-socket x -start-app-socket 5", "app -start-app-socket 5", "both go"},
      {"", "", "not even a name"},
  };
  for (const auto& row : rows) {
    inChild([&] {
      const QStringList given = QString(row.arguments).split(' ', Qt::SkipEmptyParts);
      home.say(home.start({}, given).join(' ') + (KyrInit::signalMainWindowStarted() ? "!" : ""));
    });
    EXPECT_EQ(home.said(), row.left) << row.catches;
  }
}

TEST(Start, FillsTheDirectoryOfThisVersionOnce) {
  const Home home;
  inChild([&] {
    const QString earlier = home.file("v6.1");
    OS::mkdir(earlier + "/folder");
    for (const char* name : {"/a", "/b"}) {
      std::ofstream file;
      OS::openStdStream(file, earlier + name, OS::OpenWrite, true);
      file << name;
    }
    home.start({});
    std::ofstream mine;
    OS::openStdStream(mine, KyrInit::createVersionConfigName("b"), OS::OpenWrite, true);
    const bool filled = KyrInit::updateConfigDirectory(earlier, {});
    home.say(QString("%1|%2|").arg(filled).arg(KyrInit::getVersionConfigName("folder")));
    OS::unlink(KyrInit::getVersionConfigName("a"));
    home.say(KyrInit::updateConfigDirectory(earlier, {}) ? "1|" : "0|");
    home.say(KyrInit::updateConfigDirectory(earlier, home.file("new")) ? "1|" : "0|");
    home.say(KyrInit::getVersionConfigName("a"));
    home.say(KyrInit::updateConfigDirectory(home.file("none"), home.file("new2")) ? "|1" : "|0");
  });
  EXPECT_EQ(home.said(), "1||1|1|" + home.file("new/a").toStdString() + "|0");
  EXPECT_EQ(KyrTest::readFile(home.file("config/v6.2.0/b")), "") << "replaced";
  EXPECT_FALSE(OS::stat(home.file("config/v6.2.0/a"))) << "filled a second time";
}

std::string ended;  // what of the library's own has ended, in its order

class PooledThread : public PoolThread {
 public:
  PooledThread() : PoolThread(NoLockGUI, "test", "test_start", 1) {}
  ~PooledThread() override { ended += "thread "; }
  void work() override {}
};

class Creator : public GUIThreadEventCreator {
 public:
  ~Creator() override { ended += "creator at " + std::to_string(Progress::getProgress()) + " "; }
  GUIThreadEvent* createEvent() override { return nullptr; }
};

class Speed : public UnitDiff {
 public:
  Speed() : UnitDiff(&uLength, "s") {}
  ~Speed() override { ended += "unit at " + std::to_string(Progress::getProgress()); }
};

TEST(Close, EndsWhatTheLibraryOwns) {
  const Home home;
  inChild([&] {
    home.start({});
    Progress::setProgress(0, 100, 50);
    PoolForThreads::getPool()->registerThreads("threads", {new PooledThread});
    Progress::registerGUIEventCreator(new Creator);
    new Speed;
    KyrInit::CloseLibrary();
    KyrInit::CloseLibrary();
    home.say(QString::fromStdString(ended));
  });
  EXPECT_EQ(home.said(), "thread creator at 50 unit at 0");
}

}  // namespace

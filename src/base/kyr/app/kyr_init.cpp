#include <kyr/app/KyrInit.h>

#include <kyr/app/program_lines_p.h>
#include <kyr/app/start_p.h>
#include <kyr/core/KyrVersion.h>
#include <kyr/crash/KyrNewHandler.h>
#include <kyr/crash/crash_handler_p.h>
#include <kyr/env/settings_p.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrProgress.h>
#include <kyr/jobs/KyrThreadPool.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>
#include <kyr/recorder/KyrFlightRecorder.h>
#include <kyr/text/KyrParse.h>
#include <kyr/units/KyrUnit.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <array>
#include <cstdio>
#include <iostream>

namespace Kyr {

namespace {

constexpr const char* revision = "28774";
constexpr const char* buildDate = "2010-02-05";

constexpr const char* filePrefix = "file:";
constexpr int filePrefixLength = 5;
constexpr const char* socketOption = "-start-app-socket";

/// The process whose own file takes standard output; 0 without such a file. A second start does not
/// empty it.
unsigned ownFileOfProcess = 0;

int launcherSocket = -1;  // negative without a launcher
bool mainWindowStarted = false;

/// Where standard error went before it was first redirected; 0 for nowhere.
std::intptr_t errorsBefore = 0;

bool redirectBoth(const QString& path, Start::Target_t target) {
  const bool redirected = Start::redirectOutput(path, target);
  if (!redirected) {
    std::fprintf(stderr, "Could not redirect stdout to %s\n", path.toLocal8Bit().constData());
  }
  if (!redirected || !Start::redirectErrors(path)) {
    std::fprintf(stdout, "Could not redirect stderr to %s\n", path.toLocal8Bit().constData());
    return false;
  }
  return true;
}

/// Sends both streams to a file. The first time it is kept where standard error went, for the word
/// about a crash.
void redirectStreams(const QString& path, Start::Target_t target) {
  const std::intptr_t before = errorsBefore == 0 ? Start::keepErrors() : 0;
  if (!redirectBoth(path, target)) {
    Start::dropErrors(before);
    return;
  }
  errorsBefore = before != 0 ? before : errorsBefore;
  Start::setReportFile(path != OS::nullDevice() ? QFileInfo(path).absoluteFilePath() : QString());
  if (errorsBefore != 0 && path != OS::nullDevice()) {
    Crash::setPlaceOfNotice(errorsBefore);
  }
}

// Without a temporary directory the file is the null device, which is not removed and made anew, as
// root could do.
void redirectToOwnFile() {
  const unsigned pid = OS::getPID();
  if (ownFileOfProcess != pid) {
    ownFileOfProcess = pid;
    const QString path = KyrInit::getProgramLogfile(pid);
    const bool isFile = path != OS::nullDevice();
    redirectStreams(path, isFile ? Start::Target_t::Own : Start::Target_t::Named);
  }
}

void redirectToNamedFile(const QString& path) {
  ownFileOfProcess = 0;
  redirectStreams(path, Start::Target_t::Named);
}

void openConsole() {
  ownFileOfProcess = 0;
  if (Start::openConsole()) {
    Crash::setConsoleAllocated(true);
  }
}

void openStandardStreams() {
  const QString console = OS::getEnv("KYR_CONSOLE");
  if (!console.isNull() && !console.startsWith(filePrefix)) {
    openConsole();
  } else if (console.size() <= filePrefixLength) {
    redirectToOwnFile();
  } else {
    redirectToNamedFile(console.mid(filePrefixLength));
  }
}

void unbufferStandardStreams() {
  std::setvbuf(stdout, nullptr, _IONBF, 0);
  std::setvbuf(stderr, nullptr, _IONBF, 0);
  std::ios_base::sync_with_stdio(true);
}

void announce(const char* application) {
  std::printf("%s %s Rev. %s Build %s: System memory management\n", application, libraryVersion(),
              revision, buildDate);
  std::fflush(stdout);
}

/// In UTF-8; empty when the temporary directory has no name that fits.
QByteArray crashDumpFile() {
  constexpr unsigned size = 1024;
  std::array<wchar_t, size> path;
  const bool isNamed = KyrInit::getProgramCrashdumpfile(OS::getPID(), path.data(), size);
  return isNamed ? QString::fromWCharArray(path.data()).toUtf8() : QByteArray();
}

/// In UTF-8; empty when the temporary directory has no name that fits.
QByteArray ownReportFile() {
  const QString path = KyrInit::getProgramLogfile(OS::getPID());
  return path != OS::nullDevice() ? path.toUtf8() : QByteArray();
}

void applyNumberOfCPUs() {
  bool ok = false;
  const unsigned count = qstringToUInt(OS::getEnv("KYR_NUMBER_OF_CPUS"), &ok);
  if (ok) {
    OS::setNumberOfCPUs(count);
  }
}

// The launcher puts its option in front of what the user gave; the last argument has no number.
void takeLauncherSocket(QStringList& arguments) {
  launcherSocket = -1;
  mainWindowStarted = false;
  const auto option = arguments.indexOf(socketOption, 1);
  if (option < 0 || option + 1 >= arguments.size()) {
    return;
  }
  bool ok = false;
  const int socket = qstringToInt(arguments.at(option + 1), &ok);
  launcherSocket = ok ? socket : -1;
  arguments.erase(arguments.begin() + option, arguments.begin() + option + 2);
}

void tellQt(const StartOptions& options) {
  if (!options.name.isEmpty()) {
    QCoreApplication::setApplicationName(options.name);
  }
  if (!options.version.isEmpty()) {
    QCoreApplication::setApplicationVersion(options.version);
  }
}

/// Has the flight recorder know how far the library is.
void noteStep(const char* step) noexcept {
  FlightRecorder::note("KyrInit", step);
}

/// The start of an application of the suite.
StartOptions optionsOfSuite(Application_t application) {
  StartOptions options;
  options.application = application;
  options.keepStreams = options.keepPluginPaths = false;
  options.announce = options.makeDirectories = options.trustCurrentDirectory = true;
  return options;
}

}  // namespace

void KyrInit::InitLibrary(Application_t app, QStringList& arguments) {
  InitLibrary(optionsOfSuite(app), arguments);
}

void KyrInit::InitLibrary(const StartOptions& options, QStringList& arguments) {
  noteStep("InitLibrary begins");
  Start::setSmallBlockThreshold();
  Platform::surviveFileLimit();
  if (!options.keepStreams) {
    openStandardStreams();
    unbufferStandardStreams();
    noteStep("the standard streams are open");
  }
  Crash::install(crashDumpFile().constData());
  Crash::setReportFile(options.keepStreams && options.keepReport ? ownReportFile().constData()
                                                                 : "");
  NewHandler::install();
  noteStep("the crash handler is installed");
  Settings::setApplication(options.application, options.name, options.version);
  if (options.announce) {
    announce(getApplicationName());
  }
  applyNumberOfCPUs();
  Settings::settle({options.makeDirectories, options.trustCurrentDirectory});
  noteStep("the directories are known");
  if (!options.keepPluginPaths && QCoreApplication::instance()) {
    QCoreApplication::setLibraryPaths({getSoftwareDirectory() + "/lib"});
  }
  tellQt(options);
  Start::describeProgram(arguments);
  Start::prepareNotice();
  takeLauncherSocket(arguments);
  noteStep("InitLibrary is done");
}

void KyrInit::CloseLibrary() {
  noteStep("CloseLibrary begins");
  PoolForThreads::deinitialize();
  Progress::destroyGUIEventCreators();
  Progress::reset();
  UnitDiff::clearUnits();
  noteStep("CloseLibrary is done");
}

QString KyrInit::getTranslatedApplicationName() {
  return translate("KyrApplication", getApplicationName());
}

bool KyrInit::signalMainWindowStarted() {
  if (launcherSocket < 0 || mainWindowStarted) {
    return false;
  }
  mainWindowStarted = Start::tellLauncher("start_app-" + QString::number(launcherSocket));
  return mainWindowStarted;
}

}  // namespace Kyr

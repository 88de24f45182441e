#include <kyr/env/KyrInit.h>

#include <kyr/app/KyrNewHandler.h>
#include <kyr/app/crash_handler_p.h>
#include <kyr/app/start_p.h>
#include <kyr/core/KyrVersion.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrProgress.h>
#include <kyr/jobs/KyrThreadPool.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>
#include <kyr/text/KyrParse.h>
#include <kyr/units/KyrUnit.h>

#include <QCoreApplication>

#include <cstdio>
#include <iostream>

namespace Kyr {

namespace {

constexpr const char* revision = "28774";
constexpr const char* buildDate = "2010-02-05";

constexpr const char* filePrefix = "file:";
constexpr int filePrefixLength = 5;
constexpr const char* socketOption = "-start-app-socket";

/// The process whose own file takes standard output. A second start must not empty that file.
unsigned ownFileOfProcess = 0;

void redirectStreams(const QString& path, Start::Target target) {
  const bool redirected = Start::redirectOutput(path, target);
  if (!redirected) {
    std::fprintf(stderr, "Could not redirect stdout to %s\n", path.toLocal8Bit().constData());
  }
  if (!redirected || !Start::redirectErrors(path)) {
    std::fprintf(stdout, "Could not redirect stderr to %s\n", path.toLocal8Bit().constData());
  }
}

// The null device must not be removed to make it anew, which some users could.
void redirectToOwnFile() {
  const unsigned pid = OS::getPID();
  if (ownFileOfProcess != pid) {
    ownFileOfProcess = pid;
    const QString path = KyrInit::getProgramLogfile(pid);
    const bool isFile = path != OS::nullDevice();
    redirectStreams(path, isFile ? Start::Target::Own : Start::Target::Named);
  }
}

void redirectToNamedFile(const QString& path) {
  ownFileOfProcess = 0;
  redirectStreams(path, Start::Target::Named);
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

void applyNumberOfCPUs() {
  bool ok = false;
  const unsigned count = qstringToUInt(OS::getEnv("KYR_NUMBER_OF_CPUS"), &ok);
  if (ok) {
    OS::setNumberOfCPUs(count);
  }
}

}  // namespace

void KyrInit::InitLibrary(Application_t app, QStringList& arguments) {
  Start::setSmallBlockThreshold();
  Platform::surviveFileLimit();
  openStandardStreams();
  unbufferStandardStreams();
  Crash::install();
  NewHandler::install();
  _app = app;
  _process_id = OS::getPID();
  announce(getApplicationName());
  applyNumberOfCPUs();
  initConfigDirectories();
  createConfigDirectories();
  initProfileDirectory();
  initSoftwareDirectory();
  if (QCoreApplication::instance()) {
    QCoreApplication::setLibraryPaths({_software_dir + "/lib"});
  }
  parseStartAppSocket(arguments);
}

void KyrInit::CloseLibrary() {
  PoolForThreads::deinitialize();
  Progress::destroyGUIEventCreators();
  Progress::reset();
  UnitDiff::clearUnits();
}

QString KyrInit::getTranslatedApplicationName() {
  return translate("KyrApplication", getApplicationName());
}

// The launcher puts its option in front of what the user gave; the last argument has no number.
void KyrInit::parseStartAppSocket(QStringList& arguments) {
  _start_app_socket = -1;
  _main_window_started = false;
  const int option = arguments.indexOf(socketOption, 1);
  if (option < 0 || option + 1 >= arguments.size()) {
    return;
  }
  bool ok = false;
  const int socket = qstringToInt(arguments.at(option + 1), &ok);
  _start_app_socket = ok ? socket : -1;
  arguments.erase(arguments.begin() + option, arguments.begin() + option + 2);
}

bool KyrInit::signalMainWindowStarted() {
  if (_start_app_socket < 0 || _main_window_started) {
    return false;
  }
  _main_window_started = Start::tellLauncher("start_app-" + QString::number(_start_app_socket));
  return _main_window_started;
}

}  // namespace Kyr

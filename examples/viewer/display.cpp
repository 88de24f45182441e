#include "display.h"

#include <kyr/core/KyrQtVersion.h>

#include <QByteArray>
#include <QCoreApplication>

namespace Viewer {

namespace {

/// Whether an argument begins with a text.
bool isGiven(const char* start, int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (QByteArray(argv[i]).startsWith(start)) {
      return true;
    }
  }
  return false;
}

/// Whether nothing tells where a window could be shown; Qt would abort the process then.
bool isHeadless(int argc, char** argv) {
  for (const char* variable : {"QT_QPA_PLATFORM", "DISPLAY", "WAYLAND_DISPLAY", "WAYLAND_SOCKET"}) {
    if (!qEnvironmentVariableIsEmpty(variable)) {
      return false;
    }
  }
  return !isGiven("-platform", argc, argv);
}

}  // namespace

bool prepareDisplay(int argc, char** argv) {
  const bool headless = isHeadless(argc, argv);
  if (headless ||
      (isGiven("--screenshot", argc, argv) && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))) {
    qputenv("QT_QPA_PLATFORM", "offscreen");  // needs no display, and nothing flashes up
  }
  Kyr::QtVersion::scaleForScreens<QCoreApplication>();
  return !headless;
}

}  // namespace Viewer

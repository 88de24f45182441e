/// \file
/// The viewer: a scan as a picture, coloured by its curvature.
///
/// Exit codes: 0 closed, or the screenshot is written; 1 no screenshot, or no display; 2 wrong
/// usage.

#include "display.h"
#include "display_unit.h"
#include "main_window.h"
#include "message_bar.h"
#include "theme.h"
#include "view.h"

#include "surface/session.h"

#include <kyr/app/KyrInit.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/text/KyrParse.h>
#include <kyr/units/KyrUnits.h>

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>
#include <cstdlib>

namespace {

using Kyr::translate;

struct Options {
  QString file;
  QString screenshot;
  QSize size{1280, 800};
  Kyr::Unit::Units_t fileUnit = Kyr::Unit::Millimetre;
  unsigned copies = 1;
};

void complain(const QString& problem) {
  std::fprintf(stderr, "viewer: %s\n", problem.toLocal8Bit().constData());
}

[[noreturn]] void refuseUsage(const QString& problem) {
  complain(problem + '\n' + translate("Viewer", "Try viewer --help."));
  std::exit(2);
}

QSize parseSize(const QString& text) {
  const QStringList sides = text.split('x');
  bool widthGood = false;
  bool heightGood = false;
  const QSize size(sides.value(0).toInt(&widthGood), sides.value(1).toInt(&heightGood));
  constexpr int largest = 8192;
  const bool good = sides.size() == 2 && widthGood && heightGood && size.width() > 0 &&
                    size.height() > 0 && size.width() <= largest && size.height() <= largest;
  if (!good) {
    refuseUsage(translate("Viewer", "no size: %1; it should look like 1280x800").arg(text));
  }
  return size;
}

Options parseArguments(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription(translate("Viewer", "Shows a scan, coloured by its curvature."));
  const QCommandLineOption help({"h", "help"}, translate("Viewer", "shows this"));
  const QString file = translate("Viewer", "file");
  parser.addPositionalArgument(file, translate("Viewer", "an OBJ file or a project (.kyr)"),
                               '[' + file + ']');
  const QCommandLineOption unit("unit",
                                translate("Viewer", "what one unit of an OBJ file is; default mm"),
                                translate("Viewer", "unit"), "mm");
  const QCommandLineOption copies(
      "copies", translate("Viewer", "how often the scan is shown, side by side; default 1"),
      translate("Viewer", "number"), "1");
  const QCommandLineOption screenshot(
      "screenshot", translate("Viewer", "writes a picture of the window and ends"), "png");
  const QCommandLineOption size("size", translate("Viewer", "of the window; default 1280x800"),
                                translate("Viewer", "size"), "1280x800");
  parser.addOptions({help, unit, copies, screenshot, size});
  if (!parser.parse(arguments)) {
    refuseUsage(parser.errorText());
  }
  if (parser.isSet(help)) {
    std::fputs(parser.helpText().toLocal8Bit().constData(), stdout);
    std::exit(0);
  }
  Options options;
  if (parser.positionalArguments().size() > 1) {
    refuseUsage(translate("Viewer", "give one file"));
  }
  options.file = parser.positionalArguments().value(0);
  options.screenshot = parser.value(screenshot);
  options.size = parseSize(parser.value(size));
  bool counted = false;
  options.copies = Kyr::qstringToUInt(parser.value(copies), &counted, 10, nullptr);
  if (!counted || options.copies == 0) {
    refuseUsage(translate("Viewer", "no number of copies: %1").arg(parser.value(copies)));
  }
  if (!Kyr::uLength.getUnitByName(parser.value(unit), &options.fileUnit)) {
    refuseUsage(translate("Viewer", "no unit of length is called %1").arg(parser.value(unit)));
  }
  return options;
}

/// Writes a copy of the window into a file when the picture is complete, and ends the program.
void takeScreenshot(Viewer::MainWindow& window, const QString& fileName) {
  const auto end = [&window, fileName] {
    const bool written = window.grab().save(fileName, "PNG");
    if (!written) {
      complain(translate("Viewer", "cannot write %1").arg(fileName));
    }
    QCoreApplication::exit(written ? 0 : 1);
  };
  QObject::connect(&window, &Viewer::MainWindow::ended, &window, [&window, end](auto outcome) {
    if (outcome != Viewer::Outcome::Loaded) {
      complain(window.messages().text());
      QCoreApplication::exit(1);
      return;
    }
    QObject::connect(&window.view(), &Viewer::View::settled, &window, end);
  });
}

}  // namespace

int main(int argc, char** argv) {
  Surface::keepStandardStreams();
  const bool headless = !Viewer::prepareDisplay(argc, argv);
  QApplication application(argc, argv);
  QCoreApplication::setApplicationName("viewer");
  const Surface::Session session(Kyr::ApplicationViewer);
  const Options options = parseArguments(session.arguments());
  if (!options.screenshot.isEmpty() && options.file.isEmpty()) {
    refuseUsage(translate("Viewer", "a screenshot needs a file"));
  }
  if (headless && options.screenshot.isEmpty()) {
    complain(translate("Viewer", "there is no display for a window; --screenshot needs none"));
    return 1;
  }
  Viewer::Theme::apply(application);
  Viewer::setDisplayUnit(Kyr::Unit::Millimetre);
  Viewer::MainWindow window(Kyr::uLength.from(1, options.fileUnit), options.copies);
  window.resize(options.size);
  if (!options.screenshot.isEmpty()) {
    takeScreenshot(window, options.screenshot);
  }
  window.show();
  Kyr::KyrInit::signalMainWindowStarted();
  if (!options.file.isEmpty()) {
    window.open(options.file);
  }
  return QApplication::exec();
}

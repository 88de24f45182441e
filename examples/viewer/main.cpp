/// \file
/// The viewer: a scan as a picture, coloured by its curvature.
///
/// Exit codes: 0 closed, or the screenshot is written; 1 no screenshot; 2 wrong usage.

#include "display_unit.h"
#include "main_window.h"
#include "message_bar.h"
#include "theme.h"
#include "view.h"

#include <kyr/units/KyrUnits.h>

#include <QApplication>
#include <QCommandLineParser>

#include <cstdio>
#include <cstdlib>

namespace {

struct Options {
  QString file;
  QString screenshot;
  QSize size{1280, 800};
  Kyr::Unit::Units_t fileUnit = Kyr::Unit::Millimetre;
  unsigned copies = 1;
};

[[noreturn]] void refuseUsage(const QString& problem) {
  std::fprintf(stderr, "viewer: %s\nTry viewer --help.\n", problem.toLocal8Bit().constData());
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
    refuseUsage(QString("no size: %1; it should look like 1280x800").arg(text));
  }
  return size;
}

Options parseArguments() {
  QCommandLineParser parser;
  parser.setApplicationDescription("Shows a scan, coloured by its curvature.");
  parser.addHelpOption();
  parser.addPositionalArgument("file", "an OBJ file or a project (.kyr)", "[file]");
  const QCommandLineOption unit("unit", "what one unit of an OBJ file is; default mm", "unit",
                                "mm");
  const QCommandLineOption copies("copies", "shows the scan so often, side by side", "number", "1");
  const QCommandLineOption screenshot("screenshot", "writes a picture of the window and ends",
                                      "png");
  const QCommandLineOption size("size", "of the window; default 1280x800", "size", "1280x800");
  parser.addOptions({unit, copies, screenshot, size});
  if (!parser.parse(QCoreApplication::arguments())) {
    refuseUsage(parser.errorText());
  }
  if (parser.isSet("help")) {
    parser.showHelp();
  }
  Options options;
  if (parser.positionalArguments().size() > 1) {
    refuseUsage("give one file");
  }
  options.file = parser.positionalArguments().value(0);
  options.screenshot = parser.value(screenshot);
  options.size = parseSize(parser.value(size));
  bool counted = false;
  options.copies = parser.value(copies).toUInt(&counted);
  if (!counted || options.copies == 0) {
    refuseUsage(QString("no number of copies: %1").arg(parser.value(copies)));
  }
  if (!Kyr::uLength.getUnitByName(parser.value(unit), &options.fileUnit)) {
    refuseUsage(QString("no unit of length is called %1").arg(parser.value(unit)));
  }
  return options;
}

/// Ends the program when the picture stands, with a copy of the window in a file.
void takeScreenshot(Viewer::MainWindow& window, const QString& fileName) {
  const auto end = [&window, fileName] {
    const bool written = window.grab().save(fileName, "PNG");
    if (!written) {
      std::fprintf(stderr, "viewer: cannot write %s\n", fileName.toLocal8Bit().constData());
    }
    QCoreApplication::exit(written ? 0 : 1);
  };
  QObject::connect(&window, &Viewer::MainWindow::ended, &window, [&window, end](auto outcome) {
    if (outcome != Viewer::Outcome::Loaded) {
      const QString problem = window.messages().text();
      std::fprintf(stderr, "viewer: %s\n", problem.toLocal8Bit().constData());
      QCoreApplication::exit(1);
      return;
    }
    QObject::connect(&window.view(), &Viewer::View::settled, &window, end);
  });
}

bool wantsScreenshot(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    if (QByteArray(argv[i]).startsWith("--screenshot")) {
      return true;
    }
  }
  return false;
}

}  // namespace

int main(int argc, char** argv) {
  if (wantsScreenshot(argc, argv) && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");  // needs no display, and nothing flashes up
  }
  QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling);
  QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps);
  QApplication application(argc, argv);
  QCoreApplication::setApplicationName("viewer");
  const Options options = parseArguments();
  if (!options.screenshot.isEmpty() && options.file.isEmpty()) {
    refuseUsage("a screenshot needs a file");
  }
  Viewer::Theme::apply(application);
  Viewer::setDisplayUnit(Kyr::Unit::Millimetre);
  Viewer::MainWindow window(Kyr::uLength.from(1, options.fileUnit), options.copies);
  window.resize(options.size);
  if (!options.screenshot.isEmpty()) {
    takeScreenshot(window, options.screenshot);
  }
  window.show();
  if (!options.file.isEmpty()) {
    window.open(options.file);
  }
  return QApplication::exec();
}

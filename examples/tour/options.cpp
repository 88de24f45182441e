#include "options.h"

#include "console_p.h"

#include <kyr/text/KyrParse.h>
#include <kyr/units/KyrUnits.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>

namespace Tour {

namespace {

[[noreturn]] void refuseUsage(const QString& problem) {
  std::fprintf(stderr, "tour: %s\nTry tour --help.\n", encoded(problem).constData());
  std::exit(2);
}

/// The value of an option as a whole number; ends the program for anything else.
unsigned number(const QCommandLineParser& parser, const QCommandLineOption& option, unsigned least,
                unsigned most) {
  bool ok = false;
  const unsigned value = Kyr::qstringToUInt(parser.value(option), &ok, 10, nullptr);
  if (!ok || value < least || value > most) {
    refuseUsage(QString("--%1 takes a number from %2 to %3")
                    .arg(option.names().first())
                    .arg(least)
                    .arg(most));
  }
  return value;
}

void refuseBadOptions(const Options& options) {
  if (QFileInfo::exists(options.scan) && QFileInfo(options.scan) == QFileInfo(options.project())) {
    refuseUsage(QString("the project file would replace %1").arg(options.scan));
  }
}

}  // namespace

QString Options::project() const {
  return QDir(directory).filePath(QFileInfo(scan).completeBaseName() + ".kyr");
}

Options parseArguments(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription("Reads a scan, measures it and keeps it in a project file.");
  parser.addHelpOption();
  parser.addPositionalArgument("scan", "an OBJ file");
  const QCommandLineOption unit("unit", "what one unit of the file is; default mm", "unit", "mm");
  const QCommandLineOption directory("output", "where the project file goes; default here",
                                     "directory", ".");
  const QCommandLineOption copies(
      "copies", "how often the scan is repeated, side by side; default 1", "number", "1");
  const QCommandLineOption workers("workers", "threads that analyse it; default one per processor",
                                   "number", "0");
  const QCommandLineOption smoothing("smoothing", "how often normals are smoothed; default 2",
                                     "passes", "2");
  parser.addOptions({unit, directory, copies, workers, smoothing});
  if (!parser.parse(arguments)) {
    refuseUsage(parser.errorText());
  }
  if (parser.isSet("help")) {
    parser.showHelp();
  }
  Options options;
  if (parser.positionalArguments().size() != 1) {
    refuseUsage("give one OBJ file");
  }
  options.scan = parser.positionalArguments().first();
  options.directory = parser.value(directory);
  if (!Kyr::uLength.getUnitByName(parser.value(unit), &options.unit)) {
    refuseUsage(QString("no unit of length is called %1").arg(parser.value(unit)));
  }
  options.copies = number(parser, copies, 1, 10000);
  options.analysis.workers = number(parser, workers, 0, 256);
  options.analysis.smoothingPasses = number(parser, smoothing, 0, 100000);
  refuseBadOptions(options);
  return options;
}

}  // namespace Tour

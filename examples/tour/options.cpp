#include "options.h"

#include "console_p.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/text/KyrParse.h>
#include <kyr/units/KyrUnits.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>

#include <cstdio>
#include <cstdlib>

namespace Tour {

namespace {

using Kyr::translate;

[[noreturn]] void refuseUsage(const QString& problem) {
  const QString text =
      QString("tour: %1\n%2\n").arg(problem, translate("Tour", "Try tour --help."));
  std::fputs(encoded(text).constData(), stderr);
  std::exit(2);
}

[[noreturn]] void showHelp(const QCommandLineParser& parser) {
  std::fputs(encoded(parser.helpText()).constData(), stdout);
  std::exit(0);
}

/// The value of an option as a whole number; ends the program for anything else.
unsigned number(const QCommandLineParser& parser, const QCommandLineOption& option, unsigned least,
                unsigned most) {
  bool ok = false;
  const unsigned value = Kyr::qstringToUInt(parser.value(option), &ok, 10, nullptr);
  if (!ok || value < least || value > most) {
    refuseUsage(translate("Tour", "--%1 takes a number from %2 to %3")
                    .arg(option.names().first())
                    .arg(least)
                    .arg(most));
  }
  return value;
}

/// Ends the program if a file would be written over another one of its files.
void refuseBadOptions(const Options& options) {
  const QFileInfo scan(options.scan);
  const QFileInfo project(options.project());
  const QFileInfo archive(options.archive);
  if (QFileInfo::exists(options.scan) && (scan == project || scan == archive)) {
    refuseUsage(scan == project
                    ? translate("Tour", "the project file would replace %1").arg(options.scan)
                    : translate("Tour", "the archive would replace %1").arg(options.scan));
  }
  if (archive.absoluteFilePath() == project.absoluteFilePath()) {
    refuseUsage(translate("Tour", "the archive would replace %1").arg(options.project()));
  }
}

QString nameWithEnd(const Options& options, const char* end) {
  return QDir(options.directory).filePath(QFileInfo(options.scan).completeBaseName() + end);
}

}  // namespace

QString Options::project() const {
  return nameWithEnd(*this, ".kyr");
}

Options parseArguments(const QStringList& arguments) {
  QCommandLineParser parser;
  parser.setApplicationDescription(
      translate("Tour", "Reads a scan, measures it, keeps it in a project file and packs it all."));
  const QCommandLineOption help({"h", "help"}, translate("Tour", "shows this"));
  parser.addPositionalArgument(translate("Tour", "scan"), translate("Tour", "an OBJ file"));
  const QCommandLineOption unit("unit",
                                translate("Tour", "what one unit of the file is; default mm"),
                                translate("Tour", "unit"), "mm");
  const QCommandLineOption directory("output",
                                     translate("Tour", "where the project file goes; default here"),
                                     translate("Tour", "directory"), ".");
  const QCommandLineOption archive(
      "archive",
      translate("Tour", "where it is all packed as a tar.gz; default beside the project file"),
      translate("Tour", "file"));
  const QCommandLineOption copies(
      "copies", translate("Tour", "how often the scan is repeated, side by side; default 1"),
      translate("Tour", "number"), "1");
  const QCommandLineOption workers(
      "workers", translate("Tour", "threads that analyse it; default one per processor"),
      translate("Tour", "number"), "0");
  const QCommandLineOption smoothing("smoothing",
                                     translate("Tour", "how often normals are smoothed; default 2"),
                                     translate("Tour", "number"), "2");
  parser.addOptions({help, unit, directory, archive, copies, workers, smoothing});
  if (!parser.parse(arguments)) {
    refuseUsage(parser.errorText());
  }
  if (parser.isSet(help)) {
    showHelp(parser);
  }
  Options options;
  if (parser.positionalArguments().size() != 1) {
    refuseUsage(translate("Tour", "give one OBJ file"));
  }
  options.scan = parser.positionalArguments().first();
  options.directory = parser.value(directory);
  options.archive = parser.isSet(archive) ? parser.value(archive) : nameWithEnd(options, ".tar.gz");
  if (!Kyr::uLength.getUnitByName(parser.value(unit), &options.unit)) {
    refuseUsage(translate("Tour", "no unit of length is called %1").arg(parser.value(unit)));
  }
  options.copies = number(parser, copies, 1, 10000);
  options.analysis.workers = number(parser, workers, 0, 256);
  options.analysis.smoothingPasses = number(parser, smoothing, 0, 100000);
  refuseBadOptions(options);
  return options;
}

}  // namespace Tour

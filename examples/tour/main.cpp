/// \file
/// The tour: a real 3D scan goes from text to a compressed project file and back.
///
/// Exit codes: 0 everything held; 1 a file is at fault or something did not hold; 2 wrong usage.

#include "damage.h"
#include "measure.h"
#include "page.h"
#include "project.h"
#include "scan.h"

#include <kyr/core/KyrException.h>
#include <kyr/core/KyrVersion.h>
#include <kyr/log/KyrErrorLog.h>
#include <kyr/time/KyrTime.h>
#include <kyr/units/KyrUnits.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

#include <cmath>
#include <cstdio>
#include <vector>

namespace {

using namespace Tour;
using Kyr::Time;
using Kyr::Unit;

struct Options {
  QString scan;
  Unit::Units_t unit = Unit::Millimetre;
  QString directory;
};

constexpr unsigned decimals = 3;  // of a millimetre, and of its square and cube

struct Shown {
  const char* name;
  double value;
  Kyr::UnitLinear* kind;
  std::vector<Unit::Units_t> units;
};

void showUnits(Page& page, const Shown& shown) {
  QStringList cells;
  for (const Unit::Units_t unit : shown.units) {
    cells << shown.kind->toString(shown.value, decimals, unit) + " " +
                 shown.kind->getUName(unit).leftJustified(3);
  }
  page.cells(shown.name, cells);
}

Mesh read(const Options& options, Page& page, Kyr::ErrorLog& log) {
  page.section("Read the scan");
  ReadingNotes notes;
  Time watch = Time::currentTime();
  const double scale = Kyr::uLength.from(1.0, options.unit);
  Mesh mesh = readScan(options.scan, scale, log, notes);
  const double seconds = watch.elapsed();
  const qint64 size = QFileInfo(options.scan).size();
  page.row("file", QFileInfo(options.scan).fileName());
  page.row("holds", counted(static_cast<qint64>(mesh.points.size()), "point") + ", " +
                        counted(static_cast<qint64>(mesh.triangles.size()), "triangle"));
  page.row("text", QString("%1, %2, read %3")
                       .arg(bytes(size), counted(notes.lines, "line"), speed(size, seconds)));
  log << "read " << counted(notes.lines, "data line") << ", " << counted(notes.ignoredLines)
      << " of them without geometry" << Kyr::END_LOG;
  if (mesh.triangles.empty()) {
    throw Kyr::Exception(QString("%1 holds no surface").arg(options.scan));
  }
  return mesh;
}

void showMeasures(const Options& options, const Mesh& mesh, Page& page, Kyr::ErrorLog& log) {
  page.section(QString("Measure it (one unit of the file is 1 %1)")
                   .arg(Kyr::uLength.getUName(options.unit)));
  const Measures measures = measure(mesh);
  if (!std::isfinite(measures.area) || !std::isfinite(measures.volume)) {
    throw Kyr::Exception(QString("%1 is too large to be measured").arg(options.scan));
  }
  const std::vector<Unit::Units_t> lengths = {Unit::Millimetre, Unit::Micrometre, Unit::Inch,
                                              Unit::Mil};
  showUnits(page, {"width", measures.extent[0], &Kyr::uLength, lengths});
  showUnits(page, {"height", measures.extent[1], &Kyr::uLength, lengths});
  showUnits(page, {"depth", measures.extent[2], &Kyr::uLength, lengths});
  showUnits(page, {"surface",
                   measures.area,
                   &Kyr::uArea,
                   {Unit::SquareMillimetre, Unit::SquareInch, Unit::SquareMil}});
  showUnits(page, {"volume",
                   measures.volume,
                   &Kyr::uVolume,
                   {Unit::CubicMillimetre, Unit::CubicInch, Unit::Litre}});
  if (measures.openEdges > 0) {
    log << "the surface has " << counted(static_cast<qint64>(measures.openEdges), "open edge")
        << "; its volume is closed over the middle" << Kyr::END_LOG;
  }
}

QString projectOf(const Options& options) {
  return QDir(options.directory).filePath(QFileInfo(options.scan).completeBaseName() + ".kyr");
}

/// Writes the project, reads it back and compares.
bool store(const Options& options, const QString& project, const Mesh& mesh, Page& page) {
  page.section("Keep it in a project file");
  const std::vector<char> content = toBytes(mesh);
  const auto size = static_cast<qint64>(content.size());
  Time watch = Time::currentTime();
  writeProject(project, content);
  const double writing = watch.restart();
  const Reading back = readProject(project);
  const double reading = watch.elapsed();
  const qint64 packed = QFileInfo(project).size();
  const bool same = back.problem.isEmpty() && back.content == content;
  page.row("file", project);
  page.row("time of writing", back.written);
  page.row("text", bytes(QFileInfo(options.scan).size()));
  page.row("content", bytes(size));
  page.row("packed",
           QString("%1, %2% of the content")
               .arg(bytes(packed))
               .arg(100.0 * static_cast<double>(packed) / static_cast<double>(size), 0, 'f', 1));
  page.row("speed", QString("written %1, read %2").arg(speed(size, writing), speed(size, reading)));
  page.row("compared",
           same ? QString("all %1 equal").arg(bytes(size)) : "DIFFERENT: " + back.problem);
  return same;
}

bool tour(const Options& options) {
  Page page;
  Kyr::ErrorLog log(true);
  page.title(
      QString("libKyr %1: a scan from text to a project file and back").arg(Kyr::libraryVersion()));
  const Mesh mesh = read(options, page, log);
  showMeasures(options, mesh, page, log);
  const QString project = projectOf(options);
  const bool same = store(options, project, mesh, page);
  log << "wrote " << project << Kyr::END_LOG;
  page.section("What damage looks like (on copies)");
  const bool refused = showDamage(project, page);
  log << (refused ? "no damaged copy was taken for good data" : "A DAMAGED COPY WAS TAKEN FOR GOOD")
      << Kyr::END_LOG;
  page.section("Log");
  for (const QString& message : log.getLog().split('\n')) {
    page.text(message);
  }
  page.end(same && refused ? "Everything held." : "SOMETHING DID NOT HOLD.");
  return same && refused;
}

[[noreturn]] void refuseUsage(const QString& problem) {
  std::fprintf(stderr, "tour: %s\nTry tour --help.\n", problem.toLocal8Bit().constData());
  std::exit(2);
}

Options parseArguments() {
  QCommandLineParser parser;
  parser.setApplicationDescription("Reads a scan, measures it and keeps it in a project file.");
  parser.addHelpOption();
  parser.addPositionalArgument("scan", "an OBJ file");
  const QCommandLineOption unit("unit", "what one unit of the file is; default mm", "unit", "mm");
  const QCommandLineOption directory("output", "where the project file goes; default here",
                                     "directory", ".");
  parser.addOptions({unit, directory});
  if (!parser.parse(QCoreApplication::arguments())) {
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
  if (QFileInfo::exists(options.scan) && QFileInfo(options.scan) == QFileInfo(projectOf(options))) {
    refuseUsage(QString("the project file would replace %1").arg(options.scan));
  }
  return options;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const Options options = parseArguments();
  try {
    const bool held = tour(options);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
      throw Kyr::Exception("cannot write to standard output");
    }
    return held ? 0 : 1;
  } catch (const Kyr::Exception& failure) {
    std::fflush(stdout);
    std::fprintf(stderr, "tour: %s\n", failure.getText().toLocal8Bit().constData());
    return 1;
  }
}

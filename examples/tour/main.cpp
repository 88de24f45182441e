/// \file
/// The tour: a real 3D scan goes from text to a compressed project file and back, is analysed by
/// all processors on its way, and is packed with what became of it.
///
/// Exit codes: 0 everything held; 1 a file is at fault or something did not hold; 2 wrong usage;
/// 3 stopped with Ctrl-C: project file and archive are whole or were not touched.

#include "analyse.h"
#include "archive.h"
#include "console_p.h"
#include "damage.h"
#include "options.h"
#include "page.h"
#include "surface/abort.h"
#include "surface/analysis.h"
#include "surface/measure.h"
#include "surface/project.h"
#include "surface/scan.h"
#include "surface/session.h"
#include "surface/words.h"

#include <kyr/core/KyrException.h>
#include <kyr/core/KyrVersion.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/log/KyrErrorLog.h>
#include <kyr/terminal/KyrInterruptWatch.h>
#include <kyr/time/KyrTime.h>
#include <kyr/units/KyrQuantityText.h>
#include <kyr/units/KyrUnits.h>

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

namespace {

using namespace Surface;
using namespace Tour;
using Kyr::Time;
using Kyr::translate;
using Kyr::Unit;

constexpr int decimals = 3;  // shown of millimetres, square and cubic millimetres

struct Shown {
  QString name;
  double value;
  Kyr::UnitLinear* kind;
  std::vector<Unit::Units_t> units;
};

void showUnits(Page& page, const Shown& shown) {
  QStringList cells;
  for (const Unit::Units_t unit : shown.units) {
    constexpr double rounding = 1e-10;
    const double power = std::ceil(std::log10(shown.kind->getFactor(unit)) - rounding);
    const int digits = std::max(0, decimals + static_cast<int>(power));
    Kyr::QuantityText text(*shown.kind);
    text.setUnit(unit).setDecimals(static_cast<unsigned>(digits));
    cells << text.number(shown.value) + " " + shown.kind->getUName(unit).leftJustified(3);
  }
  page.cells(shown.name, cells);
}

Mesh read(const Options& options, Page& page, Kyr::ErrorLog& log) {
  page.section(translate("Tour", "Read the scan"));
  ReadingNotes notes;
  Time watch = Time::currentTime();
  const double scale = Kyr::uLength.from(1.0, options.unit);
  Mesh mesh = readScan(options.scan, scale, log, notes);
  const double seconds = watch.elapsed();
  const qint64 size = QFileInfo(options.scan).size();
  page.row(translate("Tour", "file"), QFileInfo(options.scan).fileName());
  page.row(translate("Tour", "holds"),
           counted(static_cast<qint64>(mesh.points.size()), Things::point) + ", " +
               counted(static_cast<qint64>(mesh.triangles.size()), Things::triangle));
  page.row(translate("Tour", "text"),
           translate("Tour", "%1, %2, read %3")
               .arg(bytes(size), counted(notes.lines, Things::line), speed(size, seconds)));
  log << translate("Tour", "read %1, %2 of them without geometry")
             .arg(counted(notes.lines, Things::dataLine), counted(notes.ignoredLines))
      << Kyr::END_LOG;
  if (mesh.triangles.empty()) {
    throw Kyr::Exception(translate("Tour", "%1 holds no surface").arg(options.scan));
  }
  if (options.copies > 1) {
    mesh = repeated(mesh, options.copies);
    page.row(translate("Tour", "repeated"),
             translate("Tour", "%1 times, side by side: %2")
                 .arg(counted(options.copies),
                      counted(static_cast<qint64>(mesh.points.size()), Things::point)));
  }
  return mesh;
}

void showMeasures(const Options& options, const Mesh& mesh, Page& page, Kyr::ErrorLog& log) {
  page.section(translate("Tour", "Measure it (one unit of the file is 1 %1)")
                   .arg(Kyr::uLength.getUName(options.unit)));
  const Measures measures = measure(mesh);
  if (!std::isfinite(measures.area) || !std::isfinite(measures.volume)) {
    throw Kyr::Exception(translate("Tour", "%1 is too large to be measured").arg(options.scan));
  }
  const std::vector<Unit::Units_t> lengths = {Unit::Millimetre, Unit::Micrometre, Unit::Inch,
                                              Unit::Mil};
  showUnits(page, {translate("Tour", "width"), measures.extent[0], &Kyr::uLength, lengths});
  showUnits(page, {translate("Tour", "height"), measures.extent[1], &Kyr::uLength, lengths});
  showUnits(page, {translate("Tour", "depth"), measures.extent[2], &Kyr::uLength, lengths});
  showUnits(page, {translate("Tour", "surface"),
                   measures.area,
                   &Kyr::uArea,
                   {Unit::SquareMillimetre, Unit::SquareInch, Unit::SquareMil}});
  showUnits(page, {translate("Tour", "volume"),
                   measures.volume,
                   &Kyr::uVolume,
                   {Unit::CubicMillimetre, Unit::CubicInch, Unit::Litre}});
  if (measures.openEdges > 0) {
    log << translate("Tour", "the surface has %1; its volume is closed over the middle")
               .arg(counted(static_cast<qint64>(measures.openEdges), Things::openEdge))
        << Kyr::END_LOG;
  }
}

void showCost(Page& page, const Analysis& analysis, const Cost& cost) {
  page.row(translate("Tour", "jobs"), counted(static_cast<qint64>(analysis.jobs)));
  page.row(translate("Tour", "time"),
           translate("Tour", "%1 s of computing in %2 s: %3 processors busy")
               .arg(fixed(cost.userSeconds, 3), fixed(cost.wallSeconds, 3),
                    fixed(cost.userSeconds / std::max(cost.wallSeconds, 0.001), 1)));
}

void showCurvature(Page& page, const CurvatureStatistics& statistics) {
  const std::vector<Unit::Units_t> units = {Unit::PerMillimetre, Unit::PerMetre, Unit::PerInch};
  showUnits(page, {translate("Tour", "mean curvature"), statistics.mean, &Kyr::uCurvature, units});
  showUnits(page, {translate("Tour", "lowest"), statistics.lowest, &Kyr::uCurvature, units});
  showUnits(page, {translate("Tour", "5% lie below"), statistics.low, &Kyr::uCurvature, units});
  showUnits(page, {translate("Tour", "median"), statistics.median, &Kyr::uCurvature, units});
  showUnits(page, {translate("Tour", "5% lie above"), statistics.high, &Kyr::uCurvature, units});
  showUnits(page, {translate("Tour", "highest"), statistics.highest, &Kyr::uCurvature, units});
}

void showAnalysis(const Options& options, const Mesh& mesh, Page& page, Kyr::ErrorLog& log) {
  page.section(translate("Tour", "Analyse it on %1")
                   .arg(counted(numberOfWorkers(options.analysis), Things::worker)));
  Cost cost;
  const Analysis analysis = analyseVisibly(mesh, options.analysis, page, cost);
  const CurvatureStatistics statistics = curvatureStatistics(analysis.curvature);
  page.row(translate("Tour", "curvatures"), counted(static_cast<qint64>(statistics.defined)));
  showCost(page, analysis, cost);
  showCurvature(page, statistics);
  if (statistics.undefined > 0) {
    log << translate("Tour", "%1 without a curvature: no triangle of any area")
               .arg(counted(static_cast<qint64>(statistics.undefined), Things::point))
        << Kyr::END_LOG;
  }
}

/// Writes the project, reads it back and compares.
bool store(const Options& options, const QString& project, const Mesh& mesh, Page& page,
           Kyr::ErrorLog& log) {
  page.section(translate("Tour", "Keep it in a project file"));
  const std::vector<char> content = toBytes(mesh);
  const auto size = static_cast<qint64>(content.size());
  Time watch = Time::currentTime();
  writeProject(project, content);
  const double writing = watch.restart();
  log << translate("Tour", "wrote %1").arg(project) << Kyr::END_LOG;
  const Reading back = readProject(project);
  const double reading = watch.elapsed();
  const qint64 packed = QFileInfo(project).size();
  const bool same = back.problem.isEmpty() && back.content == content;
  page.row(translate("Tour", "file"), project);
  page.row(translate("Tour", "time of writing"), back.written);
  page.row(translate("Tour", "text"), bytes(QFileInfo(options.scan).size()));
  page.row(translate("Tour", "content"), bytes(size));
  page.row(translate("Tour", "packed"),
           translate("Tour", "%1, %2% of the content")
               .arg(bytes(packed),
                    fixed(100.0 * static_cast<double>(packed) / static_cast<double>(size), 1)));
  page.row(
      translate("Tour", "speed"),
      translate("Tour", "written %1, read %2").arg(speed(size, writing), speed(size, reading)));
  page.row(translate("Tour", "compared"),
           same ? translate("Tour", "all %1 equal").arg(bytes(size))
                : translate("Tour", "DIFFERENT: %1").arg(back.problem));
  return same;
}

bool tour(const Options& options, Kyr::ErrorLog& log) {
  Page page;
  page.title(translate("Tour", "libKyr %1: a scan from text to a project file and back")
                 .arg(Kyr::libraryVersion()));
  const Mesh mesh = read(options, page, log);
  showMeasures(options, mesh, page, log);
  showAnalysis(options, mesh, page, log);
  const QString project = options.project();
  const bool same = store(options, project, mesh, page, log);
  page.section(translate("Tour", "What damage looks like (on copies)"));
  const bool refused = showDamage(project, page);
  log << (refused ? translate("Tour", "no damaged copy was taken for good data")
                  : translate("Tour", "A DAMAGED COPY WAS TAKEN FOR GOOD"))
      << Kyr::END_LOG;
  page.section(translate("Tour", "Log"));
  for (const QString& message : log.getLog().split('\n')) {
    page.text(message);
  }
  page.section(translate("Tour", "Pack it all"));
  packArchive(options, log, page);
  page.end(same && refused ? translate("Tour", "Everything held.")
                           : translate("Tour", "SOMETHING DID NOT HOLD."));
  return same && refused;
}

/// Runs the tour to its end; a failure comes on standard error, behind the log so far.
int run(const Options& options) {
  Kyr::ErrorLog log(true);
  const auto fail = [&log](int code, const QString& problem) {
    std::fflush(stdout);
    const QString text = log.isLog() ? log.getLog() + '\n' : QString();
    std::fprintf(stderr, "%stour: %s\n", encoded(text).constData(), encoded(problem).constData());
    return code;
  };
  try {
    const bool held = tour(options, log);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
      throw Kyr::Exception(translate("Tour", "cannot write to standard output"));
    }
    return held ? 0 : 1;
  } catch (const Aborted& aborted) {
    return fail(3, translate("Tour", "%1; nothing is half written").arg(aborted.getText()));
  } catch (const Kyr::Exception& failure) {
    return fail(1, failure.getText());
  } catch (const std::exception& failure) {
    return fail(1, translate("Tour", "out of memory (%1)").arg(failure.what()));
  }
}

}  // namespace

int main(int argc, char** argv) {
  keepStandardStreams();
  const QCoreApplication application(argc, argv);
  prepareStandardStreams();
  const Session session(Kyr::ApplicationInspection);
  const Options options = parseArguments(session.arguments());
  const Kyr::InterruptWatch watch;  // sets the abort flag of the progress
  return run(options);
}

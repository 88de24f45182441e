#include "scan.h"

#include "surface/abort.h"
#include "surface/project.h"
#include "surface/words.h"

#include <kyr/core/KyrException.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/jobs/KyrProgress.h>
#include <kyr/log/KyrErrorLog.h>

#include <QFileInfo>

#include <algorithm>
#include <cmath>
#include <limits>
#include <new>

namespace Viewer {

namespace {

using Kyr::Progress;
using Kyr::translate;
using Surface::Analysis;
using Surface::Mesh;
using Surface::Point;

// Where the steps of loading end on the scale of the progress.
constexpr int afterReading = 25;
constexpr int afterMeasuring = 35;
constexpr int afterAnalysis = 90;

constexpr std::size_t histogramParts = 64;
constexpr std::size_t stride = 65536;  // elements between two looks at the abort flag

/// A value in single precision; one beyond its range becomes the end of the range.
float single(double value) {
  constexpr double most = std::numeric_limits<float>::max();
  return static_cast<float>(std::isnan(value) ? value : std::clamp(value, -most, most));
}

Vector vector(const Point& point) {
  return {single(point[0]), single(point[1]), single(point[2])};
}

struct Box {
  Point least{};
  Point most{};
};

Box boxOf(const Mesh& mesh) {
  Box box = {mesh.points.front(), mesh.points.front()};
  for (const Point& point : mesh.points) {
    for (std::size_t i = 0; i < point.size(); ++i) {
      box.least[i] = std::min(box.least[i], point[i]);
      box.most[i] = std::max(box.most[i], point[i]);
    }
  }
  return box;
}

/// Brings a mesh to the size and place that the picture wants.
std::shared_ptr<const Model> modelOf(Mesh& mesh, const Analysis& analysis) {
  const Box box = boxOf(mesh);
  const Point middle = Surface::scaled(Surface::sum(box.least, box.most), 0.5);
  const Point diagonal = Surface::difference(box.most, middle);
  const double radius = std::sqrt(Surface::dot(diagonal, diagonal));
  const double scale = radius > 0 ? 1 / radius : 1;
  const std::size_t count = mesh.points.size();
  auto model = std::make_shared<Model>();
  model->points.reserve(count);
  model->normals.reserve(count);
  model->values.reserve(count);
  for (std::size_t i = 0; i < count; ++i) {
    if (i % stride == 0) {
      Surface::stopIfAborted();
    }
    model->points.push_back(
        vector(Surface::scaled(Surface::difference(mesh.points[i], middle), scale)));
    model->normals.push_back(vector(analysis.normals[i]));
    model->values.push_back(single(analysis.curvature[i]));
  }
  model->triangles = std::move(mesh.triangles);
  return model;
}

std::vector<double> definedOnly(const std::vector<double>& values) {
  std::vector<double> defined;
  defined.reserve(values.size());
  std::copy_if(values.begin(), values.end(), std::back_inserter(defined),
               [](double value) { return std::isfinite(value); });
  return defined;
}

double quantile(std::vector<double>& values, double part) {
  const auto place = static_cast<std::ptrdiff_t>(part * static_cast<double>(values.size() - 1));
  std::nth_element(values.begin(), values.begin() + place, values.end());
  return values[static_cast<std::size_t>(place)];
}

/// The curvature that gets the last colour: 2 of 100 points on the side with the larger values lie
/// beyond it. With the very largest, which sharp edges and noise make, all else would be
/// colourless.
double rangeOf(std::vector<double> values, double size) {
  constexpr double ignored = 0.02;
  const double flat = size > 0 ? 1e-3 / size : 1;
  if (values.empty()) {
    return flat;
  }
  const double range =
      std::max(std::abs(quantile(values, ignored)), std::abs(quantile(values, 1 - ignored)));
  return std::isfinite(range) ? std::max(range, flat) : flat;
}

std::vector<std::size_t> histogramOf(const std::vector<double>& values, double range) {
  std::vector<std::size_t> histogram(histogramParts);
  for (const double value : values) {
    if (std::abs(value) < range) {
      const double part = (value / range + 1) / 2 * static_cast<double>(histogramParts);
      ++histogram[std::min(static_cast<std::size_t>(part), histogramParts - 1)];
    }
  }
  return histogram;
}

QString originOf(const QString& path) {
  const QFileInfo file(path);
  const bool isProject = file.suffix().compare("kyr", Qt::CaseInsensitive) == 0;
  return (isProject ? translate("Viewer", "Project, %1") : translate("Viewer", "Scan, %1"))
      .arg(Surface::bytes(file.size()));
}

Mesh read(const Source& source, QString& remarks) {
  const QString name = QFileInfo(source.path).fileName();
  Progress::setProgressString(translate("Viewer", "Reading %1").arg(name), true);
  Kyr::ErrorLog log(true);
  Surface::ReadingNotes notes;
  Mesh mesh = Surface::readSurface(source.path, source.millimetresPerUnit, log, notes);
  remarks = log.getLog();
  if (source.copies > 1) {
    mesh = Surface::repeated(mesh, source.copies);
  }
  Progress::setProgress(0, 100, afterReading);
  return mesh;
}

void measure(const Mesh& mesh, Scan& scan) {
  Progress::setProgressString(translate("Viewer", "Measuring"), true);
  scan.points = mesh.points.size();
  scan.triangles = mesh.triangles.size();
  scan.measures = Surface::measure(mesh);
  const Point& extent = scan.measures.extent;
  if (!std::isfinite(scan.measures.area) || !std::isfinite(scan.measures.volume) ||
      !std::isfinite(extent[0] + extent[1] + extent[2])) {
    throw Kyr::Exception(translate("Viewer", "the scan is too large to be measured"));
  }
  Progress::setProgress(0, 100, afterMeasuring);
}

std::shared_ptr<const Scan> load(const Source& source) {
  auto scan = std::make_shared<Scan>();
  scan->path = source.path;
  scan->origin = originOf(source.path);
  Mesh mesh = read(source, scan->remarks);
  measure(mesh, *scan);
  Surface::AnalysisOptions options;
  options.progressMin = afterMeasuring;
  options.progressMax = afterAnalysis;
  const Analysis analysis = Surface::analyse(mesh, options);
  Progress::setProgress(0, 100, afterAnalysis);
  Progress::setProgressString(translate("Viewer", "Preparing the picture"), true);
  scan->curvature = Surface::curvatureStatistics(analysis.curvature);
  Surface::stopIfAborted();
  const std::vector<double> defined = definedOnly(analysis.curvature);
  const Point& extent = scan->measures.extent;
  scan->range = rangeOf(defined, std::max({extent[0], extent[1], extent[2]}));
  scan->histogram = histogramOf(defined, scan->range);
  scan->model = modelOf(mesh, analysis);
  Surface::stopIfAborted();
  Progress::setProgress(0, 100, 100);
  return scan;
}

}  // namespace

Loading::Loading(const Source& source)
    : Thread(NoLockGUI, "Viewer::Loading::Loading", "scan", 1), _source(source) {}

bool Loading::begin() {
  start();
  const bool begun = isRunning() || isFinished();
  if (!begun) {
    _problem = translate("Viewer", "the system starts no thread for it");
  }
  return begun;
}

void Loading::run() {
  try {
    _scan = load(_source);
    _outcome = Outcome::Loaded;
  } catch (const Surface::Aborted&) {
    _outcome = Outcome::Aborted;
  } catch (const Kyr::Exception& failure) {
    _problem = failure.getText();
  } catch (const std::bad_alloc&) {
    _problem = translate("Viewer", "there is not enough memory for this scan");
  }
}

}  // namespace Viewer

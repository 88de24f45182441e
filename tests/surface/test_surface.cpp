#include "support/Support.h"
#include "surface/abort.h"
#include "surface/analysis.h"
#include "surface/mesh.h"
#include "surface/project.h"

#include <gtest/gtest.h>

#include <kyr/jobs/KyrGUIThreadEvent.h>
#include <kyr/jobs/KyrProgress.h>

#include <QDir>
#include <QFile>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <map>
#include <utility>

namespace {

using namespace Surface;
using Kyr::Progress;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double inf = std::numeric_limits<double>::infinity();

/// A net of points in rows, whose cells are cut in two.
Mesh net(unsigned rows, unsigned columns, const std::function<Point(double, double)>& place) {
  Mesh mesh;
  for (unsigned row = 0; row <= rows; ++row) {
    for (unsigned column = 0; column <= columns; ++column) {
      mesh.points.push_back(place(double(row) / rows, double(column) / columns));
    }
  }
  for (unsigned corner = 0; corner < rows * (columns + 1); ++corner) {
    const unsigned above = corner + columns + 1;
    if (corner % (columns + 1) != columns) {
      mesh.triangles.push_back({corner, above, above + 1});
      mesh.triangles.push_back({corner, above + 1, corner + 1});
    }
  }
  return mesh;
}

/// A closed sphere from an octahedron whose triangles are cut in four again and again; its
/// points are in no order of places. A negative radius turns it inside out.
Mesh sphere(double radius, int cuts) {
  Mesh mesh{
      {{1, 0, 0}, {-1, 0, 0}, {0, 1, 0}, {0, -1, 0}, {0, 0, 1}, {0, 0, -1}},
      {{0, 2, 4}, {2, 1, 4}, {1, 3, 4}, {3, 0, 4}, {2, 0, 5}, {1, 2, 5}, {3, 1, 5}, {0, 3, 5}}};
  for (int cut = 0; cut < cuts; ++cut) {
    std::map<std::pair<std::uint32_t, std::uint32_t>, std::uint32_t> middles;
    const auto middle = [&](std::uint32_t a, std::uint32_t b) {
      const auto found = middles.insert({std::minmax(a, b), std::uint32_t(mesh.points.size())});
      if (found.second) {
        const Point between = sum(mesh.points[a], mesh.points[b]);
        mesh.points.push_back(scaled(between, 1 / std::sqrt(dot(between, between))));
      }
      return found.first->second;
    };
    for (const Triangle& t : std::exchange(mesh.triangles, {})) {
      const Triangle m = {middle(t[0], t[1]), middle(t[1], t[2]), middle(t[2], t[0])};
      mesh.triangles.insert(mesh.triangles.end(),
                            {m, {t[0], m[0], m[2]}, {t[1], m[1], m[0]}, {t[2], m[2], m[1]}});
    }
  }
  for (Point& point : mesh.points) {
    point = scaled(point, radius);
  }
  return mesh;
}

TEST(Analysis, FindsTheCurvatureOfKnownShapes) {
  struct Row {
    Mesh mesh;
    double curvature;
    unsigned passes;
    bool rim;  // whether it has a bent one, where curvatures are too small
    const char* fault;
  };
  const auto plane = [](double u, double v) -> Point { return {u, v, u + 2 * v}; };
  const auto cylinder = [](double u, double v) -> Point {
    return {3 * std::cos(v * 3), 3 * std::sin(v * 3), -9 * u};
  };
  const Row rows[] = {
      {sphere(2, 5), 0.5, 2, false, "a factor that is missing"},
      {sphere(2, 5), 0.5, 0, false, "a need for smoothing"},
      {sphere(2, 5), 0.5, 7, false, "smoothing that bends the surface, or an odd number of passes"},
      {sphere(-1000, 5), -0.001, 2, false, "a hollow taken for a hill; a scale"},
      {net(60, 90, cylinder), 1.0 / 6, 2, true, "only one of both directions counted"},
      {net(60, 90, plane), 0, 2, false, "curvature made by the slope or the edge"},
  };
  for (const Row& row : rows) {
    AnalysisOptions options;
    options.smoothingPasses = row.passes;
    const Analysis result = analyse(row.mesh, options);
    const CurvatureStatistics spread = curvatureStatistics(result.curvature);
    EXPECT_EQ(spread.defined, row.mesh.points.size()) << row.fault;
    const double tolerance = std::abs(row.curvature) * 0.02 + 1e-12;
    EXPECT_NEAR(spread.median, row.curvature, tolerance) << row.fault;
    EXPECT_NEAR(row.rim ? row.curvature : spread.lowest, row.curvature, tolerance) << row.fault;
    EXPECT_NEAR(row.rim ? row.curvature : spread.highest, row.curvature, tolerance) << row.fault;
    for (const Point& normal : result.normals) {
      ASSERT_NEAR(dot(normal, normal), 1, 1e-12) << row.fault;
    }
  }
  const Mesh ball = sphere(2, 3);
  EXPECT_GT(dot(analyse(ball).normals.back(), ball.points.back()), 1.99) << "turned inwards";
}

TEST(Analysis, SmoothsMoreWithEachPass) {
  const Mesh rough = net(60, 90, [](double u, double v) -> Point {
    return {u, v, 0.001 * std::sin(u * 1e4) * std::cos(v * 3e4)};
  });
  double before = inf;
  for (const unsigned passes : {0U, 1U, 2U, 3U, 4U}) {
    AnalysisOptions options;
    options.smoothingPasses = passes;
    const CurvatureStatistics spread = curvatureStatistics(analyse(rough, options).curvature);
    EXPECT_LT(spread.high - spread.low, 0.9 * before) << "lost: pass " << passes;
    before = spread.high - spread.low;
  }
}

TEST(Analysis, TakesAnyTriangles) {
  struct Row {
    std::vector<Point> points;
    std::vector<Triangle> triangles;
    std::size_t defined;
    const char* fault;
  };
  const std::vector<Point> square = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
  const auto with = [&square](const Point& point) {
    std::vector<Point> points = square;
    points.push_back(point);
    return points;
  };
  const Row rows[] = {
      {{}, {}, 0, "an empty mesh"},
      {square, {}, 0, "points without any triangle"},
      {square, {{0, 1, 2}}, 3, "an isolated point"},
      {square, {{0, 1, 1}, {2, 2, 2}}, 0, "corners that are the same"},
      {{{0, 0, 0}, {1, 1, 1}, {3, 3, 3}}, {{0, 1, 2}}, 0, "corners in a line"},
      {{{0, 0, 0}, {0.1, 0.3, 0.7}, {0.3, 0.9, 2.1}}, {{0, 1, 2}}, 0, "a line but for rounding"},
      {with({nan, 0, 0}), {{0, 1, 2}, {0, 2, 3}, {2, 3, 4}}, 4, "a point that is no place"},
      {with({0, inf, 0}), {{0, 1, 2}, {0, 2, 3}, {2, 3, 4}}, 4, "a point at infinity"},
      {with({1e200, 9e199, 0}), {{0, 1, 2}, {0, 2, 3}, {2, 3, 4}}, 4, "an area beyond numbers"},
      {with({0, 0, 1}), {{0, 1, 2}, {0, 1, 3}, {0, 1, 4}}, 5, "an edge with three sides"},
      {square, {{0, 1, 2}, {2, 1, 0}}, 0, "two sides of one sheet, which have no outside"},
      {square, {{0, 1, 2}, {0, 1, 2}, {0, 2, 3}}, 4, "a triangle that comes twice"},
  };
  for (const Row& row : rows) {
    const Analysis result = analyse({row.points, row.triangles});
    ASSERT_EQ(result.curvature.size(), row.points.size()) << row.fault;
    EXPECT_EQ(curvatureStatistics(result.curvature).defined, row.defined) << row.fault;
    for (std::size_t i = 0; i < row.points.size(); ++i) {
      const double length = dot(result.normals[i], result.normals[i]);
      EXPECT_NEAR(length, std::isnan(result.curvature[i]) ? 0 : 1, 1e-12) << row.fault;
      EXPECT_FALSE(std::isinf(result.curvature[i])) << row.fault;
    }
  }
}

/// Many chunks, of which each is a neighbour of the one before and the one behind it.
Mesh manyChunks() {
  return net(200, 200, [](double u, double v) -> Point { return {u, v, u * u + v * v * v}; });
}

TEST(Analysis, IsTheSameWithAnyNumberOfWorkers) {
  for (const Mesh& mesh : {manyChunks(), sphere(5, 6)}) {
    AnalysisOptions options;
    options.smoothingPasses = 9;
    options.workers = 1;
    const Analysis alone = analyse(mesh, options);
    options.workers = 4;
    for (int again = 0; again < 5; ++again) {
      const Analysis together = analyse(mesh, options);
      EXPECT_EQ(together.curvature, alone.curvature) << "a job that did not wait for another";
      EXPECT_EQ(together.normals, alone.normals);
      EXPECT_EQ(together.jobs, alone.jobs);
    }
  }
}

/// Sees every event at the place where it is made, and makes none.
class Watcher : public Kyr::GUIThreadEventCreator {
 public:
  explicit Watcher(QString abortAt) : _abortAt(std::move(abortAt)) {
    Progress::reset();
    Progress::setAbortFlag(false);
    Progress::registerGUIEventCreator(this);
    Progress::setEventReceiver(&_receiver);
    Progress::setCreateGUIEvents(true);
  }
  ~Watcher() override {
    Progress::setCreateGUIEvents(false);
    Progress::setEventReceiver(nullptr);
    Progress::deregisterGUIEventCreator(this);
    Progress::setAbortFlag(false);
  }
  Kyr::GUIThreadEvent* createEvent() override {
    const Progress::State state = Progress::getState();
    percents.push_back(state.overall);
    if (texts.isEmpty() || texts.last() != state.text) {
      texts << state.text;
    }
    Progress::setAbortFlag(state.text == _abortAt);
    return nullptr;
  }
  std::vector<int> percents;
  QStringList texts;

 private:
  const QString _abortAt;
  QObject _receiver;
};

const QStringList texts = {"Sorting the corners of triangles", "Finding neighbours and normals",
                           "Smoothing normals", "Computing curvatures"};

TEST(Analysis, MovesTheProgressForward) {
  const Mesh mesh = manyChunks();
  Watcher watcher("");
  AnalysisOptions options;
  options.workers = 3;
  options.progressMin = 20;
  options.progressMax = 70;
  analyse(mesh, options);
  EXPECT_EQ(watcher.texts, texts);
  EXPECT_TRUE(std::is_sorted(watcher.percents.begin(), watcher.percents.end()));
  EXPECT_EQ(watcher.percents.front(), 0);
  EXPECT_EQ(watcher.percents.back(), 70);
  EXPECT_EQ(Progress::getProgress(), 100U);
  EXPECT_GE(watcher.percents.size(), 20U) << "a bar that jumps";
  Progress::addProgressSteps(1);
  EXPECT_EQ(Progress::getProgress(), 100U) << "a division that outlives the analysis";
}

TEST(Analysis, StopsInEveryPass) {
  const Mesh mesh = manyChunks();
  AnalysisOptions options;
  options.workers = 3;
  options.smoothingPasses = 100000;
  for (const QString& text : texts) {
    if (text == texts.last()) {
      options.smoothingPasses = 1;
    }
    Watcher watcher(text);
    EXPECT_THROW(analyse(mesh, options), Aborted) << text.toStdString();
    EXPECT_EQ(watcher.texts.last(), text);
    EXPECT_LT(Progress::getProgress(), 100U) << "an unfinished pass that looks finished";
  }
}

std::vector<char> changed(std::vector<char> bytes, std::size_t place, const QByteArray& by) {
  std::copy(by.begin(), by.end(), bytes.begin() + std::ptrdiff_t(place));
  return bytes;
}

TEST(Project, RefusesContentThatIsNoMesh) {
  const Mesh mesh{{{1, -2, 0.1}, {3, 4, 5}, {1e-300, 0, 7}}, {{0, 1, 2}, {2, 1, 0}}};
  const std::vector<char> good = toBytes(mesh);
  EXPECT_EQ(fromBytes(good).points, mesh.points);
  EXPECT_EQ(fromBytes(good).triangles, mesh.triangles);
  struct Row {
    std::vector<char> bytes;
    const char* fault;
  };
  const Row rows[] = {
      {{}, "nothing at all"},
      {{good.begin(), good.begin() + 15}, "counts cut short"},
      {{good.begin(), good.end() - 1}, "a byte too few"},
      {{good.begin(), good.end() - 12}, "a triangle too few"},
      {changed(good, 0, "\xff\xff\xff\xff\xff\xff\xff\xff"), "a hostile count of points"},
      {changed(good, 8, "\xff\xff\xff\xff\xff\xff\xff\xff"), "a hostile count of triangles"},
      {changed(good, 7, "\x20"), "a count whose product with the size fits again"},
      {changed(good, 16 + 6, "\xf0\x7f"), "a coordinate that is infinite"},
      {changed(good, good.size() - 4, "\x03"), "a corner without a point"},
  };
  for (const Row& row : rows) {
    EXPECT_THROW(fromBytes(row.bytes), Kyr::Exception) << row.fault;
  }
}

TEST(Project, IsReadAsASurfaceLikeAScan) {
  const KyrTest::TempDir directory;
  const Mesh mesh{{{0, 0, 0}, {2, 0, 0}, {0, 2, 0}}, {{0, 1, 2}}};
  const QByteArray scan = "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n";
  Kyr::ErrorLog log;
  ReadingNotes notes;
  const auto read = [&](const QString& name) { return readSurface(name, 2, log, notes).points; };
  writeProject(directory.file("mesh.any"), toBytes(mesh));
  EXPECT_EQ(read(directory.file("mesh.any")), mesh.points) << "a project told by its name alone";
  EXPECT_EQ(read(directory.write("mesh.obj", scan)), mesh.points);
  EXPECT_THROW(read(directory.write("damaged.kyr", scan)), Kyr::Exception);
  EXPECT_THROW(read(directory.write("empty.obj", "v 1 2 3\n")), Kyr::Exception);
  EXPECT_THROW(read(directory.file("missing")), Kyr::Exception);
  Progress::setAbortFlag(true);
  EXPECT_THROW(writeProject(directory.file("mesh.any"), {'x'}), Aborted);
  EXPECT_THROW(read(directory.file("mesh.any")), Aborted);
  Progress::setAbortFlag(false);
  EXPECT_EQ(read(directory.file("mesh.any")), mesh.points) << "an aborted writer took it away";
  EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files | QDir::Hidden).size(), 4)
      << "what it had begun is left behind";
}

TEST(Mesh, IsRepeatedSideBySide) {
  const Mesh mesh{{{-1, 0, 0}, {1, 0, 0}, {0, 2, 0}}, {{0, 1, 2}}};
  const Mesh three = repeated(mesh, 3);
  EXPECT_EQ(three.triangles.back(), (Triangle{6, 7, 8}));
  EXPECT_GT(three.points[3][0], mesh.points[1][0]) << "copies that overlap";
  EXPECT_EQ(three.points[8][1], 2);
  EXPECT_THROW(repeated(mesh, 2000000000), Kyr::Exception) << "indices that start again at 0";
}

}  // namespace

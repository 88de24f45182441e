#include "support/Support.h"
#include "surface/abort.h"
#include "surface/analysis.h"
#include "surface/mesh.h"
#include "surface/project.h"

#include <kyr/jobs/KyrProgress.h>

namespace {

using namespace Surface;
using Kyr::Progress;

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

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

/// A sphere without its poles. A negative radius turns it inside out.
Mesh sphere(double radius, unsigned steps) {
  return net(steps, 2 * steps, [radius](double u, double v) -> Point {
    const double width = radius * std::sin(1 + u), angle = 3 * v;
    return {width * std::cos(angle), width * std::sin(angle), radius * std::cos(1 + u)};
  });
}

TEST(Analysis, FindsTheCurvatureOfKnownShapes) {
  const auto plane = [](double u, double v) -> Point { return {u, v, u + 2 * v}; };
  const auto cylinder = [](double u, double v) -> Point {
    return {3 * std::cos(v * 3), 3 * std::sin(v * 3), -9 * u};
  };
  const std::tuple<Mesh, double, unsigned, const char*> rows[] = {
      {sphere(2, 40), 0.5, 2, "a factor that is missing"},
      {sphere(2, 40), 0.5, 0, "a need for smoothing"},
      {sphere(2, 40), 0.5, 7, "smoothing that bends the surface, or an odd number of passes"},
      {sphere(-1000, 40), -0.001, 2, "a hollow taken for a hill; a scale"},
      {net(60, 90, cylinder), 1.0 / 6, 2, "only one of both directions counted"},
      {net(60, 90, plane), 0, 2, "curvature made by the slope or the edge"},
  };
  for (const auto& [mesh, curvature, passes, fault] : rows) {
    AnalysisOptions options;
    options.smoothingPasses = passes;
    const Analysis result = analyse(mesh, options);
    const CurvatureStatistics spread = curvatureStatistics(result.curvature);
    EXPECT_EQ(spread.defined, mesh.points.size()) << fault;
    EXPECT_NEAR(spread.median, curvature, std::abs(curvature) * 0.02 + 1e-12) << fault;
    EXPECT_TRUE(curvature != 0 || spread.highest - spread.lowest < 1e-12) << fault;
    for (const Point& normal : result.normals) {
      ASSERT_NEAR(dot(normal, normal), 1, 1e-12) << fault;
    }
  }
  const Mesh ball = sphere(2, 10);
  EXPECT_GT(dot(analyse(ball).normals[200], ball.points[200]), 1.99) << "turned inwards";
}

TEST(Analysis, TakesAnyTriangles) {
  const std::vector<Point> square = {{0, 0, 0}, {1, 0, 0}, {1, 1, 0}, {0, 1, 0}};
  const auto with = [&square](const Point& point) {
    std::vector<Point> points = square;
    points.push_back(point);
    return points;
  };
  const std::tuple<std::vector<Point>, std::vector<Triangle>, std::size_t, const char*> rows[] = {
      {square, {{0, 1, 2}}, 3, "an isolated point"},
      {square, {{0, 1, 1}, {2, 2, 2}}, 0, "corners that are the same"},
      {with({nan, 0, 0}), {{0, 1, 2}, {0, 2, 3}, {2, 3, 4}}, 4, "a point that is no place"},
      {with({1e200, 9e199, 0}), {{0, 1, 2}, {0, 2, 3}, {2, 3, 4}}, 4, "an area beyond numbers"},
      {with({0, 0, 1}), {{0, 1, 2}, {0, 1, 3}, {0, 1, 4}}, 5, "an edge with three sides"},
      {square, {{0, 1, 2}, {0, 1, 2}, {0, 2, 3}}, 4, "a triangle that comes twice"},
  };
  for (const auto& [points, triangles, defined, fault] : rows) {
    const Analysis result = analyse({points, triangles});
    ASSERT_EQ(result.curvature.size(), points.size()) << fault;
    EXPECT_EQ(curvatureStatistics(result.curvature).defined, defined) << fault;
    for (std::size_t i = 0; i < points.size(); ++i) {
      const double length = dot(result.normals[i], result.normals[i]);
      EXPECT_NEAR(length, std::isnan(result.curvature[i]) ? 0 : 1, 1e-12) << fault;
      EXPECT_FALSE(std::isinf(result.curvature[i])) << fault;
    }
  }
}

TEST(Analysis, IsTheSameWithAnyNumberOfWorkers) {
  const auto bent = [](double u, double v) -> Point { return {u, v, u * u + v * v * v}; };
  for (const Mesh& mesh : {net(200, 200, bent), sphere(5, 90)}) {  // of many chunks
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

std::vector<char> changed(std::vector<char> bytes, std::size_t place, const QByteArray& by) {
  std::copy(by.begin(), by.end(), bytes.begin() + std::ptrdiff_t(place));
  return bytes;
}

TEST(Project, RefusesContentThatIsNoMesh) {
  const Mesh mesh{{{1, -2, 0.1}, {3, 4, 5}, {1e-300, 0, 7}}, {{0, 1, 2}, {2, 1, 0}}};
  const std::vector<char> good = toBytes(mesh);
  EXPECT_EQ(fromBytes(good).points, mesh.points);
  EXPECT_EQ(fromBytes(good).triangles, mesh.triangles);
  const std::pair<std::vector<char>, const char*> rows[] = {
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
  for (const auto& [bytes, fault] : rows) {
    EXPECT_THROW(fromBytes(bytes), Kyr::Exception) << fault;
  }
}

TEST(Project, IsReadWithoutWhatIsLost) {
  const Mesh mesh{{{1, 0, 0}, {2, 0, 0}, {3, 0, 0}, {4, 0, 0}}, {{0, 2, 3}, {0, 1, 2}, {3, 2, 0}}};
  const std::vector<char> content = toBytes(mesh);
  const std::size_t first = 16, second = 40, third = 64, triangles = 112;
  const struct {
    std::vector<Gap> gaps;
    std::vector<double> points;  // their first coordinates
    std::vector<Triangle> triangles;
    const char* fault;
  } rows[] = {
      {{}, {1, 2, 3, 4}, {{0, 2, 3}, {0, 1, 2}, {3, 2, 0}}, "nothing is lost"},
      {{{second, third}}, {1, 3, 4}, {{0, 1, 2}, {2, 1, 0}}, "the corners count on"},
      {{{first + 23, second}}, {2, 3, 4}, {}, "one byte of a point that all need"},
      {{{triangles + 12, triangles + 13}}, {1, 2, 3, 4}, {{0, 2, 3}, {3, 2, 0}}, "a triangle"},
      {{{second, second + 1}, {triangles + 24, triangles + 36}}, {1, 3, 4}, {{0, 1, 2}}, "both"},
  };
  for (const auto& row : rows) {
    std::vector<char> bytes = content;
    for (const Gap& gap : row.gaps) {  // no number, no point
      std::fill(bytes.begin() + int(gap.begin), bytes.begin() + int(gap.end), '\xFF');
    }
    const Rest rest = restFromBytes(bytes, row.gaps);
    std::vector<double> points;
    for (const Point& point : rest.mesh.points) {
      points.push_back(point[0]);
    }
    EXPECT_EQ(points, row.points) << row.fault;
    EXPECT_EQ(rest.mesh.triangles, row.triangles) << row.fault;
    EXPECT_EQ(rest.lostPoints, 4 - row.points.size()) << row.fault;
    EXPECT_EQ(rest.lostTriangles, 3 - row.triangles.size()) << row.fault;
  }
  EXPECT_THROW(restFromBytes(content, {{15, 16}}), Kyr::Exception) << "the counts are lost";
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
  EXPECT_FALSE(log.isLog());
  const Mesh large = repeated(mesh, 20000);
  writeProject(directory.file("mesh.any"), toBytes(large));
  QByteArray bytes = KyrTest::readFile(directory.file("mesh.any"));
  const auto last = bytes.size() - 1000;  // within the triangles
  bytes[last] = char(bytes[last] ^ 1);
  EXPECT_EQ(read(directory.write("mesh.any", bytes)), large.points);
  EXPECT_TRUE(log.getLog().contains("mesh.any: the file is damaged: ") &&
              log.getLog().contains("are good; missing are 0 points and "))
      << log.getLog().toStdString();
  writeProject(directory.file("mesh.any"), toBytes(mesh));
  Progress::setAbortFlag(true);
  EXPECT_THROW(writeProject(directory.file("mesh.any"), {'x'}), Aborted);
  EXPECT_THROW(read(directory.file("mesh.any")), Aborted);
  Progress::setAbortFlag(false);
  EXPECT_EQ(read(directory.file("mesh.any")), mesh.points) << "an aborted writer took it away";
  EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files | QDir::Hidden).size(), 3)
      << "what it had begun is left behind";
}

}  // namespace

#include "support/Support.h"

#include <kyr/pack/KyrZippedTar.h>

#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>

#include <utility>

namespace {

struct Outcome {
  int code = -1;
  QString output;
  QString errors;
};

Outcome tour(const QStringList& arguments, const QString& locale = "C.UTF-8",
             const QByteArray& language = "english") {
  const KyrTest::TempDir settings;
  QDir(settings.path()).mkdir("v6.2.0");
  settings.write("v6.2.0/Inspection_language.dat", "language=" + language);
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert("LC_ALL", locale);
  environment.insert("KYR_CONFIG_DIR", settings.path());
  QProcess process;
  process.setProcessEnvironment(environment);
  process.start(KYR_TOUR, arguments);
  EXPECT_TRUE(process.waitForFinished(60000));
  Outcome run;
  run.code = process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
  run.output = QString::fromUtf8(process.readAllStandardOutput());
  run.errors = QString::fromUtf8(process.readAllStandardError());
  return run;
}

const QByteArray tetrahedron =
    "# corners of a cube of 2\nv 0 0 0\nv 2 0 0\nv 0 2 0\nv 0 0 2\n"
    "f 1 3 2\nf 1/7 2/8/9 4//1\nf 1 4 3\nf -3 -2 -1\n";

TEST(Tour, GoodScansHold) {
  struct Row {
    QByteArray scan;
    QStringList options;
    QString shows;
    const char* fault;
  };
  const Row rows[] = {
      {tetrahedron, {}, "1.333 mm³", "a volume from wrong corners or signs"},
      {tetrahedron, {}, "Everything held.", "a check that fails on good data"},
      {tetrahedron, {"--unit", "in"}, "50.800 mm", "a file's unit that is not applied"},
      {"v 0 0 0\nv 1 0 0\nv 1 1 0\nv 0 1 0\nf 1 2 3 4\n",
       {},
       "4 points, 2 triangles\n",
       "a face of four corners that is not cut"},
      {"v 0 0 0\nv 1 0 0\nv 1 1 0\nf 1 2 3\n", {}, "1 triangle\n", "a plural of one"},
      {"v 0 0 0\nv 3e9 0 0\nv 3e9 1 0\nf 1 2 3\n", {}, "e+08 in\n", "a table wider than the page"},
      {"v 0 0 0\nv 1 0 0\nv 1 1 0\nf 1 2 3\n", {}, "3 open edges", "a hole that goes unnoticed"},
      {tetrahedron, {"--workers", "3"}, "Analyse it on 3 workers\n", "a number of workers ignored"},
      {tetrahedron, {}, "\n   working          Smoothing normals\n", "a silent analysis"},
      {tetrahedron, {"--copies", "5"}, "side by side: 20 points\n", "copies that are not made"},
      {tetrahedron, {"--smoothing", "4"}, "jobs             7\n", "passes that are not made"},
      {"v 0 0 0\nv 1 0 0\nv 1 1 0\nv 5 5 5\nf 1 2 3\n",
       {},
       "1 point without a curvature",
       "a lonely point that goes unnoticed"},
      {"v 0 0 0\nv 4 0 0\nv 4 4 0\nv 0 4 0\nf 1 2 3 4\n",
       {},
       "median                    0.000 / mm",
       "a curvature in a plane"},
      {"scale 3\n" + tetrahedron, {}, "line 1: scale 3", "an unknown key that is swallowed"},
  };
  for (const Row& row : rows) {
    const KyrTest::TempDir directory;
    const QString scan = directory.write("scan.obj", row.scan);
    for (const char* locale : {"C.UTF-8", "de_DE.UTF-8"}) {
      const Outcome run =
          tour(row.options + QStringList{"--output", directory.path(), scan}, locale);
      EXPECT_EQ(run.code, 0) << row.fault << '\n' << run.errors.toStdString();
      EXPECT_TRUE(run.output.contains(row.shows)) << row.fault << '\n' << run.output.toStdString();
      EXPECT_FALSE(run.output.contains('\r')) << "a bar drawn where nobody watches";
    }
  }
}

TEST(Tour, SpeaksTheLanguageOfItsUser) {
  const KyrTest::TempDir directory;
  const QString scan = directory.write("scan.obj", tetrahedron);
  QByteArray content;
  for (const auto& [language, says] : {std::pair("english", "\nEverything held.\n"),
                                       {"german", "\nAlles hat gehalten.\n"},
                                       {"french", "\nTout a tenu.\n"}}) {
    const Outcome run = tour({"--output", directory.path(), scan}, "de_DE.UTF-8", language);
    EXPECT_TRUE(run.output.contains(says)) << run.output.toStdString() << run.errors.toStdString();
    EXPECT_TRUE(run.output.contains("1.333 mm")) << "numbers in another language";
    const QByteArray file = KyrTest::readFile(directory.file("scan.kyr")).mid(104);
    EXPECT_EQ(file, content.isEmpty() ? file : content) << "a project in another language";
    content = file;
  }
}

TEST(Tour, PacksWhatItHadAndMade) {
  const KyrTest::TempDir directory;
  const QString name = QString::fromUtf8("sc\xc3\xa4n") + QString(60, QChar(0x436));
  const QString scan = directory.write(name + ".obj", tetrahedron);
  const QString archive = directory.file("all.tgz");
  for (int twice = 0; twice < 2; ++twice) {
    const Outcome run = tour({"--output", directory.path(), "--archive", archive, scan});
    EXPECT_EQ(run.code, 0) << run.errors.toStdString();
  }
  const QByteArray packed = KyrTest::readFile(archive);
  Kyr::StructVector<unsigned char> bytes;
  bytes.append(reinterpret_cast<const unsigned char*>(packed.constData()),
               static_cast<std::size_t>(packed.size()));
  const Kyr::ZippedTarReader reader(bytes);
  ASSERT_TRUE(reader.isValid() && reader.size() == 3);
  const auto content = [&](unsigned index) {
    const auto& contents = reader.getContents(index);
    return QByteArray(reinterpret_cast<const char*>(contents.data()), int(contents.size()));
  };
  EXPECT_EQ(reader.getName(0), "input/" + name + ".obj");
  EXPECT_EQ(content(0), tetrahedron);
  EXPECT_EQ(reader.getName(1), name + ".kyr");
  EXPECT_EQ(content(1), KyrTest::readFile(directory.file(name + ".kyr")));
  EXPECT_EQ(reader.getName(2), name + ".log");
  EXPECT_TRUE(content(2).startsWith("read 8 data lines")) << content(2).toStdString();
  EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files).size(), 3) << "something is left behind";
  const struct {
    QString archive;
    int code;
    QString says;
    const char* fault;
  } rows[] = {
      {directory.path(), 1, "cannot write", "a folder that is replaced"},
      {directory.file("no/such.tgz"), 1, "no/such.tgz", "a failure that does not say where"},
      {scan, 2, "would replace", "the scan is replaced by its archive"},
      {directory.file(name + ".kyr"), 2, "would replace", "so is the project"},
  };
  for (const auto& row : rows) {
    const Outcome run = tour({"--output", directory.path(), "--archive", row.archive, scan});
    EXPECT_EQ(run.code, row.code) << row.fault;
    EXPECT_TRUE(run.errors.contains(row.says)) << row.fault << run.errors.toStdString();
  }
}

TEST(Tour, BadInputEndsWithItsPlaceAndCode) {
  struct Row {
    QByteArray scan;  // empty for a file that does not exist
    QStringList options;
    int code;
    QString says;
    const char* fault;
  };
  const Row rows[] = {
      {"v 1 2 3\nv 1 2\n", {}, 1, "bad.obj, line 2: v 1 2", "a point that lacks a number"},
      {"v 1 2 nan\n", {}, 1, "bad.obj, line 1", "a coordinate that is no number"},
      {"v 1 2 3 4\nv 5\\", {}, 1, "damaged line: bad.obj, line 2", "cut short in a line"},
      {"v 1 2 3\nf 1 1 2\n", {}, 1, "bad.obj, line 2", "a corner that does not exist"},
      {"v 1 2 3\nf 1 1\n", {}, 1, "bad.obj, line 2", "a face of two corners"},
      {"v 1 2 3\nf 1 1 1x\n", {}, 1, "bad.obj, line 2", "text behind a corner"},
      {"v 1 2 3\n", {}, 1, "holds no surface", "a file without faces taken for a scan"},
      {"v 1e308 0 0\nv -1e308 1e308 0\nv 0 0 1\nf 1 2 3\n", {}, 1, "too large", "measures of nan"},
      {"v 1 2 \x1b[2Jx\n", {}, 1, "v 1 2 ?[2Jx", "a scan that steers the terminal"},
      {"", {}, 1, "cannot open", "a missing file"},
      {tetrahedron, {"--output", "/dev/null"}, 1, "cannot write", "a project that cannot be kept"},
      {tetrahedron, {"--unit", "furlong"}, 2, "furlong", "an unknown unit"},
      {tetrahedron, {"--copies", "0"}, 2, "--copies", "no copy at all"},
      {tetrahedron, {"--workers", "2x"}, 2, "--workers", "text behind a number"},
      {"scale 3\nv 1 2\n", {}, 1, "line 1: scale 3", "a log that is lost with the reading"},
      {tetrahedron, {"--frobnicate"}, 2, "frobnicate", "an unknown option"},
  };
  for (const Row& row : rows) {
    const KyrTest::TempDir directory;
    const QString scan =
        row.scan.isEmpty() ? directory.file("bad.obj") : directory.write("bad.obj", row.scan);
    const Outcome run = tour(row.options + QStringList(scan));
    EXPECT_EQ(run.code, row.code) << row.fault;
    EXPECT_TRUE(run.errors.contains(row.says)) << row.fault << '\n' << run.errors.toStdString();
  }
  EXPECT_EQ(tour({}).code, 2);
  const KyrTest::TempDir directory;
  const QString scan = directory.write("scan.kyr", tetrahedron);
  for (int twice = 0; twice < 2; ++twice) {
    const Outcome run = tour({"--output", directory.path(), scan});
    EXPECT_EQ(run.code, 2) << "the scan is replaced by its project";
  }
}

}  // namespace

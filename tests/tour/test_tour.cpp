#include "support/Support.h"

#include <kyr/pack/KyrZippedTar.h>

namespace {

KyrTest::Ended tour(const QStringList& arguments, const QByteArray& locale = "C.UTF-8",
                    const QByteArray& language = "english") {
  const KyrTest::TempDir settings;
  QDir(settings.path()).mkdir("v6.2.0");
  settings.write("v6.2.0/Inspection_language.dat", "language=" + language);
  const KyrTest::ScopedEnvironment ofUser("LC_ALL", locale);
  const KyrTest::ScopedEnvironment ofSuite("KYR_CONFIG_DIR", settings.path().toUtf8());
  return KyrTest::runProgram(KYR_TOUR, arguments);
}

const QByteArray tetrahedron =
    "# corners of a cube of 2\nv 0 0 0\nv 2 0 0\nv 0 2 0\nv 0 0 2\n"
    "f 1 3 2\nf 1/7 2/8/9 4//1\nf 1 4 3\nf -3 -2 -1\n";

TEST(Tour, GoodScansHold) {
  const QByteArray square = "v 0 0 0\nv 4 0 0\nv 4 4 0\nv 0 4 0\nf 1 2 3 4\n";
  const QByteArray three = "v 0 0 0\nv 1 0 0\nv 1 1 0\n";
  const struct {
    QByteArray scan;
    QByteArray shows;
    const char* fault;
    QStringList options = {};
  } rows[] = {
      {tetrahedron, "1.333 mm³", "a volume from wrong corners or signs"},
      {tetrahedron, "50.800 mm", "a file's unit that is not applied", {"--unit", "in"}},
      {square, "4 points, 2 triangles\n", "a face of four corners that is not cut"},
      {"v 0 0 0\nv 3e9 0 0\nv 3e9 1 0\nf 1 2 3\n", "118110236.22047 in\n",
       "a table wider than the page"},
      {three + "f 1 2 3\n", "3 open edges", "a hole that goes unnoticed"},
      {three + "v 5 5 5\nf 1 2 3\n", "1 point without a curvature", "a lonely point"},
      {tetrahedron, "Analyse it on 3 workers\n", "a number of workers ignored", {"--workers", "3"}},
      {tetrahedron, "\n   working          Smoothing normals\n", "a silent analysis"},
      {tetrahedron, "side by side: 20 points\n", "copies that are not made", {"--copies", "5"}},
      {tetrahedron, "2 of 3 pieces, equal to what was", "no rest of damage", {"--copies", "4000"}},
      {"scale 3\n" + tetrahedron, "scan.obj:1:1:", "an unknown key that is swallowed"},
  };
  for (const auto& row : rows) {
    const KyrTest::TempDir directory;
    const QString scan = directory.write("scan.obj", row.scan);
    for (const char* locale : {"C.UTF-8", "de_DE.UTF-8"}) {
      const KyrTest::Ended run =
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
  for (const auto& [language, says, points] :
       {std::tuple("english", "\nEverything held.\n", "1,200 points"),
        std::tuple("german", "\nAlles hat gehalten.\n", "1\u00A0200 Punkte")}) {
    const KyrTest::Ended run =
        tour({"--copies", "300", "--output", directory.path(), scan}, "de_DE.UTF-8", language);
    EXPECT_TRUE(run.output.contains(says) && run.output.contains(points))
        << run.output.toStdString() << run.errors.toStdString();
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
    const KyrTest::Ended run = tour({"--output", directory.path(), "--archive", archive, scan});
    EXPECT_EQ(run.code, 0) << run.errors.toStdString();
  }
  const Kyr::ZippedTarReader reader(KyrTest::bytesOf(KyrTest::readFile(archive)));
  ASSERT_TRUE(reader.isValid() && reader.size() == 3);
  const auto content = [&](unsigned index) { return KyrTest::arrayOf(reader.getContents(index)); };
  EXPECT_EQ(reader.getName(0), "input/" + name + ".obj");
  EXPECT_EQ(content(0), tetrahedron);
  EXPECT_EQ(reader.getName(1), name + ".kyr");
  EXPECT_EQ(content(1), KyrTest::readFile(directory.file(name + ".kyr")));
  EXPECT_EQ(reader.getName(2), name + ".log");
  EXPECT_TRUE(content(2).startsWith("read 8 data lines")) << content(2).toStdString();
  EXPECT_EQ(QDir(directory.path()).entryList(QDir::Files).size(), 3) << "something is left behind";
  const std::tuple<QString, int, QByteArray, const char*> rows[] = {
      {directory.file("no/such.tgz"), 1, "no/such.tgz", "a failure that does not say where"},
      {scan, 2, "would replace", "the scan is replaced by its archive"},
      {directory.file(name + ".kyr"), 2, "would replace", "so is the project"},
  };
  for (const auto& [target, code, says, fault] : rows) {
    const KyrTest::Ended run = tour({"--output", directory.path(), "--archive", target, scan});
    EXPECT_EQ(run.code, code) << fault;
    EXPECT_TRUE(run.errors.contains(says)) << fault << run.errors.toStdString();
  }
}

TEST(Tour, BadInputEndsWithItsPlaceAndCode) {
  const struct {
    QByteArray scan;  // empty for a file that does not exist
    QByteArray says;
    const char* fault;
    int code = 1;
    QStringList options = {};
  } rows[] = {
      {"v 1 2 nan\n", "bad.obj:1:7: a coordinate must be finite", "a coordinate of no number"},
      {"v 1 2 3 4\nv 5\\", "bad.obj:2:4: the file ends in the middle", "cut short in a line"},
      {"v 1 2 3\n", "holds no surface", "a file without faces taken for a scan"},
      {"", "cannot open", "a missing file"},
      {tetrahedron, "cannot write", "a project that is not kept", 1, {"--output", "/dev/null"}},
      {tetrahedron, "--workers", "text behind a number", 2, {"--workers", "2x"}},
      {"scale 3\nv 1 2\n", ":1:1: scale 3", "a log that is lost with the reading"},
  };
  for (const auto& row : rows) {
    const KyrTest::TempDir directory;
    const QString scan =
        row.scan.isEmpty() ? directory.file("bad.obj") : directory.write("bad.obj", row.scan);
    const KyrTest::Ended run = tour(row.options + QStringList(scan));
    EXPECT_EQ(run.code, row.code) << row.fault;
    EXPECT_TRUE(run.errors.contains(row.says)) << row.fault << '\n' << run.errors.toStdString();
  }
  const KyrTest::TempDir directory;
  const QString scan = directory.write("scan.kyr", tetrahedron);
  EXPECT_EQ(tour({"--output", directory.path(), scan}).code, 2)
      << "the scan is replaced by its project";
}

}  // namespace

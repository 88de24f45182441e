// The examples with input that is missing or of no use to them, and the first one of README.md,
// which CMake cuts out of it.
#include "readme_example.inc"

#include "support/Support.h"

namespace {

using KyrTest::TempDir;

TEST(Examples, StopWhenInputIsMissing) {
  const TempDir folder;
  folder.write("file", "text");
  QDir(folder.path()).mkpath("taken/scan_001.dat");
  QDir(folder.path()).mkpath("taken/legend.txt");
  const std::tuple<const char*, QStringList, int, const char*> rows[] = {
      {"batch", {}, 2, "usage: "},
      {"batch", {"p1.txt", "file", "mm"}, 1, "batch: cannot open ./p1.txt"},
      {"crash", {}, 2, "--kind is missing"},
      {"diagnostics", {}, 2, "usage: "},
      {"diagnostics", {"file"}, 1, "cannot make the directory file"},
      {"diagnostics", {"taken"}, 1, "legend.txt: it is no file"},
      {"files", {}, 2, "usage: "},
      {"files", {"file/below"}, 1, "cannot make the directory"},
      {"names", {}, 2, "usage: "},
      {"names", {"taken"}, 1, "cannot write taken/scan_001.dat"},
      {"sharing", {}, 2, "usage: "},
      {"sharing", {"file"}, 1, "cannot make the directory file"},
      {"tour", {}, 2, "give one OBJ file"},
      {"tour", {"missing.obj"}, 1, "cannot open missing.obj"},
  };
  for (const auto& [program, words, code, error] : rows) {
    const KyrTest::Ended ended =
        KyrTest::runProgram(QString(KYR_EXAMPLES "/") + program, words, folder.path());
    EXPECT_EQ(ended.code, code) << program << " " << words.join(' ').toStdString();
    EXPECT_TRUE(ended.errors.contains(error)) << program << ended.errors.toStdString();
  }
}

/// Files with so many points, and a last one that is theirs; the third is missing.
void writeSeries(const TempDir& folder, int lines, const QByteArray& lastPoint = "1 25.4 0") {
  for (const char* name : {"p1.txt", "p2.txt", "p4.txt", "p10.txt"}) {
    folder.write(name, QByteArray("POINT 0 0 0\n").repeated(lines) + "POINT " + lastPoint + "\n");
  }
}

TEST(Examples, TheBatchSavesAllOrNothing) {
  const TempDir folder;
  const struct {
    const char* point;
    int code;
    const char* output;
    const char* errors;
    const char* journal;
  } rows[] = {
      {"1 25.4 0", 0, "\ny: 1.00000", "missing: 3 to 3", " 4 files saved\n"},
      {"1 2 long", 1, "", ".txt:3:11: \"long\" is no number", "\"long\" is no number\n"},
  };
  for (const auto& row : rows) {
    writeSeries(folder, 2, row.point);
    const KyrTest::Ended ended =
        KyrTest::runProgram(KYR_EXAMPLES "/batch", {"p1.txt", "project", "in"}, folder.path());
    EXPECT_EQ(ended.code, row.code) << ended.errors.toStdString();
    EXPECT_TRUE(ended.output.contains(row.output)) << ended.output.toStdString();
    EXPECT_TRUE(ended.errors.contains(row.errors)) << ended.errors.toStdString();
    ZipInStream in(folder.file("project"), 1);
    EXPECT_EQ(in.get(), '3') << "the project is lost";
    EXPECT_TRUE(KyrTest::readFile(folder.file("project.log")).contains(row.journal));
  }
}

TEST(Examples, TheBatchStopsAtAnyMoment) {
  const TempDir folder;
  writeSeries(folder, 20000);
  folder.write("project", "older");
  int stopped = 0;
  for (int moment = 0; moment < 20; ++moment) {
    QProcess batch;
    batch.setWorkingDirectory(folder.path());
    batch.start(KYR_EXAMPLES "/batch", {"p1.txt", "project", "in"});
    ASSERT_TRUE(batch.waitForStarted());
    batch.waitForFinished(5 * moment);
    batch.terminate();
    ASSERT_TRUE(batch.state() == QProcess::NotRunning || batch.waitForFinished());
    stopped += batch.exitCode() == 130 ? 1 : 0;
    const bool isOld = KyrTest::readFile(folder.file("project")) == "older";
    EXPECT_TRUE(isOld || ZipInStream(folder.file("project"), 1).get() == '2') << "not whole";
    EXPECT_TRUE(batch.exitCode() == 130 ? isOld : !isOld || batch.exitCode() != 0);
    folder.write("project.log", "");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 6) << "left behind";
    folder.write("project", "older");
  }
  EXPECT_GT(stopped, 0);
}

TEST(Examples, TheFirstOneKeepsWhatItCannotReplace) {
  const struct {
    const char* settings;  // null for no file
    const char* failure;
    const char* kept;
  } rows[] = {
      {"LENGTH 25.4\n", "", "25.399999999999999\n"},
      {nullptr, "cannot open settings: there is no such file or directory", "older"},
      {"", "settings:1: the file ends where \"LENGTH\" is expected", "older"},
      {"WIDTH 7\n", "settings:1:1: \"WIDTH\" stands where \"LENGTH\" is expected", "older"},
      {"LENGTH long\n", "settings:1:8: \"long\" is no number", "older"},
  };
  for (const auto& row : rows) {
    const TempDir folder;
    const QString settings = folder.file("settings");
    const QString project = folder.file("project");
    ZipOutStream(project, 1) << "older";
    if (row.settings) {
      folder.write("settings", row.settings);
    }
    ErrorLog log;
    const std::string failure = KyrTest::failure([&] { keepLength(settings, project, log); });
    EXPECT_EQ(QString::fromStdString(failure).remove(folder.path() + "/").toStdString(),
              row.failure);
    ZipInStream in(project, 1);
    std::string kept;
    std::getline(in, kept, '\0');
    EXPECT_EQ(kept, row.kept) << failure;
  }
}

}  // namespace

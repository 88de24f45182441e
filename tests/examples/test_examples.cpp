// The examples with input that is missing or of no use to them, and the first one of README.md,
// which CMake cuts out of it.
#include "readme_example.inc"

#include "support/Support.h"

namespace {

using KyrTest::TempDir;

TEST(Examples, StopWhenInputIsMissing) {
  const TempDir folder;
  folder.write("file", "text");
  const std::tuple<const char*, QStringList, int, const char*> rows[] = {
      {"batch", {}, 2, "usage: "},
      {"batch", {"p1.txt", "file", "mm"}, 1, "batch: cannot open ./p1.txt"},
      {"crash", {}, 2, "--kind is missing"},
      {"diagnostics", {"file"}, 1, "cannot make the directory file"},
      {"files", {"file/below"}, 1, "cannot make the directory"},
      {"sharing", {"file"}, 1, "cannot make the directory file"},
      {"tour", {"missing.obj"}, 1, "cannot open missing.obj"},
  };
  for (const auto& [program, words, code, error] : rows) {
    const KyrTest::Ended ended =
        KyrTest::runProgram(QString(KYR_EXAMPLES "/") + program, words, folder.path());
    EXPECT_EQ(ended.code, code) << program << " " << words.join(' ').toStdString();
    EXPECT_TRUE(ended.errors.contains(error)) << program << ended.errors.toStdString();
  }
}

/// Files with three points, of which the last one is given; the third file is missing.
void writeSeries(const TempDir& folder, const QByteArray& lastPoint) {
  for (const char* name : {"p1.txt", "p2.txt", "p4.txt", "p10.txt"}) {
    folder.write(name, "POINT 0 0 0\nPOINT 0 0 0\nPOINT " + lastPoint + "\n");
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
    writeSeries(folder, row.point);
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

TEST(Examples, TheFirstOneKeepsWhatItCannotReplace) {
  const struct {
    const char* settings;  // null for no file
    const char* failure;
    const char* kept;
  } rows[] = {
      {"LENGTH 25.4\n", "", "25.399999999999999\n"},
      {nullptr, "cannot open settings: there is no such file or directory", "older"},
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

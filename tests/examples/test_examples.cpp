// The examples with input that is missing or of no use to them, and the first one of README.md,
// which CMake cuts out of it.
#include "readme_example.inc"

#include "support/Support.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QProcess>

#include <string>

namespace {

using KyrTest::TempDir;

TEST(Examples, StopWhenInputIsMissing) {
  const TempDir folder;
  folder.write("file", "text");
  QDir(folder.path()).mkpath("taken/scan_001.dat");
  QDir(folder.path()).mkpath("taken/legend.txt");
  const struct {
    const char* program;
    QStringList words;
    int code;
    const char* error;
  } rows[] = {
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
  for (const auto& row : rows) {
    QProcess example;
    example.setWorkingDirectory(folder.path());
    example.start(QString(KYR_EXAMPLES "/") + row.program, row.words);
    EXPECT_TRUE(example.waitForFinished(60000)) << row.program;
    const QByteArray errors = example.readAllStandardError();
    EXPECT_EQ(example.exitCode(), row.code)
        << row.program << " " << row.words.join(' ').toStdString();
    EXPECT_TRUE(errors.contains(row.error)) << row.program << ": " << errors.toStdString();
  }
}

TEST(Examples, TheFirstOneKeepsWhatItCannotReplace) {
  const struct {
    const char* settings;  // null for no file
    const char* failure;
    const char* kept;
  } rows[] = {
      {"LENGTH 25.4\n", "", "25.399999999999999\n"},
      {nullptr, "cannot open settings", "older"},
      {"", "settings holds no LENGTH", "older"},
      {"WIDTH 7\n", "settings holds no LENGTH", "older"},
      {"LENGTH long\n", "settings holds no LENGTH", "older"},
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

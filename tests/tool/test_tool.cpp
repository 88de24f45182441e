#include "support/Support.h"
#include "tool/closed_streams.h"

#include <kyr/core/KyrPlatform.h>

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QProcess>

#include <filesystem>
#include <iostream>

namespace {

using KyrTest::readFile;
using KyrTest::ScopedEnvironment;
using KyrTest::TempDir;

struct Result {
  int code = -1;
  QString output;
  QString errors;
};

/// Where a run gets its input and leaves its output; empty names mean pipes.
struct Streams {
  QByteArray input;
  QString outputFile;
  bool appends = false;
};

Result run(const QStringList& words, const TempDir& folder, const Streams& streams = {}) {
  QProcess process;
  process.setWorkingDirectory(folder.path());
  if (!streams.outputFile.isEmpty()) {
    process.setStandardOutputFile(streams.outputFile,
                                  streams.appends ? QIODevice::Append : QIODevice::Truncate);
  }
  process.start(KYR_TOOL, words);
  process.write(streams.input);
  process.closeWriteChannel();
  EXPECT_TRUE(process.waitForFinished()) << process.errorString().toStdString();
  EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
  return {process.exitCode(), process.readAllStandardOutput(), process.readAllStandardError()};
}

TEST(Tool, AnswersOnTheCommandLine) {
  const struct {
    const char* words;  // parted by blanks; "_" stands for a blank or nothing
    int code;
    const char* output;  // all of it with "$" in front, otherwise a part
    const char* error;   // a part
    const char* fault;
  } rows[] = {
      {"convert 25.4 mm in", 0, "$25.4 mm = 1 in\n", "", "the plain case"},
      {"convert -40 degC degF", 0, "$-40 °C = -40 °F\n", "", "a negative value is no option"},
      {"convert 1 µm um", 0, "$1 µm = 1 µm\n", "", "both spellings of a unit"},
      {"convert 1 mm^2 m2 --digits 8", 0, "$1 mm² = 0.00000100 m²\n", "", "spellings of squares"},
      {"convert 2 1/mm /_m", 0, "$2 / mm = 2000 / m\n", "", "spellings of curvatures"},
      {"convert 300 pixel mm --dpi 300", 0, "= 25.4 mm", "", "the resolution counts"},
      {"convert 5 % ‰ --kind fraction", 0, "$5 % = 50 ‰\n", "", "a kind in lower case"},
      {"convert -- -1 s ms", 0, "$-1 s = -1000 ms\n", "", "words after -- are no options"},
      {"convert 12abc mm in", 2, "$", "\"12abc\" is not a number", "trailing text"},
      {"convert 25,4 mm in", 2, "$", "not a number", "no comma in any locale"},
      {"convert _ mm in", 2, "$", "not a number", "blank is not zero"},
      {"convert nan mm in", 2, "$", "not a number", "nothing that is no length"},
      {"convert 1e308 km/h mm/s", 2, "$", "too large", "overflow"},
      {"convert 1 mm s", 2, "$", "(LENGTH, FIGURE) and \"s\" (TIME, SHUTTER)", "other kinds"},
      {"convert 1 mm MM", 2, "$", "no unit \"MM\"", "case counts"},
      {"convert 1 mm ft --kind FIGURE", 2, "$", "FIGURE has no unit \"ft\"", "the kind binds"},
      {"convert 1 mm in --kind SIZE", 2, "$", "no kind \"SIZE\"", "unknown kind"},
      {"convert 1 mm in --digits 61", 2, "$", "0 to 60", "bounds of options"},
      {"convert 1 mm in --digits", 2, "$", "--digits needs a value", "missing value"},
      {"convert 1 mm in --dozens 3", 2, "$", "unknown option \"--dozens\"", "unknown option"},
      {"convert 1 mm", 2, "$", "\nusage: kyr convert VALUE FROM TO", "too few"},
      {"convert 1 mm in ft", 2, "$", "too many: \"ft\"", "too many"},
      {"units", 0, "ACCELERATION          mm/s², µm/s², m/s², ft/s², g\n", "", "the kinds"},
      {"units temperature", 0, "\n°F          degF        0.5555555555555556 ", "", "the units"},
      {"--version", 0, "$kyr 6.2.0-6\n", "", "version"},
      {"zip cat --help", 0, "kyr zip pack FILE OUTPUT [--file-version N]\n", "", "help anywhere"},
      {"", 2, "$", "a command is missing\nusage: kyr", "nothing asked"},
      {"zip burn x", 2, "$", "unknown command \"zip burn\"", "unknown command"},
      {"zip info nothing", 1, "$", "kyr: nothing: no such file\n", "missing file"},
      {"zip cat .", 1, "$", "is a directory", "a directory"},
      {"zip pack nothing new", 1, "$", "no such file", "nothing to pack"},
      {"zip pack - no/folder", 1, "$", "no/folder: there is no such file", "nowhere to write"},
      {"zip pack - new --file-version 4294967296", 2, "$", "to 4294967295", "33 bits"},
      {"changelog", 0, "<html lang=\"en\">", "", "a page in English"},
      {"changelog - --group context", 0, "<h2 class=\"history\">os</h2>", "", "by context"},
      {"changelog --group version", 0, "<h3 class=\"history\">os</h3>", "", "by version"},
      {"changelog --group none", 0, "</h1>\n<ul>\n<li><span", "", "not grouped"},
      {"changelog --language jp", 0, "<html lang=\"ja\">", "", "the language's name in HTML"},
      {"changelog --language de", 0, "</span> neu: <code", "", "no catalogue was loaded"},
      {"changelog --group size", 2, "$", "one of none, context, version", "unknown grouping"},
      {"changelog --language es", 2, "$", "one of en, de,", "unknown language"},
      {"changelog no/folder", 1, "$", "no/folder: there is no such file", "nowhere to write"},
  };
  const TempDir folder;
  const ScopedEnvironment locale("LC_ALL", "de_DE.UTF-8");
  for (const auto& row : rows) {
    QStringList words = QString(row.words).split(' ', Qt::SkipEmptyParts);
    const Result result = run(words.replaceInStrings("_", " "), folder);
    const QString expected = row.output;
    EXPECT_EQ(result.code, row.code) << row.words << ": " << row.fault;
    EXPECT_TRUE(expected.startsWith('$') ? result.output == expected.mid(1)
                                         : result.output.contains(expected))
        << row.words << ": " << row.fault << ": " << result.output.toStdString();
    EXPECT_TRUE(*row.error ? result.errors.contains(row.error) : result.errors.isEmpty())
        << row.words << ": " << row.fault << ": " << result.errors.toStdString();
  }
  EXPECT_TRUE(QDir(folder.path()).isEmpty()) << "a failed command left a file";
  const Result longest = run({"convert", QString(30000, '1') + "x", "mm", "in"}, folder);
  EXPECT_TRUE(longest.errors.contains("1x\" is not a number\n") && longest.errors.size() < 1000);
}

TEST(Tool, WritesItsChangeLogIntoAFile) {
  const TempDir folder;
  folder.write("page", "older and longer" + QByteArray(100000, '.'));
  EXPECT_EQ(run({"changelog", "page", "--language", "fr"}, folder).code, 0);
  EXPECT_EQ(readFile(folder.file("page")), run({"changelog", "--language", "fr"}, folder).output);
}

TEST(Tool, NamesWhatItsReportLacks) {
  const TempDir folder;
  const ScopedEnvironment settings("KYR_CONFIG_DIR",
                                   folder.write("settings", "no folder").toUtf8());
  const Result result = run({"report", "r.tar.gz"}, folder);
  EXPECT_EQ(result.code, 1);
  EXPECT_TRUE(result.errors.startsWith("kyr: the report is not complete: Files of settings: "))
      << result.errors.toStdString();
  EXPECT_TRUE(result.output.startsWith("r.tar.gz: 11 sections, ")) << result.output.toStdString();
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).join(' '),
            "r.tar.gz settings");
}

/// Lines of text and a packed copy of it: whole, and as faults leave it.
class ToolZip : public testing::Test {
 protected:
  void SetUp() override {
    for (int i = 0; i < 40000; ++i) {
      plain += QByteArray::number(i * 7919 % 100003) + "\r\n";
    }
    folder.write("plain", plain);
    EXPECT_EQ(run({"zip", "pack", "plain", "good", "--file-version", "7"}, folder).code, 0);
    good = readFile(folder.file("good"));
  }
  TempDir folder;
  QByteArray plain;
  QByteArray good;
};

TEST_F(ToolZip, SaysWhatIsWrongWithAFile) {
  const int middle = good.size() / 2;
  folder.write("cut", good.left(middle));
  folder.write("longer", good + "more");
  const int secondBlock = 104 + 2 + 8192;
  folder.write("damaged", QByteArray(good).replace(secondBlock, 2, "\xff\xff"));
  folder.write("foreign", plain);
  folder.write("text-mode", QByteArray(good).replace("\r\n", "\n"));
  const struct {
    QString file;
    QString verdict;
    int code;
    bool readable;
  } rows[] = {
      {"good", QString("good: complete, %1 bytes of content in ").arg(plain.size()), 0, true},
      {"longer", "; behind its end: 4 bytes\n", 0, true},
      {"cut", QString("cut: cut short at byte %1; readable before: ").arg(middle), 1, true},
      {"damaged", QString("damaged: damaged at byte %1; readable").arg(secondBlock), 1, true},
      {"foreign", "foreign: invalid zip stream header\n", 1, false},
      {"text-mode", "transferred by ascii-ftp. it must be", 1, false},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.file.toStdString());
    const Result verified = run({"zip", "verify", row.file}, folder);
    EXPECT_EQ(verified.code, row.code);
    EXPECT_TRUE(verified.output.contains(row.verdict)) << verified.output.toStdString();
    const Result info = run({"zip", "info", row.file}, folder);
    EXPECT_EQ(info.code, row.code);
    EXPECT_EQ(info.output.contains("\nfile version     7\n"), row.readable);
    const Result content = run({"zip", "cat", row.file}, folder);
    EXPECT_EQ(content.code, row.code);
    EXPECT_EQ(content.errors.isEmpty(), row.code == 0);
    EXPECT_EQ(content.output.size() > 10000, row.readable);
    EXPECT_TRUE(plain.startsWith(content.output.toLatin1())) << "only good content comes out";
  }
}

TEST_F(ToolZip, ShowsHostileTextHarmlessly) {
  QByteArray bytes = good;
  folder.write("hostile", bytes.replace(72, 3, "\x1b[2"));
  const Result info = run({"zip", "info", "hostile"}, folder);
  EXPECT_TRUE(info.output.contains("\nlibrary version  \\x1b[2.0-6\n")) << "reached the terminal";
}

TEST_F(ToolZip, WorksInPipesAndWithUnicodeNames) {
  const ScopedEnvironment locale("LC_ALL", "C");
  const QString name = QString::fromUtf8("größe ±5µm");
  EXPECT_EQ(run({"zip", "pack", "-", name}, folder, {plain, {}}).code, 0);
  EXPECT_EQ(readFile(folder.file(name)).mid(72), QByteArray(good).mid(72)) << "bytes in between";
  EXPECT_EQ(run({"zip", "cat", "-"}, folder, {good, {}}).output, plain);
  EXPECT_EQ(run({"zip", "pack", "plain", "-"}, folder, {{}, folder.file("piped")}).code, 0);
  EXPECT_EQ(run({"zip", "cat", "piped"}, folder).output, plain);
}

TEST_F(ToolZip, LeavesNothingHalfWritten) {
  const QStringList before = QDir(folder.path()).entryList();
  EXPECT_EQ(run({"zip", "pack", ".", "good"}, folder).code, 1);
  EXPECT_EQ(readFile(folder.file("good")), good) << "a failed attempt spoiled the older file";
  EXPECT_EQ(QDir(folder.path()).entryList(), before);
}

TEST_F(ToolZip, NeverReplacesItsOwnInput) {
  std::filesystem::create_hard_link(folder.file("plain").toStdString(),
                                    folder.file("second name").toStdString());
  const QString itself = folder.file("plain");
  const struct {
    QStringList words;
    Streams streams;
  } rows[] = {{{"zip", "pack", "plain", "plain"}, {}},
              {{"zip", "pack", "plain", itself}, {}},
              {{"zip", "pack", "second name", "plain"}, {}},
              {{"tar", "create", "plain", "second name"}, {}},
              {{"zip", "pack", "plain", "-"}, {{}, itself, true}}};
  for (const auto& row : rows) {
    const Result packed = run(row.words, folder, row.streams);
    EXPECT_EQ(packed.code, 1) << row.words.join(' ').toStdString();
    EXPECT_TRUE(packed.errors.contains("is the input as well")) << packed.errors.toStdString();
    EXPECT_TRUE(readFile(itself) == plain) << row.words.join(' ').toStdString();
  }
}

TEST_F(ToolZip, NoticesAFullDevice) {
  const QString full = KyrTest::fullDevice();
  if (full.isEmpty()) {
    GTEST_SKIP() << "there is no device that is always full";
  }
  const Result packed = run({"zip", "pack", "plain", full}, folder);
  EXPECT_EQ(packed.code, 1);
  EXPECT_TRUE(packed.errors.contains("is the disk full?")) << packed.errors.toStdString();
  for (const QStringList& words : {QStringList{"zip", "cat", "good"}, QStringList{"units"},
                                   QStringList{"zip", "pack", "plain", "-"}}) {
    const Result result = run(words, folder, {{}, full});
    EXPECT_EQ(result.code, 1) << words.join(' ').toStdString();
    EXPECT_EQ(result.errors, "kyr: standard output: no space left\n");
  }
#if !defined(KYR_THREAD_SANITIZER)  // which makes files of its own before main() begins
  QProcess limited;
  limited.start("/bin/sh",
                {"-c", "ulimit -f 0; exec \"$0\" units >\"$1\"", KYR_TOOL, folder.file("new")});
  EXPECT_TRUE(limited.waitForFinished());
  EXPECT_EQ(limited.readAllStandardError(), "kyr: standard output: cannot be written\n")
      << "a file that may not grow ends it";
#endif
}

TEST_F(ToolZip, GivesUpWhereNothingIsTaken) {
#if defined(KYR_ADDRESS_SANITIZER)
  GTEST_SKIP() << "UndefinedBehaviorSanitizer looks at memory through a pipe";
#endif
  const KyrTest::Ended ended = KyrTest::inChild([&] {
    if (!KyrTest::takeNothing()) {
      std::cerr << "standard output: cannot be written, as this system has nothing of the kind";
      return;
    }
    QProcess tool;  // ends with this scope, also if it tries for ever
    tool.setProcessChannelMode(QProcess::ForwardedChannels);
    tool.start(KYR_TOOL, {"zip", "cat", folder.file("good")});
    tool.waitForFinished(20000);
  });
  EXPECT_TRUE(ended.errors.contains("standard output: cannot be written"))
      << ended.errors.constData();
}

TEST_F(ToolZip, NoticesClosedStreams) {
  const struct {
    QStringList words;
    const char* closed;  // 0 input, 1 output, 2 errors
    int code;
    const char* error;
    const char* fault;
  } rows[] = {
      {{"zip", "verify", "-"},
       "0",
       1,
       "kyr: standard input: cannot be read\n",
       "another file took its place"},
      {{"convert", "100", "mm", "mm"},
       "1",
       1,
       "kyr: standard output: cannot be written\n",
       "the same"},
      {{"zip", "pack", "plain", "new"}, "012", 0, "", "not every stream is needed"},
      {{"zip", "pack", "-", "new"}, "012", 1, "", "nobody hears the complaint"},
      {{"zip", "pack", "plain", ""},
       "",
       1,
       "kyr: cannot save : the name is empty, too long or holds a zero character\n",
       "a file without a name"},
  };
  for (const auto& row : rows) {
    QProcess tool;
    tool.setWorkingDirectory(folder.path());
    KyrTest::startWithClosed(tool, KYR_TOOL, row.words, row.closed);
    EXPECT_TRUE(tool.waitForFinished()) << row.fault;
    EXPECT_EQ(tool.exitCode(), row.code) << row.fault << ", closed: " << row.closed;
    EXPECT_EQ(tool.readAllStandardError(), row.error) << row.fault << ", closed: " << row.closed;
  }
  EXPECT_EQ(run({"zip", "cat", "new"}, folder).output, plain) << "a message is in the packed file";
}

TEST_F(ToolZip, IsQuietWhenItsReaderLeaves) {
  QProcess tool;
  QProcess reader;
  tool.setWorkingDirectory(folder.path());
  tool.setStandardOutputProcess(&reader);
  tool.start(KYR_TOOL, {"zip", "cat", "-"});
  reader.start(KYR_TOOL, {"--version"});
  EXPECT_TRUE(reader.waitForFinished());
  tool.write(good);
  tool.closeWriteChannel();
  EXPECT_TRUE(tool.waitForFinished());
  EXPECT_EQ(tool.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(tool.exitCode(), 0);
  EXPECT_EQ(tool.readAllStandardError(), "");
}

}  // namespace

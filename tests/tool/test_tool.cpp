#include "tool/answers.h"

#include <filesystem>

namespace {

using namespace KyrTest;

/// \param output the file that takes standard output, which is appended to; a pipe if empty
Ended run(const QStringList& words, const TempDir& folder, const QByteArray& input = {},
          const QString& output = {}) {
  return KyrTest::runProgram(KYR_TOOL, words, folder.path(), input, [&](QProcess& process) {
    process.setStandardOutputFile(output, QIODevice::Append);
  });
}

TEST(Tool, AnswersOnTheCommandLine) {
  const TempDir folder;
  const ScopedEnvironment locale("LC_ALL", "de_DE.UTF-8");
  const ScopedEnvironment language("LANGUAGE", "en");
  const std::vector<KyrTest::Answer> rows = {
      {"convert 300 pixel mm --dpi 300", 0, "= 25.4 mm", "", "the resolution counts"},
      {"convert -40 degC degF", 0, "$-40 °C = -40 °F\n", "", "a negative value is no option"},
      {"convert 1 mm^2 m2 --digits 8", 0, "$1 mm² = 0.00000100 m²\n", "", "spellings of squares"},
      {"convert 5 % ‰ --kind fraction", 0, "$5 % = 50 ‰\n", "", "a kind in lower case"},
      {"convert -- -1 s ms", 0, "$-1 s = -1000 ms\n", "", "words after -- are no options"},
      {"convert 12abc mm in", 2, "$", "\"12abc\" is not a number", "trailing text"},
      {"convert 25,4 mm in", 2, "$", "not a number", "no comma in any locale"},
      {"convert _ mm in", 2, "$", "not a number", "blank is not zero"},
      {"convert 1e308 km/h mm/s", 2, "$", "too large", "overflow"},
      {"convert 1 mm s", 2, "$", "(LENGTH, FIGURE) and \"s\" (TIME, SHUTTER)", "other kinds"},
      {"convert 1 mm ft --kind FIGURE", 2, "$", "FIGURE has no unit \"ft\"", "the kind binds"},
      {"convert 1 mm in --digits 61 --json", 2, "$", "0 to 60", "bounds of options"},
      {"convert 1 mm in --digits", 2, "$", "--digits needs a value", "missing value"},
      {"convert 1 mm in --dozens 3", 2, "$", "unknown option \"--dozens\"\nusage", "not near"},
      {"convert 1 mm in --digit=3", 2, "$", "\"--digit\"; did you mean --digits?\n", "near"},
      {"convert 1 in mm --digits=2", 0, "$1 in = 25.40 mm\n", "", "a value behind ="},
      {"convert 5 pixel mm --kind=", 2, "$", "there is no kind \"\"", "an empty value"},
      {"tar extract x --force=1", 2, "$", "--force takes no value\n", "a flag has no value"},
      {"tar extract x -ff", 2, "$", "unknown option \"-ff\"", "unknown letters"},
      {"tar extract x -f", 1, "$", "x: no such file", "a letter"},
      {"convert 1 mm", 2, "$", "\nusage: kyr convert VALUE FROM TO", "too few"},
      {"convert 1 mm in ft", 2, "$", "too many: \"ft\"", "too many"},
      {"convert 25.4mm inch", 0, "$25.4 mm = 1 inch\n", "", "a quantity in one word"},
      {"convert 5'_3\" cm", 0, "= 160.02 cm\n", "", "feet and inches"},
      {"convert 1 cm --kind TIME", 2, "$", "there is no unit \"cm\"", "the kind binds it too"},
      {"convert 3*12.5_mm_+_1/2_in mm", 0, "$50.2 mm = 50.2 mm\n", "", "a sum"},
      {"convert 3 us ms", 0, "$3 µs = 0.003 ms\n", "", "a kind whose list has both"},
      {"convert 5' \"", 2, "$", "60 \" as LENGTH, 300 \" as ANGLE; choose one", "feet or arcs"},
      {"convert 5 ' \" --kind angle", 0, "$5 ' = 300 \"\n", "", "as the user has chosen"},
      {"convert 68°F degC", 0, "$68 °F = 20 °C\n", "", "an offset"},
      {"units length", 0, "\ninch              in                25.4", "", "other names"},
      {"units", 0, "\nTEMPERATURE_DIFFERENCE  K, °C, °F, °R\n", "", "the longest name"},
      {"units temperature", 0, "\n°F          degF        0.5555555555555556 ", "", "the units"},
      {"--version", 0, "$kyr 6.2.0-6\n", "", "version"},
      {"zip cat x --help", 0, "kyr zip cat FILE [--workers N] [--engine zlib|fastest]\n\n  writes",
       "", "help anywhere"},
      {"help zip pack", 0, "\n      --file-version N    the version", "", "its options"},
      {"help zip", 0, "  zip cat         writes the content", "", "a group"},
      {"help help", 0, "  zip cat         writes the content", "", "help on itself"},
      {"-h", 0, "  zip cat         writes the content", "", "all of them"},
      {"help zip pak", 2, "$", "\"zip pak\"; did you mean zip pack?\n", "near a command"},
      {"hlep", 2, "$", "\"hlep\"; did you mean help?\n", "letters swapped"},
      {"", 2, "$", "a command is missing\nusage: kyr", "nothing asked"},
      {"zip burn x", 2, "$", "unknown command \"zip burn\"", "unknown command"},
      {"zip info nothing", 1, "$", "kyr: nothing: no such file\n", "missing file"},
      {"zip cat -- --help", 1, "$", "--help: no such file", "a file of that name"},
      {"zip cat .", 1, "$", "is a directory", "a directory"},
      {"zip pack nothing new", 1, "$", "no such file", "nothing to pack"},
      {"zip pack - no/folder", 1, "$", "no/folder: there is no such file", "nowhere to write"},
      {"zip pack - new --file-version 4294967296", 2, "$", "to 4294967295", "33 bits"},
      {"zip pack - new --engine steam", 2, "$", "zlib or fastest", "no such engine"},
      {"changelog", 0, "<html lang=\"en\">", "", "a page in English"},
      {"changelog --group version", 0, "<h3 class=\"history\">os</h3>", "", "by version"},
      {"changelog --language jp", 0, "<html lang=\"ja\">", "", "the language's name in HTML"},
      {"changelog --language de", 0, "</span> neu: <code", "", "no catalogue was loaded"},
      {"changelog --group size", 2, "$", "one of none, context, version", "unknown grouping"},
      {"changelog --language es", 2, "$", "one of en, de,", "unknown language"},
      {"changelog no/folder", 1, "$", "no/folder: there is no such file", "nowhere to write"},
  };
  KyrTest::expectAnswers(folder, rows);
  EXPECT_TRUE(QDir(folder.path()).isEmpty()) << "a failed command left a file";
  const Ended longest = run({"convert", QString(30000, '1') + "x", "mm", "in"}, folder);
  EXPECT_TRUE(longest.errors.contains("1x\" is not a number\n") && longest.errors.size() < 1000);
}

TEST(Tool, NamesWhatItsReportLacks) {
  const TempDir folder;
  const ScopedEnvironment settings("KYR_CONFIG_DIR",
                                   folder.write("settings", "no folder").toUtf8());
  const Ended result = run({"report", "r.tar.gz"}, folder);
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
  const auto middle = good.size() / 2;
  folder.write("cut", good.left(middle));
  folder.write("longer", good + "more");
  const int secondBlock = 104 + 2 + 8192;
  folder.write("damaged", QByteArray(good).replace(secondBlock, 2, "\xff\xff"));
  folder.write("foreign", plain);
  folder.write("text-mode", QByteArray(good).replace("\r\n", "\n"));
  const std::tuple<QString, QString, int, bool> rows[] = {
      {"good", QString("good: complete, %1 bytes of content in ").arg(plain.size()), 0, true},
      {"longer", "; behind its end: 4 bytes\n", 0, true},
      {"cut", QString("cut: cut short at byte %1; readable before: ").arg(middle), 1, true},
      {"damaged", QString("damaged: damaged at byte %1; readable").arg(secondBlock), 1, true},
      {"foreign", "foreign: invalid zip stream header\n", 1, false},
      {"text-mode", "transferred by ascii-ftp. it must be", 1, false},
  };
  for (const auto& [file, verdict, code, readable] : rows) {
    SCOPED_TRACE(file.toStdString());
    const Ended verified = run({"zip", "verify", file}, folder);
    EXPECT_EQ(verified.code, code);
    EXPECT_TRUE(verified.output.contains(verdict.toUtf8())) << verified.output.toStdString();
    const Ended info = run({"zip", "info", file}, folder);
    EXPECT_EQ(info.code, code);
    EXPECT_EQ(info.output.contains("\nfile version     7\n"), readable);
    const Ended content = run({"zip", "cat", file}, folder);
    EXPECT_EQ(content.code, code);
    EXPECT_EQ(content.errors.isEmpty(), code == 0);
    EXPECT_EQ(content.output.size() > 10000, readable);
    EXPECT_TRUE(plain.startsWith(content.output)) << "only good content comes out";
  }
  folder.write("hostile", QByteArray(good).replace(72, 3, "\x1b[2"));
  const Ended info = run({"zip", "info", "hostile"}, folder);
  EXPECT_TRUE(info.output.contains("\nlibrary version  \\x1b[2.0-6\n")) << "reached the terminal";
}

TEST_F(ToolZip, NamesWhatIsDamagedAndSavesTheRest) {
  EXPECT_EQ(run({"zip", "pack", "plain", "pieces", "--workers", "3"}, folder).code, 0);
  const QByteArray pieces = readFile(folder.file("pieces"));
  const qint64 last = plain.size() - 262144;  // of two pieces
  ASSERT_TRUE(last > 0 && last < 262144) << "another number of pieces";
  folder.write("damaged", QByteArray(pieces).replace(pieces.size() / 4, 1, "?"));
  folder.write("open", QByteArray(pieces).replace(pieces.size() / 4, 9, "?????????").chopped(40));
  const struct {
    QString file;
    QByteArray verdict;
    QByteArray saved;
    qint64 size, sizeWithout;  // of what is saved, with zeros or without
    int code;
  } rows[] = {
      {"pieces", ", 2 checked pieces\n", ": all that was written\n", plain.size(), plain.size(), 0},
      {"good", "blocks\n", ": all that was written\n", plain.size(), plain.size(), 0},
      {"damaged",
       "; checked: " + QByteArray::number(last) + " bytes in 1 of 2 pieces\ndamaged: lost: ",
       "lost: bytes 0 to 262144 of the content (bytes 108 to ", plain.size(), last, 1},
      {"open", ", which may be wrong\n", "lost: nobody knows how much behind byte ", -1, -1, 1},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.file.toStdString());
    const Ended verified = run({"zip", "verify", row.file, "--workers", "2"}, folder);
    EXPECT_TRUE(verified.code == row.code && verified.output.contains(row.verdict))
        << verified.output.toStdString();
    const Ended saved = run({"zip", "salvage", row.file, "saved"}, folder);
    EXPECT_TRUE(saved.code == row.code && saved.output.contains(row.saved))
        << saved.output.toStdString();
    const QByteArray content = readFile(folder.file("saved"));
    EXPECT_TRUE(row.size < 0 || content.size() == row.size);
    EXPECT_TRUE(plain.endsWith(content.right(int(last)))) << "what is not damaged is missing";
    const Ended piped = run({"zip", "salvage", row.file, "-", "--leave-out"}, folder);
    EXPECT_TRUE(piped.code == row.code && piped.errors.contains(row.saved));
    EXPECT_TRUE(row.sizeWithout < 0 || piped.output.size() == row.sizeWithout);
  }
  const QByteArray info = run({"zip", "info", "pieces"}, folder).output;
  EXPECT_TRUE(info.contains("pieces           2\n") && info.contains("\n2 pieces with ") &&
              info.contains("\n      0            108 ") && info.contains(" 262144  "))
      << info.toStdString();
  folder.write("many", QByteArray(30 * 262144, '\0'));
  run({"zip", "pack", "many", "packed", "--workers", "1"}, folder);
  const auto all = run({"zip", "info", "packed", "--all"}, folder).output.count('\n');
  EXPECT_EQ(run({"zip", "info", "packed"}, folder).output.count('\n'), all - 15 + 1);
  folder.write("nothing", "");
  run({"zip", "pack", "nothing", "packed", "--workers", "1"}, folder);
  EXPECT_TRUE(run({"zip", "verify", "packed"}, folder).output.endsWith(", 0 checked pieces\n"))
      << "the index is behind the end";
  EXPECT_EQ(run({"zip", "cat", "pieces", "--workers", "2"}, folder).output, plain);
  EXPECT_EQ(run({"zip", "salvage", "plain", "new"}, folder).code, 1);
  EXPECT_FALSE(QFile::exists(folder.file("new"))) << "nothing was saved";
}

TEST_F(ToolZip, WorksInPipesAndWithUnicodeNames) {
  const ScopedEnvironment locale("LC_ALL", "C");
  const QString name = QString::fromUtf8("größe ±5µm");
  EXPECT_EQ(run({"zip", "pack", "-", name}, folder, plain).code, 0);
  EXPECT_EQ(readFile(folder.file(name)).mid(72), QByteArray(good).mid(72)) << "bytes in between";
  EXPECT_EQ(run({"zip", "cat", "-"}, folder, good).output, plain);
  EXPECT_EQ(run({"zip", "pack", "plain", "-"}, folder, {}, folder.file("piped")).code, 0);
  EXPECT_EQ(run({"zip", "cat", "piped"}, folder).output, plain);
}

TEST_F(ToolZip, NeverReplacesWhatItNeeds) {
  const QStringList before = QDir(folder.path()).entryList();
  EXPECT_EQ(run({"zip", "pack", ".", "good"}, folder).code, 1);
  EXPECT_EQ(readFile(folder.file("good")), good) << "a failed attempt spoiled the older file";
  EXPECT_EQ(QDir(folder.path()).entryList(), before);
  std::filesystem::create_hard_link(folder.file("plain").toStdString(),
                                    folder.file("second name").toStdString());
  const QString itself = folder.file("plain");
  for (const QStringList& words : {QStringList{"zip", "pack", "plain", itself},
                                   QStringList{"zip", "pack", "second name", "plain"},
                                   QStringList{"tar", "create", "plain", "second name"},
                                   QStringList{"zip", "pack", "plain", "-"}}) {
    const Ended packed = run(words, folder, {}, words.last() == "-" ? itself : QString());
    EXPECT_EQ(packed.code, 1) << words.join(' ').toStdString();
    EXPECT_TRUE(packed.errors.contains("is the input as well")) << packed.errors.toStdString();
    EXPECT_TRUE(readFile(itself) == plain) << words.join(' ').toStdString();
  }
}

TEST_F(ToolZip, NoticesAFullDevice) {
  const QString full = KyrTest::fullDevice();
  if (full.isEmpty()) {
    GTEST_SKIP() << "there is no device that is always full";
  }
  const Ended packed = run({"zip", "pack", "plain", full}, folder);
  EXPECT_EQ(packed.code, 1);
  EXPECT_TRUE(packed.errors.contains("is the disk full?")) << packed.errors.toStdString();
  for (const QStringList& words : {QStringList{"zip", "cat", "good"}, QStringList{"units"},
                                   QStringList{"zip", "pack", "plain", "-"}}) {
    const Ended result = run(words, folder, {}, full);
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
  KYR_SKIP_ADDRESS_SANITIZER("UndefinedBehaviorSanitizer looks at memory through a pipe");
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
    QString words;
    const char* closed;  // 0 input, 1 output, 2 errors
    int code;
    const char* error;
    const char* fault;
  } rows[] = {
      {"zip verify -", "0", 1, "kyr: standard input: cannot be read\n", "another file's place"},
      {"units", "1", 1, "kyr: standard output: cannot be written\n", "the same"},
      {"zip pack plain new", "012", 0, "", "not every stream is needed"},
      {"zip pack - new", "012", 1, "", "nobody hears the complaint"},
      {"zip pack plain ", "", 1,
       "kyr: cannot save : the name is empty, too long or holds a zero character\n", "no name"},
  };
  for (const auto& row : rows) {
    QProcess tool;
    tool.setWorkingDirectory(folder.path());
    KyrTest::startWithClosed(tool, KYR_TOOL, row.words.split(' '), row.closed);
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

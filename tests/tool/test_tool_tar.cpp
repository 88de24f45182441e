#include "tool/answers.h"

namespace {

using namespace KyrTest;

Ended run(const QString& words, const TempDir& folder, const QByteArray& input = {}) {
  return KyrTest::runProgram(KYR_TOOL, words.split(' '), folder.path(), input);
}

TEST(ToolTar, PacksListsAndUnpacks) {
  const TempDir folder;
  EXPECT_TRUE(QDir(folder.path()).mkpath("tree/sub"));
  folder.write("tree/a", "first");
  folder.write(QString::fromUtf8("tree/sub/\xc3\xa4"), "second");
  folder.write("empty", "");
  folder.write("garbage", "garbage");
  folder.write("a.tgz", "an older one");
  const std::vector<KyrTest::Answer> rows = {
      {"tar create a.tgz missing", 1, "", "missing: cannot be read: there is no", "a missing file"},
      {"tar create new.tgz missing --force", 1, "", "nothing is left", "an archive of nothing"},
      {"tar create no/a.tgz empty", 1, "", "no/a.tgz: there is no such file", "nowhere to write"},
      {"tar create a.tgz ./tree/ ../empty", 1, "", "empty: cannot be read", "a file elsewhere"},
      {"tar create a.tgz . tree/../empty", 0, "", "", "a tree that holds the archive"},
      {"tar create b.tgz tree no", 1, "", "no: cannot be read", "a missing file among others"},
      {"tar create b.tgz empty no", 1, "", "b.tgz: stays as it was", "an older archive"},
      {"tar list b.tgz", 0, "tree/a\n", "", "the older archive"},
      {"tar create b.tgz empty no --force", 1, "", "no: cannot be read", "one to be replaced"},
      {"tar list b.tgz", 0, "Z  empty\n", "", "the newer archive"},
      {"tar list a.tgz", 0, "         5  20", "", "sizes and times"},
      {"tar list a.tgz", 0, "Z  ./tree/sub/\xc3\xa4\n", "", "letters"},
      {"tar list a.tgz", 0, "Z  empty\n", "", "parts that lead up"},
      {"tar list a.tgz --limit 0", 2, "", "from 1 to", "no limit"},
      {"tar extract garbage out", 1, "", "garbage: no complete tar.gz", "no archive"},
      {"tar extract a.tgz out", 0, "", "", "a directory of its own"},
      {"tar extract a.tgz out", 1, "", "something of this name is there already: out/",
       "older files"},
      {"tar extract a.tgz out --force", 0, "", "", "files to be replaced"},
      {"tar extract a.tgz empty", 1, "", "cannot make the directory: empty", "a file in the way"},
      {"tar", 2, "", "tar needs one of list, create, extract", "half a command"},
  };
  KyrTest::expectAnswers(folder, rows);
  EXPECT_FALSE(run("tar list a.tgz", folder).output.contains("tgz")) << "it contains itself";
  run("tar create up.tgz ../" + QDir(folder.path()).dirName() + "/empty", folder);
  EXPECT_TRUE(run("tar list up.tgz", folder).output.contains("Z  kyr-test-")) << "it leads out";
  EXPECT_EQ(readFile(folder.file(QString::fromUtf8("out/tree/sub/\xc3\xa4"))), "second");
  EXPECT_EQ(run("tar list -", folder, readFile(folder.file("a.tgz"))).code, 0);
  EXPECT_TRUE(run("tar create - tree", folder).output.startsWith("\x1f")) << "to standard output";
  EXPECT_TRUE(QDir(folder.path()).entryList({".kyr-save*"}, QDir::Files | QDir::Hidden).isEmpty())
      << "leftovers";
}

TEST(ToolReport, WritesReportsAndShowsInfo) {
  const TempDir folder;
  folder.write("ORV-1.dmp", "memory");
  folder.write("ORV-1.log", "said");
  const KyrTest::ScopedEnvironment temporary("TMPDIR", folder.path().toUtf8());
  const KyrTest::ScopedEnvironment windowsTemporary("TMP", folder.path().toUtf8());
  const KyrTest::ScopedEnvironment settings("KYR_CONFIG_DIR", folder.file("settings").toUtf8());
  const struct {
    const char* words;
    const char* said;  // its exit code, and a part of its output
    const char* fault;
  } rows[] = {
      {"info", "0\n  libKyr ", "versions"},
      {"info", "0/settings/v6.2.0 ", "directories, without a start of the library"},
      {"report a.tgz", "0a.tgz: 11 sections, logs and dumps: 1, ", "a name"},
      {"report a.tgz", "1a.tgz exists already and is not replaced", "an older report"},
      {"report a.tgz --force", "0a.tgz: 11 sections", "one to be replaced"},
      {"report no/a.tgz", "1a.tgz cannot be written: ", "nowhere to write"},
      {"report b.tgz --dumps 1", "0b.tgz: 11 sections, logs and dumps: 2, ", "dumps"},
      {"report c.tgz --dumps x", "2--dumps", "no number"},
      {"report -", "2not to standard output", "a file of this name"},
      {"report a%2.tgz", "0a%2.tgz: 11 sections, logs and dumps: 1", "places in the name"},
      {"tar list a.tgz", "0/index.html\n", "a page"},
      {"tar list b.tgz", "0/logs/ORV-1.dmp\n", "the dump"},
  };
  for (const auto& row : rows) {
    const Ended result = run(row.words, folder);
    const QByteArray said = result.output + result.errors;
    EXPECT_TRUE(result.code == row.said[0] - '0' && said.contains(row.said + 1))
        << row.words << ": " << row.fault << ": " << said.toStdString();
  }
  const KyrTest::ScopedEnvironment persian("LC_ALL", "fa_IR.UTF-8");  // has digits of its own
  EXPECT_TRUE(run("report", folder).output.startsWith("ORV-report-2"));
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 6)
      << "leftovers, or none";
  EXPECT_EQ(QDir(folder.path()).entryList({"settings"}).size(), 0) << "reports make directories";
}

}  // namespace

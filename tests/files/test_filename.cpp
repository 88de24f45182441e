#include "support/Support.h"

#include <kyr/files/KyrFilename.h>

using Kyr::Filename::Name;
using Kyr::Filename::NameWithNumber;
using Kyr::Filename::Series;
using KyrTest::TempDir;

namespace {

TEST(Filename, Parts) {
  const std::tuple<const char*, const char*, const char*> rows[] = {
      {"C:\\data\\img0007.tif", "C:/data|img0007|.tif", "separators of Windows"},
      {"a/b\\c.d/e.tar.gz", "a/b/c.d|e.tar|.gz", "both kinds, several dots"},
      {"D:file.txt", "D:|file|.txt", "a drive without a separator"},
      {"7:file", ".|7:file|", "a digit is no drive"},
      {"dir/D:file", "dir|D:file|", "a drive only in front"},
      {"file.txt", ".|file|.txt", "no directory"},
      {"archive.", ".|archive.|", "a dot at the end"},
      {".profile", ".||.profile", "a dot in front"},
      {"a.b/c", "a.b|c|", "a dot in the directory"},
      {"/file", "|file|", "the root"},
      {"dir//", "dir||", "separators at the end"},
      {"", ".||", "nothing"},
  };
  for (const auto& [given, expected, fault] : rows) {
    const Name name(given);
    const QStringList parts = {name.getDirectory(), name.getBaseName(), name.getExtension()};
    EXPECT_EQ(parts.join('|').toStdString(), expected) << fault;
    EXPECT_EQ(name.getFullName(), parts[0] + "/" + parts[1] + parts[2]) << fault;
    EXPECT_EQ(Name::stripElementName(given), parts[0]) << fault;
    EXPECT_EQ(Name::stripElementPath(given), parts[1] + parts[2]) << fault;
  }
}

TEST(Filename, Directories) {
  const std::tuple<const char*, const char*, const char*, const char*> rows[] = {
      {"/dir/", "/dir", "/dir", "one slash at the end goes"},
      {"/dir//", "/dir/", "/dir/", "only one"},
      {"/dir\\", "/dir/", "/dir/", "a backslash stays, as a slash"},
      {"", "", "", "nothing"},
      {"/data/./x/../y", "/data/./x/../y", "/data/y", "both kinds of segments"},
      {"/../../x", "/../../x", "/x", "nothing is above the root"},
      // Names that Qt leaves as they are.
      {":/a/b/../../c/.", ":/a/b/../../c/.", ":/c", "in a row, and at the end"},
      {":/a/.h/..x/.../b../x.", ":/a/.h/..x/.../b../x.", ":/a/.h/..x/.../b../x.", "mere dots"},
      {":/../../x/..", ":/../../x/..", ":", "more of them than segments"},
      {":/a/../..", ":/a/../..", ":", "at the end, behind the last one"},
  };
  for (const auto& [given, kept, resolved, fault] : rows) {
    Name name;
    name.setDirectory(given);
    EXPECT_EQ(name.getDirectory().toStdString(), kept) << fault;
    const QString absolute =
        QString(resolved).replace(QRegularExpression("^/"), QFileInfo("/").absoluteFilePath());
    EXPECT_EQ(name.getAbsoluteDirectory().toStdString(), absolute.toStdString()) << fault;
  }
  EXPECT_EQ(Name("x.tif").getAbsoluteDirectory(), QDir::currentPath());
}

TEST(Filename, Equality) {
  const std::tuple<Name, Name, bool, const char*> rows[] = {
      {Name("d\\a.tif"), Name("d/a.tif"), true, "spelling that is not kept"},
      {Name("d/a.tif"), Name("e/a.tif"), false, "the directory"},
      {Name("d/a.tif"), Name("d/A.tif"), false, "case"},
      {Name("d/a.b"), Name("d/a.c"), false, "the extension"},
  };
  for (const auto& [left, right, equal, fault] : rows) {
    EXPECT_EQ(left == right, equal) << fault;
    EXPECT_EQ(left != right, !equal) << fault;
  }
  NameWithNumber counted("d/img7.tif", -1);
  EXPECT_TRUE(counted == Name("d/img7.tif")) << "not through the virtual functions";
  counted.incrementNumber();
  EXPECT_TRUE(counted == QString("d/img8.tif") && counted != Name("d/img7.tif"));
  counted.decrementNumber();
  EXPECT_EQ(counted.getNumber(), 7U);
}

TEST(Filename, Numbers) {
  const std::tuple<const char*, int, const char*, const char*> rows[] = {
      {"C:\\d\\img0007.tif", -1, "img 7 4 img0007.tif", "the width of the name"},
      {"img0007.tif", 0, "img 7 0 img7.tif", "no width"},
      {"img12345.tif", 4, "img 12345 4 img12345.tif", "more digits than the width"},
      {"a1b02", -1, "a1b 2 2 a1b02", "the last number of several"},
      {"x4294967295", -1, "x 4294967295 10 x4294967295", "the largest number"},
      {"x4294967296.a", -1, "x 0 10 x0000000000.a", "one more is lost"},
      {"x\u0663", -1, "wrong  0 -1 0", "digits of other scripts are letters"},
      {"scan.tif", -1, "wrong  0 -1 0.tif", "no number"},
      {".7", -1, "wrong  0 -1 0.7", "no base name"},
  };
  for (const auto& [given, digits, expected, fault] : rows) {
    const NameWithNumber name(given, digits);
    const QString description = QString("%1%2 %3 ")
                                    .arg(name.isFilenameCorrect() ? "" : "wrong ")
                                    .arg(name.getBaseNameNoNumber())
                                    .arg(name.getNumber()) +
                                QString("%1 %2").arg(name.getDigits()).arg(name.getFileName());
    EXPECT_EQ(description.toStdString(), expected) << fault;
    EXPECT_EQ(name.getFirstNumber(), name.getNumber()) << fault;
  }
}

TEST(Filename, Counting) {
  NameWithNumber name("d/img0007.tif", -1);
  name.incrementNumber(1);
  EXPECT_EQ(name.getFullName(), "d/img0008.tif");
  name.incrementNumber(9999);
  EXPECT_EQ(name.getFileName(), "img10007.tif");
  name.decrementNumber(10004);
  EXPECT_EQ(name.getNumber(), 3U);
  name.decrementNumber(5);
  EXPECT_EQ(name.getNumber(), 0U) << "ran through 0";
  name.setNumber(4294967295);
  name.incrementNumber(2);
  name.setDigits(2);
  name.setBaseNameNoNumber("shot");
  EXPECT_EQ(name.getFileName(), "shot01.tif");
  name.setFileName("set20.png");
  EXPECT_EQ(name.getFullName(), "d/set20.png");
  name.setBaseName("none");
  EXPECT_EQ(name.getNumber(), 0U);
  name.resetNumber();
  EXPECT_EQ(name.getNumber(), 20U) << "a name without number leaves the first one";
}

TEST(Filename, FilesOnDisk) {
  const TempDir folder;
  const auto before = Kyr::Time::currentTime().getSeconds();
  const Name file(folder.file("\u6e2c1.tif"));
  std::ofstream stream;
  Kyr::OS::openStdStream(stream, file.getFullName(), Kyr::OS::OpenWrite, true);
  Kyr::Time time(1, 2);
  EXPECT_TRUE(file.exists() && file.getCreationTime(&time));
  EXPECT_NEAR(time.getSeconds(), before, 20) << "coarse clocks of file systems are allowed for";
  time = Kyr::Time(1, 2);
  for (const char* const missing : {"missing", "x.tif/below", ""}) {
    const Name name(folder.file(missing));
    EXPECT_FALSE(name.exists() || name.getCreationTime(&time)) << missing;
  }
  EXPECT_EQ(time, Kyr::Time(1, 2));
  EXPECT_TRUE(Name(folder.path()).exists()) << "a directory is something";
}

/// Members, gaps, duplicates, widths, next number.
QString describe(const Series& series) {
  QString text;
  for (const auto& member : series.getMembers()) {
    text += QString("%1=%2 ").arg(member.fileName).arg(member.number);
  }
  for (const auto& gap : series.getGaps()) {
    text += QString("%1-%2 ").arg(gap.first).arg(gap.last);
  }
  for (const auto& member : series.getDuplicates()) {
    text += "twice:" + member.fileName + " ";
  }
  unsigned next = 77;
  const bool left = series.getNextNumber(&next);
  return text + (series.hasMixedWidths() ? "mixed " : "") + (left ? QString::number(next) : "full");
}

TEST(Filename, SeriesInADirectory) {
  const std::tuple<QStringList, const char*, const char*> rows[] = {
      {{}, "77", "nothing there"},
      {{"i9.t", "i10.t"}, "i9.t=9 i10.t=10 11", "natural widths"},
      {{"i09.t", "i10.t", "i100.t"}, "i09.t=9 i10.t=10 i100.t=100 11-99 101", "padded widths"},
      {{"i1.t", "i02.t"}, "i1.t=1 i02.t=2 mixed 3", "several widths"},
      {{"i7.t", "i007.t", "i9.t"},
       "i007.t=7 i7.t=7 i9.t=9 8-8 twice:i007.t twice:i7.t mixed 10",
       "twins"},
      {{"i0.t", "i4294967295.t"}, "i0.t=0 i4294967295.t=4294967295 1-4294967294 full", "ends"},
      {{"i1.tt", "ii1.t", "i.t", "i1a.t", "i-1.t", "i1", "i4294967296.t"}, "77", "others"},
  };
  for (const auto& [files, description, fault] : rows) {
    const TempDir folder;
    for (const QString& name : files) {
      folder.write(name, "");
    }
    const NameWithNumber example(folder.file("i5.t"), -1);
    EXPECT_EQ(describe(Series(example)).toStdString(), description) << fault;
  }
  const TempDir folder;
  folder.write("I1.T", "");
  const NameWithNumber example(folder.file("i5.t"), -1);
  EXPECT_EQ(describe(Series(example)), "77") << "case counts";
  EXPECT_EQ(describe(Series(example, Qt::CaseInsensitive)), "I1.T=1 2");
  EXPECT_THROW(Series(NameWithNumber(folder.file("x.t"), -1)), Kyr::Exception) << "no number";
  EXPECT_THROW(Series(NameWithNumber(folder.file("no/i1.t"), -1)), Kyr::Exception);
}

}  // namespace

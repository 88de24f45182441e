#include "support/Support.h"

#include <kyr/files/KyrSafeFile.h>
#include <kyr/pack/KyrZipStream.h>

using namespace Kyr;
using namespace KyrTest;

namespace {

const QString letters = QString::fromUtf8("M\xc3\xa4\xc3\x9f \xe6\xb8\xac");

bool endsWith(const std::string& text, const char* end) {
  return !text.empty() && QByteArray::fromStdString(text).endsWith(end);
}

TEST(SafeFile, TakesThePlaceOfTheOldFile) {
  const KyrTest::TempDir dir;
  const QByteArray large(300000, 'n');
  ASSERT_TRUE(OS::mkdir(dir.file(letters + QString("/deep").repeated(70))));
  for (const QString& name : {QString("old"), QString("free"), letters + "/" + letters,
                              letters + QString("/deep").repeated(70) + "/long"}) {
    const QString path = dir.file(name);
    const bool hasOld = name == "old" && !dir.write(name, "old\r\n").isEmpty();
    SafeFile file(path);
    file.stream() << "new\r\n" << std::flush;
    file.stream().write(large.constData(), large.size()).put('e');
    EXPECT_EQ(OS::stat(path), hasOld) << "the target changes before commit()";
    std::int64_t checked = 0;
    file.commit([&](const QString& now) { checked = OS::getStatus(now).size; });
    EXPECT_EQ(checked, 300006) << "the check comes before all is written";
    std::ifstream in;
    OS::openStdStream(in, path, OS::OpenRead, true);
    const std::string content(std::istreambuf_iterator<char>(in), {});
    EXPECT_EQ(content, "new\r\n" + large.toStdString() + "e") << name.toStdString();
    EXPECT_EQ(OS::listDirectory(path.left(path.lastIndexOf('/'))).filter("kyr-save").size(), 0);
    EXPECT_FALSE(file.stream().put('x')) << "a write after the end is lost";
    EXPECT_NE(failure([&] { file.commit(); }), "") << "saved twice";
  }
}

TEST(SafeFile, LeavesTheOldFileOnFailure) {
  const KyrTest::TempDir dir;
  const QString path = dir.write("old", "kept");
  const struct {
    std::function<void(SafeFile&)> action;
    const char* problem;
    const char* catches;
  } rows[] = {
      {[](SafeFile&) {}, "", "saved without being asked"},
      {[](SafeFile& file) { file.discard(), file.commit(); }, "saved or discarded already",
       "rises"},
      {[](SafeFile& file) { file.commit([](const QString&) { throw Kyr::Exception("refused"); }); },
       "refused", "nobody listens to the check"},
      {[](SafeFile& file) {
         file.stream().setstate(std::ios_base::badbit);
         file.commit();
       },
       "reports a failure", "a writer's failure is overlooked"},
  };
  for (const auto& row : rows) {
    const std::string found = failure([&] {
      SafeFile file(path);
      file.stream() << "new";
      row.action(file);
    });
    EXPECT_TRUE(endsWith(found, row.problem) || found == row.problem) << row.catches << found;
    EXPECT_EQ(readFile(path), "kept") << row.catches;
    EXPECT_EQ(OS::listDirectory(dir.path()), QStringList("old")) << row.catches;
  }
  SafeFile file(path);
  file.stream() << "new";
  EXPECT_NE(failure([&] { file.commit([](const QString&) { throw Kyr::Exception("x"); }); }), "");
  file.commit();
  EXPECT_EQ(readFile(path), "new") << "there is no second try";
}

TEST(SafeFile, RefusesWhatCannotBeReplaced) {
  const KyrTest::TempDir dir;
  const QString locked = dir.write("locked", "kept");
  QFile(locked).setPermissions(QFile::ReadOwner);
  const struct {
    QString name;
    const char* problem;
    const char* catches;
  } rows[] = {
      {QString(), "empty, too long or holds a zero character", "no name"},
      {dir.file("a") + QChar::Null + "b", "holds a zero character", "another file"},
      {dir.path(), "a directory or a device", "a directory"},
      {OS::nullDevice(), "a directory or a device", "a device"},
      {dir.file("missing/a"), "there is no such file or directory", "a directory is made"},
      {dir.file("locked/a"), "", "a file as directory"},
      {locked, "it is write-protected", "the protection of a file"},
  };
  for (const auto& row : rows) {
    std::ofstream asRoot;
    OS::openStdStream(asRoot, locked, OS::OpenAppend, true);
    if (row.name != locked || !asRoot) {
      EXPECT_TRUE(endsWith(failure([&] { SafeFile file(row.name); }), row.problem)) << row.catches;
    }
  }
  EXPECT_EQ(OS::listDirectory(dir.path()), QStringList("locked"));
}

TEST(SafeFile, WaitsForAReaderThatIsInTheWay) {
  const KyrTest::TempDir dir;
  const QString path = dir.write("file", "old");
  std::ifstream reader;  // on Windows it keeps the file from being replaced
  OS::openStdStream(reader, path, OS::OpenRead, true);
  SafeFile file(path);
  file.stream() << "new";
  const std::string held = failure([&] { file.commit(); });
  if (!held.empty()) {
    EXPECT_EQ(readFile(path), "old") << "half replaced";
    KyrTest::Gate tried;
    std::thread closer([&] {
      tried.await("the second commit has looked at the file");
      reader.close();
    });
    file.commit([&](const QString&) { tried.open(); });
    closer.join();
  }
  EXPECT_EQ(readFile(path), "new");
}

/// Whether it is one of the contents that the other process writes.
bool isWhole(const QByteArray& content, int unit) {
  const int round = static_cast<int>(content.size()) / unit - 100;
  return content == QByteArray(content.size(), static_cast<char>('a' + round)) && round >= 0;
}

/// The content of a file that is a whole zip stream in pieces; empty for any other.
QByteArray unpackedPieces(const QString& path) {
  ZipInStream in(path, 1);
  const std::string content((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  const bool isWhole = in.getState() == ZipInStream::StreamComplete && in.getStatistics().hasIndex;
  return isWhole ? QByteArray::fromStdString(content) : QByteArray();
}

TEST(SafeFile, SurvivesTheEndOfItsWriterAtAnyStep) {
  const KyrTest::TempDir dir;
  for (const bool inPieces : {false, true}) {
    const QString path = dir.write("file", QByteArray(100000, 'a'));
    const QStringList words = {path, "in pieces"};
    if (inPieces) {
      ZipOutStream(path, 1, ZipPieces()) << std::string(1000000, 'a');
    }
    QByteArray seen;
    for (int steps = 1; steps < 30; ++steps) {
      QProcess saver;
      saver.start(KYR_SAVER, words.mid(0, inPieces ? 2 : 1));
      while (saver.bytesAvailable() < steps && saver.waitForReadyRead()) {
      }
      saver.kill();
      saver.waitForFinished();
      ASSERT_GE(saver.bytesAvailable(), steps) << saver.errorString().toStdString();
      seen += saver.readAll().right(1);
      const QByteArray content = inPieces ? unpackedPieces(path) : readFile(path);
      ASSERT_TRUE(isWhole(content, inPieces ? 10000 : 1000)) << "after step " << steps;
      ASSERT_LE(OS::listDirectory(dir.path()).size(), 2) << "what the one before left stays";
    }
    EXPECT_GT(seen.count('w'), 0) << "never killed while it wrote: " << seen.toStdString();
  }
  dir.write(".kyr-save-other-1-abc-1", "of another host");
  SafeFile(dir.file("any")).discard();
  EXPECT_EQ(OS::listDirectory(dir.path()).join(' '), ".kyr-save-other-1-abc-1 file");
}

}  // namespace

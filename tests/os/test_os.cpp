#include <kyr/os/KyrOpenFile.h>

#include "support/Support.h"

using namespace Kyr;

namespace {

QByteArray afterWriting(const QString& path, OS::OpenMode mode, const char* text) {
  std::ofstream stream;
  OS::openStdStream(stream, path, mode, true);
  EXPECT_EQ(stream.fail(), !stream.is_open());
  return stream << text << std::flush ? KyrTest::readFile(path) : "failed";
}

TEST(Os, Modes) {
  const KyrTest::TempDir dir;
  const QString path = dir.file(QString::fromUtf8("M\xc3\xa4\xc3\x9f \xe6\xb8\xac.log"));
  EXPECT_EQ(afterWriting(path, OS::OpenRead, "x"), "failed") << "an output stream only writes";
  EXPECT_EQ(afterWriting(path, OS::OpenAppend, "a\r\n"), "a\r\n") << "creates, and is binary";
  EXPECT_EQ(afterWriting(path, OS::OpenAppend, "b"), "a\r\nb") << "append keeps what is there";
  EXPECT_EQ(afterWriting(path, OS::OpenWrite, "c"), "c") << "write keeps nothing";
  FILE* const file = OS::openFile(path, OS::OpenAppend);
  ASSERT_NE(file, nullptr);
  std::fputs("d", file);
  std::fclose(file);
  std::ifstream stream;
  OS::openStdStream(stream, path, OS::OpenRead, true);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(stream), {}), "cd");
}

TEST(Os, RefusesWhatIsNoFile) {
  const KyrTest::TempDir dir;
  const QString good = dir.write("good", "kept");
  const std::pair<QString, int> rows[] = {
      {QString(), EINVAL},
      {dir.path(), EISDIR},
      {good + QChar::Null + "x", EINVAL},
      {dir.file("no/x"), ENOENT},
  };
  for (const auto& [name, reason] : rows) {
    std::ifstream stream;
    OS::openStdStream(stream, name, OS::OpenRead, true);
    EXPECT_TRUE(stream.fail()) << name.toStdString();
    EXPECT_EQ(afterWriting(name, OS::OpenAppend, "x"), "failed") << name.toStdString();
    EXPECT_EQ(OS::openFile(name, OS::OpenRead), nullptr) << name.toStdString();
    EXPECT_EQ(errno, reason) << name.toStdString();
    EXPECT_EQ(KyrTest::failure([name = name] { OpenFile{name}; }).rfind("cannot open", 0), 0U);
  }
  EXPECT_EQ(KyrTest::failure([&] { OpenFile{dir.path()}; }),
            "cannot open " + dir.path().toStdString() + ": it is a directory");
  EXPECT_EQ(OS::openFile(good, OS::OpenMode(1)), nullptr);
  EXPECT_EQ(errno, EINVAL) << "a mode that is none";
  EXPECT_EQ(KyrTest::readFile(good), "kept");
}

TEST(Os, OpenFilesServeBothKindsOfStreams) {
  const KyrTest::TempDir dir;
  OpenFile written(dir.file("x"), OS::OpenWrite);
  written.stream() << "a\r\n";
  std::fputs("b\xff", written.getStream());
  written.stream() << "c";
  OpenFile moved(std::move(written));
  written = std::move(moved);
  EXPECT_EQ(written.getName(), dir.file("x"));
  EXPECT_EQ(std::int64_t(written.stream().tellp()), 6);
  written.close();
  EXPECT_FALSE(written.stream() << "d" << std::flush) << "a closed file takes more";
  written.close();
  EXPECT_EQ(KyrTest::readFile(dir.file("x")),
            "a\r\nb\xff"
            "c")
      << "out of order, or lost";

  OpenFile read(dir.file("x"));
  std::string line;
  EXPECT_TRUE(std::getline(read.stream(), line) && line == "a\r");
  EXPECT_EQ(std::fgetc(read.getStream()), 'b') << "the standard stream read ahead for itself";
  EXPECT_EQ(read.stream().peek(), 0xff) << "a byte passes for the end";
  EXPECT_TRUE(read.stream().seekg(-1, std::ios::cur) && read.stream().get() == 'b');
  EXPECT_TRUE(read.stream().seekg(-1, std::ios::end) && read.stream().get() == 'c');
  EXPECT_EQ(read.stream().get(), EOF);
  EXPECT_FALSE(read.stream().bad()) << "the end passes for a failure";
  read.close();
  EXPECT_EQ(read.getStream(), nullptr);
}

TEST(Os, OpenFilesTellWhatWasLost) {
  const KyrTest::TempDir dir;
  OpenFile unreadable(dir.file("x"), OS::OpenWrite);
  EXPECT_EQ(unreadable.stream().get(), EOF);
  EXPECT_TRUE(unreadable.stream().bad()) << "what cannot be read passes for the end";
  for (const char* what : {"nothing was written", "closed twice"}) {
    EXPECT_EQ(KyrTest::failure([&] { unreadable.close(); }), "") << what;
  }
  if (!KyrTest::fullDevice().isEmpty()) {
    OpenFile full(KyrTest::fullDevice(), OS::OpenWrite);
    full.stream() << "lost";
    EXPECT_EQ(KyrTest::failure([&] { full.close(); }),
              "cannot write /dev/full: no space is left on the disk");
  }
}

}  // namespace

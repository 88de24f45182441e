#include <kyr/os/KyrOS.h>

#include "support/Support.h"

#include <gtest/gtest.h>

using Kyr::OS;

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
  }
  EXPECT_EQ(OS::openFile(good, OS::OpenMode(1)), nullptr);
  EXPECT_EQ(errno, EINVAL) << "a mode that is none";
  EXPECT_EQ(KyrTest::readFile(good), "kept");
}

}  // namespace

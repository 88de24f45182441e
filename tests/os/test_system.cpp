// Directories, the environment, places and processors.
#include "support/Shared.h"

#include <exception>

using Kyr::OS;

namespace {

const QString letters = QString::fromUtf8("M\xc3\xa4\xc3\x9f \xe6\xb8\xac");

TEST(OsDirectory, CannotBeReadWithoutMemory) {
  KYR_SKIP_SANITIZERS("they themselves end a process that is out of memory");
  const KyrTest::TempDir dir;
  for (int i = 0; i < 300; ++i) {
    dir.write(QString("%1").arg(i, 100, 10, QLatin1Char('0')), "");
  }
  const auto ended = KyrTest::inChild([&dir] {
    KyrTest::limitMemory(true);
    try {
      for (QStringList all;;) {
        all += OS::listDirectory(dir.path());
      }
    } catch (const std::exception&) {  // std::bad_alloc, or the system's own lack of memory
      std::_Exit(3);
    }
  });
  EXPECT_EQ(ended.code, 3) << "no exception: " << ended.errors.toStdString();
}

TEST(OsDirectory, IsMadeWithAllAboveIt) {
  const KyrTest::TempDir dir;
  const QString file = dir.write("file", "kept");
  const std::tuple<QString, bool, const char*> rows[] = {
      {dir.file(letters + "/b/c"), true, "only the last part is made; letters get lost"},
      {dir.file(letters + "/b/c/"), true, "one that is there is an error; a slash at the end"},
      {file, false, "a file passes for a directory"},
      {file + "/x", false, "a file above is not noticed"},
      {dir.file("n") + QChar::Null + "x", false, "a zero character ends the name"},
      {QString(), false, "an empty name means the current directory"},
      {dir.file(QString(40000, 'x')), false, "a name that no system takes"},
  };
  for (const auto& [name, made, catches] : rows) {
    EXPECT_EQ(OS::mkdir(name, true), made) << catches;
    OS::FileStatus status;
    EXPECT_EQ(OS::stat(name, &status) && status.isDirectory, made) << catches;
  }
  const unsigned before = KyrTest::openFiles();
  QStringList entries{"old"};
  EXPECT_TRUE(OS::readDirectory(dir.path(), &entries));
  EXPECT_EQ(KyrTest::openFiles(), before) << "a directory stays open";
  EXPECT_EQ(entries.join("|"), letters + "|file") << "sorted, and nothing but these";
  EXPECT_FALSE(OS::readDirectory(file, &entries) || !entries.isEmpty()) << "a file has no entries";
}

TEST(OsFile, AnswersWhetherItWorked) {
  const KyrTest::TempDir dir;
  const QString from = dir.write(letters, "bytes\r\n");
  const QString to = dir.file("to");
  EXPECT_TRUE(OS::copyFile(from, to) && KyrTest::readFile(to) == "bytes\r\n");
  EXPECT_FALSE(OS::copyFile(dir.write("other", "x"), to)) << "a file is replaced";
  EXPECT_FALSE(OS::copyFile(dir.path(), dir.file("copy"))) << "a directory is no file";
  EXPECT_TRUE(OS::unlink(to) && !OS::stat(to) && !OS::unlink(to));
  EXPECT_FALSE(OS::unlink(dir.path()) || !OS::stat(dir.path())) << "a directory is removed";
}

/// The reason; empty when nothing was thrown.
std::string reason(const std::function<void()>& action) {
  const std::string text = KyrTest::failure(action);
  return text.empty() ? text : text.substr(text.rfind(": ") + 2);
}

TEST(OsFile, TellsWhatIsWrong) {
  const KyrTest::TempDir dir;
  const QString file = dir.write("file", "content");
  const QString old = dir.write(letters, "old");
  const QString missing = dir.file("missing");
  ASSERT_TRUE(OS::mkdir(dir.file("full/below")) && OS::mkdir(dir.file("empty")));
  constexpr auto replace = OS::ReplaceExisting;
  const char* const noEntry = "there is no such file or directory";
  const char* const taken = "something of this name is there already";
  const char* const noName = "the name is empty, too long or holds a zero character";
  const std::tuple<std::function<void()>, std::string, const char*> rows[] = {
      {[&] { OS::getStatus(missing); }, noEntry, "stat of nothing"},
      {[&] { OS::getStatus(""); }, noName, "an empty name"},
      {[&] { OS::makeDirectory(file); }, taken, "a file passes for a directory"},
      {[&] { OS::makeDirectory(dir.file("empty")); }, "", "one that is there is an error"},
      {[&] { OS::copy(dir.path(), missing); }, "only plain files are copied", "a directory"},
      {[&] { OS::copy(file, old); }, taken, "a copy replaces"},
      {[&] { OS::copy(file, dir.file("empty")); }, taken, "a directory is in the way"},
      {[&] { OS::copy(file, old, replace); }, "", "a copy does not replace"},
      {[&] { OS::rename(file, old); }, taken, "a renaming replaces"},
      {[&] { OS::rename(missing, old, replace); }, noEntry, "nothing is renamed"},
      {[&] { OS::rename(dir.file("full"), dir.file("empty"), replace); }, taken, "a directory"},
      {[&] { OS::rename(file, file + QChar::Null); }, noName, "a zero character"},
      {[&] { OS::rename(old, missing); }, "", "a free name"},
      {[&] { OS::rename(file, missing, replace); }, "", "a renaming does not replace"},
      {[&] { OS::rename(dir.file("full"), dir.file("moved")); }, "", "a directory with entries"},
      {[&] { OS::remove(file); }, noEntry, "nothing is removed"},
      {[&] { OS::remove(dir.file("moved")); }, "the directory is not empty", "a full one"},
      {[&] { OS::remove(dir.file("empty")); }, "", "an empty one"},
  };
  for (const auto& [action, expected, catches] : rows) {
    EXPECT_EQ(reason(action), expected) << catches;
  }
  EXPECT_EQ(OS::listDirectory(dir.path()).join(' '), "missing moved") << "a temporary file stays";
  EXPECT_EQ(KyrTest::readFile(missing), "content");
  const OS::FileStatus status = OS::getStatus(missing);
  EXPECT_TRUE(status.isFile && !status.isLink && status.size == 7);
  EXPECT_EQ(status.modified, QFileInfo(missing).lastModified().toMSecsSinceEpoch());
  EXPECT_TRUE(QFile::link(dir.file("moved"), dir.file("link.lnk")));
  EXPECT_EQ(OS::getStatus(dir.file("link.lnk")).isLink,
            OS::getStatus(dir.file("link.lnk")).isDirectory)
      << "a link is what it leads to, but for shortcuts, which are files";
}

TEST(OsEnvironment, TellsEmptyFromUnset) {
  EXPECT_TRUE(OS::getEnv("KYR_TEST_VARIABLE").isNull());
  EXPECT_TRUE(OS::setEnv("KYR_TEST_VARIABLE", letters));
  EXPECT_EQ(OS::getEnv("KYR_TEST_VARIABLE"), letters);
  EXPECT_EQ(qEnvironmentVariable("KYR_TEST_VARIABLE").size(), letters.size()) << "Qt sees another";
  EXPECT_EQ(OS::getEnvironment().value("KYR_TEST_VARIABLE"), letters);
  EXPECT_TRUE(OS::setEnv("KYR_TEST_VARIABLE", ""));
  EXPECT_FALSE(OS::getEnv("KYR_TEST_VARIABLE").isNull());
  EXPECT_FALSE(OS::setEnv("KYR_TEST_VARIABLE", QString("a") + QChar::Null)) << "half a value";
  EXPECT_FALSE(OS::setEnv("", "x") || OS::setEnv("A=B", "x") || OS::unsetEnv("A=B"));
  EXPECT_TRUE(OS::unsetEnv("KYR_TEST_VARIABLE") && OS::unsetEnv("KYR_TEST_VARIABLE"));
  EXPECT_TRUE(OS::getEnv("KYR_TEST_VARIABLE").isNull());
}

TEST(OsEnvironment, IsReadWholeWhileItChanges) {
  const KyrTest::ScopedEnvironment last("KYR_TEST_LAST", "there");
  std::thread writer([] {
    for (int i = 0; i < 3000; ++i) {
      const std::string name = "KYR_TEST_" + std::to_string(i % 100);
      i / 100 % 2 == 0 ? OS::setEnv(name.c_str(), "x") : OS::unsetEnv(name.c_str());
    }
  });
  for (int i = 0; i < 3000; ++i) {
    EXPECT_EQ(OS::getEnvironment().value("KYR_TEST_LAST"), "there");
  }
  writer.join();
}

TEST(OsPlaces, AreKnown) {
  EXPECT_TRUE(OS::stat(OS::getExecutable()) && OS::getExecutable().contains("test_os"));
  EXPECT_EQ(QDir(OS::getCurrentDirectory()), QDir::current());
  EXPECT_EQ(QDir(OS::getTempDirectory()), QDir::temp());
  EXPECT_EQ(OS::convertSeparatorsToUnix("a\\b/c\\"), "a/b/c/");
  std::array<wchar_t, 2> tooSmall{L'x', L'x'};
  EXPECT_FALSE(OS::getTempDirectory(tooSmall.data(), 2) || tooSmall[0] != 0) << "half a path";
  EXPECT_FALSE(OS::getTempDirectory(tooSmall.data(), 0)) << "no room for the end";
}

TEST(OsProcessors, AreCountedOrSet) {
  const unsigned real = OS::getNumberOfCPUs();
  OS::setNumberOfCPUs(7);
  EXPECT_EQ(OS::getNumberOfCPUs(), 7U);
  OS::setNumberOfCPUs(4294967295U);
  EXPECT_EQ(OS::getNumberOfCPUs(), 1024U) << "as many threads as no machine starts";
  OS::setNumberOfCPUs(0);
  EXPECT_TRUE(OS::getNumberOfCPUs() == real && real > 0);
}

}  // namespace

#include "support/Support.h"

using namespace Kyr;

namespace {

const QString other = KYR_OTHER_PROGRAM;
const QString endless = KYR_ENDLESS_PROGRAM;

TEST(Process, TellsHowTheOtherEnded) {
  const struct {
    QStringList arguments;
    int code;
    QByteArray output;
    QByteArray errors;
    const char* catches;
  } rows[] = {
      {{"say", "", "a b", "\"q\"", "\\", "%PATH% $HOME *"},
       7,
       "3:say|0:|3:a b|3:\"q\"|1:\\|14:%PATH% $HOME *|",
       "to the other stream",
       "a shell comes between; the streams are mixed"},
      {{"flood"}, 0, QByteArray(300000, 'o'), QByteArray(300000, 'e'), "a full pipe stops it"},
      {{"read"}, 0, "", "", "it waits for input"},
  };
  for (const auto& row : rows) {
    const Kyr::ProcessResult result = OS::run(other, row.arguments, -2);
    EXPECT_TRUE(result.exitCode == row.code && !result.crashed) << row.catches;
    EXPECT_TRUE(result.output == row.output && result.errors == row.errors)
        << row.catches << ": " << result.output.left(100).toStdString();
    EXPECT_EQ(result.isGood(), row.code == 0) << row.catches;
  }
  EXPECT_FALSE(OS::run(other, {"abort"}).isGood());
}

TEST(Process, IsSetUpWatchedAndEnded) {
  Process reader(other, {"read"});
  reader.setInput(QByteArray(200000, 'i'));
  reader.start();
  EXPECT_TRUE(reader.wait());
  EXPECT_EQ(reader.getResult().output, QByteArray(200000, 'i'));
  EXPECT_EQ(reader.getResult().output.size(), 200000) << "told only once";
  const KyrTest::ScopedEnvironment variable("KYR_TEST_VARIABLE", "inherited");
  for (const QString& value : {QString("own"), QString()}) {
    Process asked(other, {"variable", "KYR_TEST_VARIABLE"});
    asked.setEnv("KYR_TEST_VARIABLE", value);
    asked.start();
    EXPECT_TRUE(asked.wait());
    EXPECT_EQ(asked.getResult().output, value.isNull() ? "not set" : "own");
  }
  Process stays(endless);
  EXPECT_FALSE(stays.isRunning() || stays.getPid() != 0);
  EXPECT_THROW(stays.getResult(), Kyr::Exception);
  stays.start();
  const std::int64_t pid = stays.getPid();
  EXPECT_TRUE(stays.isRunning() && OS::pidExists(pid) && !stays.wait(1));
  EXPECT_THROW(stays.getResult(), Kyr::Exception);
  EXPECT_THROW(stays.start(), Kyr::Exception);
  stays.terminate(1);
  EXPECT_FALSE(stays.isRunning() || OS::pidExists(pid));
  EXPECT_TRUE(stays.getResult().crashed) << "an end by force passes for a good one";
  EXPECT_THROW(OS::run(endless, {}, 1), Kyr::Exception) << "the time-out is no limit";
  EXPECT_THROW(OS::run("no such program"), Kyr::Exception);
  EXPECT_TRUE(OS::pidExists(OS::getPID()));
  for (const std::int64_t none : {std::int64_t{0}, std::int64_t{-1}, std::int64_t{1} << 40}) {
    EXPECT_FALSE(OS::pidExists(none)) << none;
  }
}

TEST(FindExecutable, LooksInThePathOnly) {
  const KyrTest::TempDir dir;
  const QString ending = other.endsWith(".exe") ? ".exe" : "";
  ASSERT_TRUE(OS::mkdir(dir.file("first/tool" + ending)) && OS::mkdir(dir.file("second")));
  ASSERT_TRUE(QFile::copy(other, dir.file("second/tool" + ending)));
  ASSERT_TRUE(QFile::copy(other, dir.file("here" + ending)));
  dir.write("second/text", "no program");
  const QStringList places{dir.file("first"), "", ".", dir.file("missing"), dir.file("second")};
  const KyrTest::ScopedEnvironment path("PATH", places.join(QDir::listSeparator()).toUtf8());
  const QString before = QDir::currentPath();
  ASSERT_TRUE(QDir::setCurrent(dir.path()));
  const std::tuple<QString, QString, const char*> rows[] = {
      {"tool", "second/tool", "a directory is no program"},
      {"text", "", "not everything may be started"},
      {"here", "", "what lies in the current directory is started"},
      {"./here", "here", "a name with a directory is searched"},
      {dir.file("second/tool"), "second/tool", "a full name"},
      {"", "", "no name"},
      {QString("tool") + QChar::Null, "", "a zero character"},
  };
  for (const auto& [name, expected, catches] : rows) {
    const QString found = OS::findExecutable(name);
    EXPECT_EQ(found.isEmpty(), expected.isEmpty()) << catches << found.toStdString();
    EXPECT_TRUE(found.isEmpty() || QFileInfo(found) == QFileInfo(dir.file(expected + ending)))
        << catches << ": " << found.toStdString();
  }
  QDir::setCurrent(before);
}

TEST(OpenOnDesktop, RefusesWhatIsNotThere) {
  const KyrTest::TempDir dir;
  for (const QString& name : {QString(), dir.file("missing.txt"), QString("-option"),
                              QString("javascript:alert(1)"), dir.path() + QChar::Null}) {
    EXPECT_THROW(OS::openOnDesktop(name), Kyr::Exception) << name.toStdString();
  }
}

}  // namespace

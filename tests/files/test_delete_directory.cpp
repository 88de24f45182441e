#include "support/Support.h"

#include <kyr/log/KyrErrorLog.h>

using Kyr::OS;

TEST(DeleteDirectory, LeavesNothing) {
  const KyrTest::TempDir dir;
  const QString letters = QString::fromUtf8("M\xc3\xa4\xc3\x9f \xe6\xb8\xac");
  ASSERT_TRUE(OS::mkdir(dir.file("tree/" + letters + QString("/deep").repeated(100))));
  ASSERT_TRUE(OS::mkdir(dir.file("tree/empty")));
  for (const QString& name :
       {QString("tree/file"), QString("tree/.hidden"), "tree/" + letters + "/f",
        "tree/" + letters + QString("/deep").repeated(100) + "/f"}) {
    std::ofstream stream;
    OS::openStdStream(stream, dir.file(name), OS::OpenWrite, true);
    ASSERT_TRUE(stream << "x") << name.toStdString();
  }
  QFile(dir.file("tree/file")).setPermissions(QFile::ReadOwner);
  const QDir before = QDir::current();
  ASSERT_TRUE(QDir::setCurrent(dir.path()));
  Kyr::ErrorLog log;
  EXPECT_TRUE(OS::deleteDirectoryRecursion("tree/", &log));
  QDir::setCurrent(before.path());
  EXPECT_EQ(log.getLog().toStdString(), "");
  EXPECT_EQ(OS::listDirectory(dir.path()).join(' ').toStdString(), "");
  EXPECT_TRUE(OS::deleteDirectoryRecursion(dir.file("tree"), nullptr)) << "nothing is a failure";
  EXPECT_TRUE(OS::deleteDirectoryRecursion(dir.file("no/tree"), nullptr)) << "nor a parent";
}

TEST(DeleteDirectory, RefusesWhatIsNoName) {
  const KyrTest::TempDir dir;
  const QString file = dir.write("file", "kept");
  for (const QString& name : {QString(), QString("/"), QString("."), dir.path() + "/..", file,
                              dir.file("a") + QChar::Null, dir.path() + "/./"}) {
    Kyr::ErrorLog log;
    EXPECT_FALSE(OS::deleteDirectoryRecursion(name, &log) || !log.isLog()) << name.toStdString();
    EXPECT_FALSE(OS::deleteDirectoryRecursion(name, nullptr));
  }
  EXPECT_EQ(KyrTest::readFile(file), "kept");
}

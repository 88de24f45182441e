// The desktop, played by a program of the same name as its own.
#include "support/Support.h"

#include <kyr/core/KyrException.h>
#include <kyr/os/KyrOS.h>

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>

#include <sys/stat.h>

using Kyr::OS;

namespace {

TEST(OpenOnDesktopPosix, HandsOverOneArgument) {
  const KyrTest::TempDir dir;
  const QString pipe = dir.file("pipe");
  ASSERT_EQ(::mkfifo(pipe.toUtf8().constData(), 0600), 0);
  const QString opener =
      dir.write("xdg-open", "#!/bin/sh\nprintf '%s:%s' $# \"$1\" >'" + pipe.toUtf8() + "'\n");
  QFile(opener).setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
  const QString document = dir.write("-a $HOME;b.txt", "x");
  const KyrTest::ScopedEnvironment path("PATH", dir.path().toUtf8());
  const QString before = QDir::currentPath();
  ASSERT_TRUE(QDir::setCurrent(dir.path()));
  const struct {
    QString given;
    QString received;
  } rows[] = {
      {"-a $HOME;b.txt", document},
      {document, document},
      {"HTTPS://host/?a=b&c#d", "HTTPS://host/?a=b&c#d"},
      {"mailto:a@b", "mailto:a@b"},
      {".", dir.path()},
  };
  for (const auto& row : rows) {
    OS::openOnDesktop(row.given);
    EXPECT_EQ(KyrTest::readFile(pipe).toStdString(), "1:" + row.received.toStdString());
  }
  QDir::setCurrent(before);
  QFile::remove(opener);
  EXPECT_THROW(OS::openOnDesktop(document), Kyr::Exception) << "there is no desktop";
}

TEST(SystemPosix, IsCalledAsItCallsItself) {
  const QByteArray release = KyrTest::readFile("/etc/os-release");
  const QString name = OS::getSystemName();
  EXPECT_TRUE(release.contains("PRETTY_NAME=\"" + name.toUtf8() + '"')) << name.toStdString();
  EXPECT_TRUE(KyrTest::readFile("/proc/version").contains(' ' + OS::getSystemVersion().toUtf8()));
}

}  // namespace

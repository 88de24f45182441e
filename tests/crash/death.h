/// \file
/// A program that dies as it is told, and what it leaves behind.
#pragma once

#include "support/Support.h"

namespace KyrTest {

/// How a program ended that wrote both its streams to a file.
struct Death {
  bool exited = false;
  int code = -1;
  QString report;  // without the line that the library greets with
  QStringList dumps;
  QByteArray errors;  // of the standard error that it was started with
};

/// \param folder the program's temporary directory
/// \param variables of its environment, as "NAME=value"
inline Death die(const TempDir& folder, const QStringList& words,
                 const QStringList& variables = {}) {
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  for (const char* name : {"TMPDIR", "TEMP", "TMP", "KYR_CONFIG_DIR"}) {
    environment.insert(name, QDir::toNativeSeparators(folder.path()));
  }
  const QString log = folder.file("report.txt");
  QFile::remove(log);
  environment.insert("KYR_CONSOLE", "file:" + log);
  for (const QString& variable : variables) {
    environment.insert(variable.section('=', 0, 0), variable.section('=', 1));
  }
  QProcess process;
  process.setProcessEnvironment(environment);
  process.start(KYR_CRASH, words);
  EXPECT_TRUE(process.waitForFinished(100'000)) << process.errorString().toStdString();
  const QString text = QString::fromUtf8(QFile::exists(log) ? readFile(log) : "").remove('\r');
  return {process.exitStatus() == QProcess::NormalExit, process.exitCode(),
          text.mid(text.indexOf('\n') + 1), QDir(folder.path()).entryList({"ORV-*.dmp"}),
          process.readAllStandardError().replace('\r', "")};
}

class Crash : public testing::Test {
 protected:
  void SetUp() override { KYR_SKIP_SANITIZERS("they report faults in the place of the library"); }
};

/// Makes the dump of an earlier crash, so many hours old.
inline QString plantDump(const TempDir& folder, const QString& name, int hours) {
  QFile dump(folder.write(name, "old"));
  EXPECT_TRUE(dump.open(QIODevice::ReadWrite) &&
              dump.setFileTime(QDateTime::currentDateTime().addSecs(-3600 * qint64(hours)),
                               QFileDevice::FileModificationTime));
  return dump.fileName();
}

/// Makes the processes of the test take a dump for one that is being written.
void lockDump(const QFile& dump);

/// The name of the dump of a process whose number no process of the test has.
inline QString numberedDump(int number) {
  return QString("ORV-%1.dmp").arg(4'000'000'000U + unsigned(number));
}

}  // namespace KyrTest

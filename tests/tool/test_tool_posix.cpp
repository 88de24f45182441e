#include "support/Support.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QProcess>

TEST(ToolOnLinux, EndsInOrderWithoutMemory) {
#if defined(KYR_THREAD_SANITIZER) || defined(KYR_ADDRESS_SANITIZER)
  GTEST_SKIP() << "sanitizers need more addresses than a limit leaves";
#endif
  const KyrTest::TempDir folder;
  QFile large(folder.file("large"));
  EXPECT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(500'000'000));
  for (const char* const words : {"tar list large", "sort large"}) {
    QProcess tool;
    tool.setWorkingDirectory(folder.path());
    tool.start("/bin/sh", {"-c", QString("ulimit -v 300000; exec \"$0\" %1").arg(words), KYR_TOOL});
    EXPECT_TRUE(tool.waitForFinished()) << words;
    EXPECT_TRUE(tool.exitStatus() == QProcess::NormalExit && tool.exitCode() == 1) << words;
    EXPECT_EQ(tool.readAllStandardError(), "kyr: not enough memory\n") << words;
  }
}

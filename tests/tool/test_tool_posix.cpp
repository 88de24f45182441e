#include "tool/answers.h"

TEST(ToolOnLinux, EndsInOrderWithoutMemory) {
  KYR_SKIP_SANITIZERS("they need more addresses than a limit leaves");
  const KyrTest::TempDir folder;
  QFile large(folder.file("large"));
  EXPECT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(500'000'000));
  for (const char* const words : {"tar list large", "sort large"}) {
    const KyrTest::Ended ended = KyrTest::runProgram(
        "/bin/sh", {"-c", QString("ulimit -v 300000; exec \"$0\" %1").arg(words), KYR_TOOL},
        folder.path());
    EXPECT_TRUE(ended.exited && ended.code == 1) << words;
    EXPECT_EQ(ended.errors, "kyr: not enough memory\n") << words;
  }
}

TEST(ToolOnLinux, ReadsAndSpeaksAsItsUserDoes) {
  const KyrTest::TempDir folder;
  const KyrTest::ScopedEnvironment locale("LC_ALL", "de_DE.UTF-8");
  KyrTest::expectAnswers(
      folder, {{"convert 25,4mm inch", 0, "$25.4 mm = 1 inch\n", "", "a German quantity"},
               {"convert 1.000mm in", 2, "$", "1.000 kann 1 oder 1000 sein", "two readings"},
               {"convert 1 mm in --digit=3", 2, "$", "war --digits gemeint?\nAufruf: kyr convert",
                "faults"},
               {"help tar extract", 0, "erklärt den Befehl\n", "", "help"},
               {"changelog", 0, "</span> new <code", "", "a page in English for everybody"}});
  const KyrTest::ScopedEnvironment language("LANGUAGE", "ja");
  KyrTest::expectAnswers(folder,
                         {{"help zip pack", 0, "を指定すると、\n  チャンクに分けます\n", "",
                           "a line of wide letters ends at the edge, and not before a comma"}});
}

#include <kyr/files/KyrFileParse.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

TEST(KeyedText, PipesLoseNoLine) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipe(::popen("printf 'A 1\\nB 2\\n'", "r"),
                                                             &::pclose);
  Kyr::FileParse::File file(pipe.get());
  Kyr::FileParse::File copy(file);
  EXPECT_EQ(file.getNumberOfLines(), 0) << "counting would lose the lines";
  int first = 0;
  int second = 0;
  file.getInt("A", first);
  copy.getInt("B", second);
  EXPECT_EQ(first * 10 + second, 12);
  EXPECT_THROW(file.getLine(""), Kyr::FileParse::EndOfFile);
}

#include <kyr/files/KyrFileParse.h>

#include <gtest/gtest.h>

#include <cstdio>
#include <memory>

#include <unistd.h>

namespace {

/// What was written to a pipe, for reading.
std::unique_ptr<std::FILE, int (*)(std::FILE*)> pipeWith(const std::string& bytes) {
  int ends[2] = {-1, -1};
  EXPECT_EQ(::pipe(ends), 0);
  EXPECT_EQ(::write(ends[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  ::close(ends[1]);
  return {::fdopen(ends[0], "rb"), &std::fclose};
}

TEST(KeyedText, PipesLoseNoLine) {
  for (const std::string head : {"", "# <defaultcodec>utf-8</defaultcodec>\n"}) {
    const auto stream = pipeWith(head + "A 1\nB 2\n");
    Kyr::FileParse::File file(stream.get());
    Kyr::FileParse::File copy(file);
    int value = 0;
    EXPECT_EQ(file.getNumberOfLines(), 0) << "counting would lose the lines";
    file.getInt("A", value);
    EXPECT_EQ(value, 1);
    copy.getInt("B", value);
    EXPECT_EQ(value, 2);
    EXPECT_THROW(file.getLine(""), Kyr::FileParse::EndOfFile);
  }
}

}  // namespace

#include "support/Support.h"

using namespace Kyr;
using KyrTest::inChild;

namespace {

template <class Caught, class Thrown>
bool catches() {
  try {
    throw Thrown("text");
  } catch (const Caught& error) {
    return error.what() == std::string("text");
  } catch (...) {
    return false;
  }
}

}  // namespace

TEST(Exception, KeepsItsTextAsUtf8AndIsCaughtByEachBase) {
  for (const char* text : {"", "Pr\xC3\xBC\x66ma\xC3\x9F \xF0\x9F\x98\x80"}) {
    EXPECT_STREQ(Exception(QString::fromUtf8(text)).what(), text);
    EXPECT_EQ(Exception(QString::fromUtf8(text)).getText(), QString::fromUtf8(text));
  }
  EXPECT_STREQ(Exception().what(), "");
  EXPECT_TRUE((catches<FileParse::Error, FileParse::EndOfFile>()));
  EXPECT_TRUE((catches<Exception, FileParse::EndOfFile>()));
  EXPECT_TRUE((catches<std::logic_error, FileParse::EndOfFile>()));
  EXPECT_FALSE((catches<FileParse::EndOfFile, FileParse::Error>()));
  EXPECT_EQ(FileParse::Error("text").getSentence(), "text") << "an application's own is lost";
  EXPECT_EQ(FileParse::Error("text").getPlace().toText(), "");
  EXPECT_EQ(sizeof(FileParse::EndOfFile), sizeof(std::logic_error))
      << "programs that were compiled before throw too little memory";
}

TEST(ProgError, ExitsWithoutCleanUpWhenAsked) {
  const auto ended = inChild([] {
    static_cast<void>(std::atexit([] { std::fputs("clean-up ran", stderr); }));
    throw ProgError("no root", false);
  });
  EXPECT_EQ(ended.code, 1);
  EXPECT_EQ(ended.errors, "\nInternal program error: no root\n\n");
}

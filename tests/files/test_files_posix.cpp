#include <kyr/files/KyrFileParse.h>

#include "support/Support.h"

using Kyr::FileParse::File;

TEST(KeyedText, WhatTheDiskRefusesIsNoEnd) {
  const QString name = "/proc/self/mem";  // opens, but has nothing where it begins
  const std::string error = name.toStdString() + ":1: the file cannot be read to its end";
  QString key;
  const std::function<void(File&)> operations[] = {
      [&](File& file) { file.getLine(""); },
      [&](File& file) { file.peekKey(key); },
      [&](File& file) { file.getNumberOfLines(); },
      [&](File& file) { file.getStringFromBlankLine(); },
  };
  for (const auto& operation : operations) {
    File file(name);
    EXPECT_EQ(KyrTest::failure([&] { operation(file); }), error);
  }
}

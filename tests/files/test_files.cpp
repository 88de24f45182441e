#include "support/Support.h"

#include <kyr/files/KyrFileParse.h>

#include <gtest/gtest.h>

#include <QList>
#include <QRegularExpression>

#include <cstdio>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Kyr::FileParse::File;
using KyrTest::Stream;
using Texts = std::vector<std::string>;

Stream streamOf(const std::string& bytes) {
  Stream stream = KyrTest::temporaryStream();
  std::fwrite(bytes.data(), 1, bytes.size(), stream.get());
  std::rewind(stream.get());
  return stream;
}

template <class Number>
std::string shown(Number value) {
  return QByteArray::number(static_cast<double>(value), 'g', 17).toStdString();
}
std::string shown(const QString& value) {
  return "[" + value.toStdString() + "]";
}

/// The data lines that are left, with their numbers.
std::string dataLines(File& file) {
  std::string lines;
  try {
    for (;;) {
      file.getLine("");
      const bool cutOff = !file.getDataLine().endsWith(file.getCurrentLine());
      lines += cutOff ? "" : shown(file.getPhysicalLineNumber()) + shown(file.getDataLine());
    }
  } catch (const Kyr::FileParse::EndOfFile&) {
    return lines;
  }
}

// clang-format off
/// One operation, on one line each: a letter and its key, name or count.
std::string apply(File& file, char letter, const char* key) {
  const bool first = letter < 'a';
  const auto takeInt = [&](auto value) { return first ? file.getInt(key, value) : file.nextInt(value), shown(value); };
  double number = 0;
  QString text;
  switch (letter | 32) {
    case 'i': return takeInt(0);
    case 'u': return takeInt(0U);
    case 'b': return takeInt(false);
    case 'c': return takeInt('\0');
    case 'h': return takeInt(static_cast<unsigned char>(0));
    case 'd': return first ? file.getDouble(key, number) : file.nextDouble(number), shown(number);
    case 's': return first ? file.getString(key, text) : file.nextString(text), shown(text);
    case 'r': return file.getStringLine(key, text), shown(text);
    case 'v': return file.nextStringValue(key, text), shown(text);
    case 'k': return file.skipChars(static_cast<unsigned>(std::stoi(key))), ".";
    case 'l': return file.getLine(key), ".";
    case 'a': return dataLines(file);
    case 'w': return shown(file.getStringFromBlankLine());
    case 't': return shown(file.getDataLine());
    case 'n': return shown(file.getLineNumber());
    case 'p': return shown(file.getPhysicalLineNumber());
    case '#': return shown(file.getNumberOfLines());
    case 'e': return file.atEndOfLine() ? "end" : "more";
    case '!': return file.setStrict(!file.isStrict()), ".";
    case '?': return file.endedInside() ? "inside" : "whole";
    default: return shown(file.getCurrentLine());
  }
}
// clang-format on

/// The results of a script of operations, divided by blanks.
std::string run(File& file, const std::string& script) {
  std::istringstream steps(script);
  std::string results;
  for (std::string step; steps >> step; results += steps.eof() ? "" : " ") {
    try {
      results += apply(file, step[0], step.c_str() + 1);
    } catch (const Kyr::FileParse::EndOfFile& end) {
      results += "EOF" + end.getText().toStdString();
    } catch (const Kyr::FileParse::Error& error) {
      results += "Error" + error.getText().toStdString();
    }
  }
  return results;
}

TEST(KeyedText, Operations) {
  const KyrTest::ScopedLocale german("de_DE.UTF-8");
  const QString folder = KYR_TEST_DATA "/";
  const auto unescape = [](const QByteArray& field) {
    return QByteArray::fromPercentEncoding(field.trimmed(), '\\').toStdString();
  };
  int rows = 0;
  for (QByteArray row : KyrTest::readFile(folder + "keyed-operations.txt").split('\n')) {
    const QList<QByteArray> fields = row.replace("LONG", QByteArray(4092, 'x')).split('|');
    if (fields.size() == 5) {
      SCOPED_TRACE(fields[4].toStdString());
      const Stream stream = streamOf(
          row[0] == '@' ? KyrTest::readFile(folder + fields[0].mid(1).trimmed()).toStdString()
                        : unescape(fields[0]));
      File file(stream.get(), static_cast<Kyr::TextCodec_t>(fields[1].toInt()));
      EXPECT_EQ(run(file, unescape(fields[2])), unescape(fields[3]));
      ++rows;
    }
  }
  EXPECT_GE(rows, 50);
}

// clang-format off
const Texts pieces = {"N", "POINT", " ", " ", "\t", "  ", "12", "-7", "+", "3.2e-2", ".5", "nan", "0x1",
                      "inf", "a=\"b c\"", "\"", "=", "word", "\v\f#", "\n", "\n", "\n", "99999999999"};
const Texts wildPieces = {"\\\n", "\r\n", "\xC3\xA4", "\xD9\xA3", "\xFF", "\\", "\xEF\xBB\xBF",
                          std::string(1, '\0'), std::string(4093, 'x')};
const Texts valueOperations = {"i", "u", "b", "c", "h", "d", "s", "va", "k1"};
const Texts otherOperations = {"L", "LN", "IN", "DN", "SPOINT", "RN", "k9", "w", "n", "p", "#", "=", "t", "e"};
// clang-format on

const std::string& oneOf(const Texts& texts, std::mt19937& random) {
  return texts[random() % texts.size()];
}

std::string randomText(std::mt19937& random, int length, bool wild) {
  std::string made;
  while (length-- > 0) {
    made += oneOf(wild && random() % 4 == 0 ? wildPieces : pieces, random);
  }
  return made;
}

TEST(KeyedText, AsciiReadsAsAllOtherText) {
  const QRegularExpression lines("(^|\n)([^#\n][^\n]*)");
  int compared = 0;
  for (unsigned seed = 0; seed < 2000; ++seed) {
    std::mt19937 random(seed);
    const std::string bytes = "N 1\n" + randomText(random, 60, false);
    const Stream stream = streamOf(bytes);
    const QString longer = QString::fromStdString(bytes).replace(lines, "\\1\\2 \u00E4");
    const Stream umlauts = streamOf(longer.toLatin1().toStdString());
    File plain(stream.get());
    File other(umlauts.get());
    while (run(plain, "L") == "." && run(other, "L") == ".") {
      for (int i = 0; i < 20 && !plain.atEndOfLine(); ++i, ++compared) {
        ASSERT_EQ(plain.getCurrentLine() + QString::fromLatin1(" \xE4"), other.getCurrentLine());
        const std::string& operation = oneOf(valueOperations, random);
        ASSERT_EQ(run(plain, operation), run(other, operation)) << seed << operation;
      }
    }
  }
  EXPECT_GT(compared, 20000);
}

TEST(KeyedText, DamageKeepsWhatCameBefore) {
  for (unsigned seed = 0; seed < 3000; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 random(seed);
    const std::string good = randomText(random, 20, true) + "\nEND\n";
    std::string bytes = good + randomText(random, 20, true);
    const std::size_t place = good.size() + random() % (bytes.size() - good.size());
    bytes[place] = static_cast<char>(bytes[place] ^ (1 << random() % 8));
    bytes.resize(random() % 2 == 0 ? place : bytes.size());
    const Stream goodStream = streamOf(good);
    File before(goodStream.get());
    const Stream stream = streamOf(bytes);
    File after(stream.get());
    const std::string lines = run(before, "a");
    ASSERT_EQ(run(after, "a").substr(0, lines.size()), lines);
    std::rewind(stream.get());
    for (int i = 0; i < 60; ++i) {
      run(after, oneOf(random() % 3 == 0 ? otherOperations : valueOperations, random));
    }
    run(after, "a");
    ASSERT_EQ(run(after, "L w"), "EOF EOF");
  }
}

TEST(KeyedText, CopiesShareTheStreamAndNothingElse) {
  const Stream stream = streamOf("A 1 2\nB 3\nC 4\n");
  File first(stream.get());
  EXPECT_EQ(run(first, "IA"), "1");
  File second(first);
  EXPECT_EQ(run(second, "i IB n"), "2 3 2");
  EXPECT_EQ(run(first, "n i IC"), "1 2 4");
  second = first;
  EXPECT_EQ(run(second, "n t L"), "2 [C 4] EOF");
  std::fputs("D\\", stream.get());
  std::fseek(stream.get(), -2, SEEK_CUR);
  EXPECT_EQ(run(first, "L ?"), ". inside");
  std::rewind(stream.get());
  EXPECT_EQ(run(first, "LA ?"), ". whole") << "an earlier end of the stream is remembered";
}

TEST(KeyedText, PipesLoseNoLine) {
  const Stream pipe = KyrTest::pipeStream("A 1\nB 2\n");
  File file(pipe.get());
  File copy(file);
  EXPECT_EQ(run(file, "# IA"), "0 1") << "counting would lose the lines";
  EXPECT_EQ(run(copy, "IB"), "2");
  EXPECT_EQ(run(file, "L"), "EOF");
}

TEST(KeyedText, WhatCannotBeReadHasNoLines) {
  const KyrTest::TempDir directory;
  const auto open = [](const QString& path, const char* mode) {
    return Stream(std::fopen(path.toStdString().c_str(), mode), &std::fclose);
  };
  const Stream streams[] = {open(directory.path(), "rb"), open(directory.file("new"), "wb"),
                            Stream(nullptr, &std::fclose)};
  for (const Stream& stream : streams) {
    File file(stream.get());
    EXPECT_EQ(run(file, "# L LN w i ="), "0 EOF EOF EOF Error []");
  }
}

}  // namespace

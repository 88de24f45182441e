#include "support/Support.h"

#include <kyr/files/KyrFileParse.h>

#include <gtest/gtest.h>

#include <QDir>

#include <cstdio>
#include <memory>
#include <random>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

namespace {

using Kyr::FileParse::File;
using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;
using Texts = std::vector<std::string>;

Stream streamOf(const std::string& bytes) {
  Stream stream(std::tmpfile(), &std::fclose);
  std::fwrite(bytes.data(), 1, bytes.size(), stream.get());
  std::rewind(stream.get());
  return stream;
}

std::string shown(double value) {
  return QByteArray::number(value, 'g', 17).toStdString();
}
std::string shown(const QString& value) {
  return "[" + value.toStdString() + "]";
}

// clang-format off: one operation, one line
/// One operation: a letter and its key, name or count.
std::string apply(File& file, char operation, const char* key) {
  const auto get = [&](auto value) { return file.getInt(key, value), shown(value); };
  const auto next = [&](auto value) { return file.nextInt(value), shown(value); };
  double number = 0;
  QString text;
  switch (operation) {
    case 'L':
      return file.getLine(key), ".";
    case 'I':
      return get(0);
    case 'U':
      return get(0U);
    case 'B':
      return get(false);
    case 'C':
      return get('\0');
    case 'H':
      return get(static_cast<unsigned char>(0));
    case 'D':
      return file.getDouble(key, number), shown(number);
    case 'S':
      return file.getString(key, text), shown(text);
    case 'R':
      return file.getStringLine(key, text), shown(text);
    case 'i':
      return next(0);
    case 'u':
      return next(0U);
    case 'b':
      return next(false);
    case 'c':
      return next('\0');
    case 'h':
      return next(static_cast<unsigned char>(0));
    case 'd':
      return file.nextDouble(number), shown(number);
    case 's':
      return file.nextString(text), shown(text);
    case 'v':
      return file.nextStringValue(key, text), shown(text);
    case 'k':
      return file.skipChars(static_cast<unsigned>(std::stoi(key))), ".";
    case 'r':
      return shown(file.getStringFromBlankLine());
    case '=':
      return shown(file.getCurrentLine());
    case 't':
      return shown(file.getDataLine());
    case 'n':
      return std::to_string(file.getLineNumber());
    case 'p':
      return std::to_string(file.getPhysicalLineNumber());
    case '#':
      return std::to_string(file.getNumberOfLines());
    default:
      return file.atEndOfLine() ? "end" : "more";
  }
}
// clang-format on

/// The results of a script of operations, divided by blanks.
std::string run(File& file, const std::string& script) {
  std::istringstream steps(script);
  std::string results;
  for (std::string step; steps >> step;) {
    results += results.empty() ? "" : " ";
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
  const auto unescape = [](const QByteArray& field) {
    return QByteArray::fromPercentEncoding(field.trimmed(), '\\').toStdString();
  };
  int rows = 0;
  for (QByteArray& row : KyrTest::readFile(KYR_TEST_DATA "/keyed-operations.txt").split('\n')) {
    const QList<QByteArray> fields = row.replace("LONG", QByteArray(4092, 'x')).split('|');
    if (fields.size() == 5) {
      ++rows;
      SCOPED_TRACE(fields[4].toStdString());
      const Stream stream = streamOf(unescape(fields[0]));
      File file(stream.get(), static_cast<Kyr::TextCodec_t>(fields[1].toInt()));
      EXPECT_EQ(run(file, unescape(fields[2])), unescape(fields[3]));
    }
  }
  EXPECT_EQ(rows, 43);
}

/// All data lines with their numbers.
Texts dataLines(const std::string& bytes) {
  const Stream stream = streamOf(bytes);
  File file(stream.get());
  Texts lines;
  while (run(file, "L") == ".") {
    if (file.getDataLine().endsWith(file.getCurrentLine())) {  // not cut off by the end
      lines.push_back(run(file, "p t"));
    }
  }
  return lines;
}

TEST(KeyedText, SamplesReadAsTheirListsSay) {
  int samples = 0;
  for (const QString folder : {KYR_TEST_DATA "/good/", KYR_TEST_DATA "/broken/"}) {
    for (const QString& name : QDir(folder).entryList({"keyed-*.txt"})) {
      std::string listed;
      for (const std::string& line : dataLines(KyrTest::readFile(folder + name).toStdString())) {
        listed += line + '\n';
      }
      EXPECT_EQ(listed, KyrTest::readFile(folder + name.chopped(3) + "list").toStdString());
      ++samples;
    }
  }
  EXPECT_GE(samples, 8);
}

const Texts pieces = {"N", "POINT",  " ",     " ",   "\t",  "  ",          "12",        "-7",
                      "+", "3.2e-2", ".5",    "nan", "0x1", "inf",         "a=\"b c\"", "\"",
                      "=", "word",   "\v\f#", "\n",  "\n",  "99999999999", "\n"};
const Texts wildPieces = {"\\\n",
                          "\r\n",
                          "\xC3\xA4",
                          "\xD9\xA3",
                          "\xFF",
                          "\\",
                          "\xEF\xBB\xBF",
                          "# <defaultcodec>utf-8</defaultcodec>\n",
                          std::string(1, '\0'),
                          std::string(4093, 'x')};
const Texts valueOperations = {"i", "u", "b", "c", "h", "d", "s", "va", "k1"};
const Texts otherOperations = {"L", "LN", "IN", "DN", "SPOINT", "RN", "k9",
                               "r", "n",  "p",  "#",  "=",      "t",  "e"};

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
  int compared = 0;
  for (unsigned seed = 0; seed < 2000; ++seed) {
    std::mt19937 random(seed);
    const std::string bytes = "N 1\n" + randomText(random, 60, false);
    const Stream stream = streamOf(bytes);
    const Stream umlauts =
        streamOf(std::regex_replace(bytes, std::regex("(^|\n)([^#\n][^\n]*)"), "$1$2 \xE4"));
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
    std::string bytes = randomText(random, 40, true);
    const std::size_t place = random() % bytes.size();
    Texts before = dataLines(bytes.substr(0, bytes.rfind('\n', place) + 1));
    before.resize(before.size() - (before.empty() ? 0 : 1));  // the last may be continued
    bytes[place] = static_cast<char>(bytes[place] ^ (1U << random() % 8));
    bytes = random() % 2 == 0 ? bytes : bytes.substr(0, place) + randomText(random, 20, true);
    Texts after = dataLines(bytes);
    after.resize(std::min(before.size(), after.size()));
    ASSERT_EQ(after, before);

    const Stream stream = streamOf(bytes);
    File file(stream.get(), Kyr::CodecUtf8);
    for (int i = 0; i < 60; ++i) {
      run(file, oneOf(random() % 3 == 0 ? otherOperations : valueOperations, random));
    }
    for (int steps = 0; run(file, "L") != "EOF"; ++steps) {
      ASSERT_LT(steps, 100) << "the end never comes";
    }
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
}

TEST(KeyedText, WhatCannotBeReadHasNoLines) {
  const KyrTest::TempDir directory;
  const auto open = [](const QString& path, const char* mode) {
    return Stream(std::fopen(path.toStdString().c_str(), mode), &std::fclose);
  };
  const Stream folder = open(directory.path(), "rb");
  const Stream written = open(directory.file("written"), "wb");
  for (std::FILE* const stream : {folder.get(), written.get(), static_cast<std::FILE*>(nullptr)}) {
    File file(stream);
    EXPECT_EQ(run(file, "# L LN r i ="), "0 EOF EOF EOF Error []");
  }
}

}  // namespace

#include "support/Support.h"

#include <kyr/files/KyrFileParse.h>
#include <kyr/i18n/KyrTranslate.h>

namespace {

using Kyr::FileParse::File;
using KyrTest::Stream;

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

std::string shown(const std::vector<double>& values) {
  std::string all;
  for (const double value : values) {
    all += (all.empty() ? "" : ",") + shown(value);
  }
  return "{" + all + "}";
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
  std::vector<double> numbers = {7};
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
    case 'f': { float value = 0; return first ? file.getFloat(key, value) : file.nextFloat(value), shown(value); }
    case 'q': { qint64 value = 0; return first ? file.getInt(key, value) : file.nextInt(value), QString::number(value).toStdString(); }
    case 'x': { quint64 value = 0; return first ? file.getInt(key, value) : file.nextInt(value), QString::number(value).toStdString(); }
    case 'm': return first ? file.getDoubles(key, numbers) : file.nextDoubles(numbers), shown(numbers);
    case 'y': return file.peekKey(text) ? shown(text) : "none";
    case 'o': return Kyr::getNameForCodec(file.getCodec());
    case '&': return file.getPlace().toText().toStdString() + shown(file.getPlace().token);
    case 'z': file.fail("refused", QString(key).toInt());
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

/// The sentence of the last step's error, without the file's name.
QString lastError(File& file, const QStringList& steps, QString& text) {
  QString sentence;
  for (const QString& step : steps) {
    try {
      const QByteArray key = step.mid(1).toLatin1();
      apply(file, step[0].toLatin1(), key.constData());
      sentence = "none";
    } catch (const Kyr::FileParse::Error& error) {
      sentence = error.getSentence();
      text = error.getText();
      EXPECT_EQ(Kyr::translate(error), sentence);
      EXPECT_EQ(sentence.indexOf(error.getPlace().toText()), 0);
    }
  }
  return sentence;
}

TEST(KeyedText, ErrorsTellTheirPlace) {
  const QByteArray x(4094, 'x');
  const QByteArray marker = "# <defaultcodec>utf-8</defaultcodec>\n";
  const QString a40 = QString(37, 'a') + "...";
  const struct {
    QByteArray bytes;
    const char* script;
    QString error;  // line, column and reason
    const char* fault;
  } rows[] = {
      {"A 1\n\n#\nB  1O.5 x\n", "LA LB i i", "4:5: \"O.5\" is no integer",
       "lines without data count"},
      {"A\t\t12 .. 3\n", "LA i d", "1:7: \"..\" is no number", "a tab is one character"},
      {"A 1 \n", "LA i i", "1:5: a value is missing", "behind the last blank of the line"},
      {"A x=\"1\"  \n", "LA vx i", "1:10: a value is missing", "blanks are no value"},
      {"A 2147483648x\n", "IA", "1:3: \"2147483648x\" is not within -2147483648 ... 2147483647",
       "32 bits"},
      {"A -99999999999999999999\n", "QA",
       "1:3: \"-99999999999999999999\" is not within -9223372036854775808 ... 9223372036854775807",
       "64 bits"},
      {"A  -1\n", "XA", "1:4: \"-1\" is not within 0 ... 18446744073709551615",
       "no sign is dropped"},
      {"A 1 -1e39\n", "LA f f", "1:5: \"-1e39\" is not within -3.4028235e+38 ... 3.4028235e+38",
       "a float would be infinite"},
      {"A 1 2 x 3\n", "MA", "1:7: \"x\" is no number", "the wrong one of many values"},
      {"A 1\nAB n='1' 2\n", "LA LAB vn", "2:4: \"n='1'\" is no pair n=\"...\"", "a pair"},
      {"A 1\n", "LA k2", "1:4: the line ends too early", "fewer characters than are dropped"},
      {"A 1\nB 2\n", "LA LX i d", "1:4: a value is missing",
       "a refused line stands for the current one"},
      {"A 1\nB\t2\n", "LA LX", "2:1: \"B\" stands where \"X\" is expected", "another key"},
      {"A 1\n", "LA LA", "2: the file ends where \"A\" is expected", "the end has no column"},
      {"A 1", "LA L", "2: the file ends", "any key"},
      {"A 1\n", "w w", "2: the file ends", "raw lines"},
      {marker + "A ä😀 x\n", "LA s d", "2:6: \"x\" is no number",
       "columns are neither bytes nor halves of pairs; the marker is a line"},
      {"A 1 \\\n  2 \\\n\\\n x\n", "LA i i i", "4:2: \"x\" is no integer",
       "a value stands in the line where the editor shows it"},
      {"A 1 \\\n x\nA y\n", "LA i LA i", "3:3: \"y\" is no integer",
       "pieces of an earlier line count"},
      {"A" + x + " 1 x\n", "LA Lxx", "1:4097: \"1\" stands",
       "the second part of a long line begins in its middle"},
      {x + "\\x y\n", "Lx s i", "1:4098: \"y\" is no integer",
       "a backslash that is no end of a line counts"},
      {"#" + x + "A y\nA x\n", "IA", "1:4098: ", "a long comment goes on as data"},
      {"A 1\nB 2 \\\n 3\\", "! LA LB", "3:3: the file ends in the middle of this line",
       "cut short"},
      {"A " + QByteArray(50, 'a') + "\n", "IA", "1:3: \"" + a40 + "\" is no integer",
       "a long word fills the screen"},
      {"A \x1b[2J%2\n", "IA", "1:3: \"?[2J%2\" is no integer",
       "content steers the terminal, or the sentence"},
      {"AB 12 x\n", "LA s s z", "1:4: refused", "a value that the program refuses"},
      {"A k=\"1 2\"  \n", "LA vk z2", "1:8: refused", "a place within such a value"},
      {"A ab  \n", "RA z9", "1:5: refused", "a place behind the value"},
      {"A 12\\\n34\n", "IA z2", "2:1: refused", "a place in the next line of such a value"},
      {"A 1\n", "LA y z", "1:1: refused", "to look on is to take"},
  };
  const KyrTest::ScopedLocale german("de_DE.UTF-8");
  const KyrTest::TempDir directory;
  for (const auto& row : rows) {
    SCOPED_TRACE(row.fault);
    const QStringList steps = QString(row.script).split(' ');
    const QString name = directory.write("points.txt", row.bytes);
    QString text;
    File named(name);
    named.setStrict(false);
    const QString sentence = lastError(named, steps, text);
    EXPECT_EQ(sentence.left(name.size() + 1 + row.error.size()).toStdString(),
              (name + ":" + row.error).toStdString());
    EXPECT_EQ(text, sentence);
    const Stream stream = streamOf(row.bytes.toStdString());
    File unnamed(stream.get());
    const QString unnamedSentence = lastError(unnamed, steps, text);
    const QString place = sentence.mid(name.size() + 1);
    EXPECT_EQ(unnamedSentence,
              QString(place)
                  .replace(QRegularExpression("^(\\d+)"), "line \\1")
                  .replace(QRegularExpression("^(line \\d+):(\\d+)"), "\\1, column \\2"));
    EXPECT_EQ(text, steps.last()[0] == 'z' ? unnamedSentence : QString())
        << "an old message changed";
  }
}

TEST(KeyedText, FilesOpenByName) {
  const KyrTest::TempDir directory;
  const QString name = directory.write("a.txt", "# <defaultcodec>utf-8</defaultcodec>\nA 1\nB 2\\");
  auto first = std::make_unique<File>(name);
  File second(*first);
  first.reset();
  EXPECT_EQ(run(second, "IA o").c_str(), std::string("1 utf-8")) << "closed too early";
  EXPECT_EQ(second.getFileName(), name);
  EXPECT_THROW(second.getLine("B"), Kyr::FileParse::Error) << "cut short, and not strict";
  EXPECT_EQ(KyrTest::failure([&] { File file(directory.file("none")); }),
            "cannot open " + directory.file("none").toStdString() +
                ": there is no such file or directory");
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
  EXPECT_EQ(run(file, "y y"), "[B] [B]");
  EXPECT_EQ(run(copy, "y IB"), "[B] 2") << "a copy misses the line that was looked at";
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

#include <kyr/values/KyrColour.h>
#include <kyr/values/KyrFont.h>
#include <kyr/values/KyrSound.h>

#include "support/Support.h"

using namespace Kyr;

namespace {

/// What a value's text becomes when it is read and written; the message where it is refused.
template <class Value>
QString again(const QString& text) {
  try {
    return Value::fromText(text).toText();
  } catch (const Exception& error) {
    return error.getText();
  }
}

TEST(Values, AreReadStrictly) {
  const struct {
    QString (*read)(const QString&);
    QString text;
    QString again;  // with "$" in front a part of the message
    const char* fault;
  } rows[] = {
      {again<Colour>, "255 128 0 7", "255 128 0 7", "the plain form"},
      {again<Colour>, " 1\t2 3 ", "1 2 3 255", "blanks around, and no alpha"},
      {again<Colour>, "#0aFf10", "10 255 16 255", "hexadecimal digits of both cases"},
      {again<Colour>, "#01020380", "1 2 3 128", "hexadecimal with alpha"},
      {again<Colour>, "", "$\"\" is no colour: red, green", "nothing"},
      {again<Colour>, "1 2", "$is no colour", "too few"},
      {again<Colour>, "1 2 3 4 5", "$is no colour", "too many"},
      {again<Colour>, "256 0 0", "$is no colour", "too large a share"},
      {again<Colour>, "#12345", "$is no colour", "five digits"},
      {again<Font>, "DejaVu\\_Sans 10.5 700 italic", "DejaVu\\_Sans 10.5 700 italic", "plain"},
      {again<Font>, "A 9 1 fixed underline", "A 9 1 underline fixed", "styles in any order"},
      {again<Font>, "\\ 0.1", "\\ 0.1 400", "the system's font, normal weight"},
      {again<Font>, QString::fromUtf8("Größe 10000 1000"), "Gr\\xc3\\xb6\\xc3\\x9fe 10000 1000",
       "letters that somebody typed without escapes"},
      {again<Font>, " ", "$the family is one word", "nothing"},
      {again<Font>, "a\\q 10", "$the family is one word", "an escape that does not exist"},
      {again<Font>, "a\\xC3 10", "$the family is one word", "digits that nobody writes"},
      {again<Font>, "a\\xc3 10", "$the family is one word", "half a letter"},
      {again<Font>, "A", "$\"A\" is no font: the size is a number of points", "no size"},
      {again<Font>, "A 0.09", "$the size is", "too small"},
      {again<Font>, "A 10,5", "$the size is", "a comma is of no language here"},
      {again<Font>, "A nan", "$the size is", "what is no number is in no range"},
      {again<Font>, "A 10 0", "$the weight is", "no weight"},
      {again<Font>, "A 10 1001", "$the weight is", "too heavy"},
      {again<Font>, "A 10 400 italic italic", "$each once", "a style twice"},
      {again<Font>, "A 10 400 slanted", "$each once", "an unknown style"},
      {again<Sound>, "done.wav 80 3", "done.wav 80 3", "the plain form"},
      {again<Sound>, "done.wav", "done.wav 100 1", "full volume, once"},
      {again<Sound>, "done.wav 0 0", "done.wav 0 0", "silent and without an end"},
      {again<Sound>, "", "$\"\" is no sound: the file is one word", "nothing"},
      {again<Sound>, "done.wav 101", "$the volume is", "too loud"},
      {again<Sound>, "done.wav 80 1000001", "$the repetitions are", "too often"},
      {again<Sound>, "done.wav 80 -1", "$the repetitions are", "less than never"},
      {again<Sound>, "my done.wav 80 1", "$the volume is", "a blank in a name"},
      {again<Sound>, "done.wav 80 1 2", "$nothing may follow", "a value too many"},
      {again<Sound>, QString(5000, 'a') + " x", "$aaa...\" is no sound",
       "a long text in a message"},
  };
  const KyrTest::ScopedLocale german("de_DE.UTF-8");
  for (const auto& row : rows) {
    const QString result = row.read(row.text);
    const QString part = row.again.mid(1);
    EXPECT_TRUE(row.again.startsWith('$') ? result.contains(part) : result == row.again)
        << row.text.left(100).toStdString() << ": " << row.fault << ": " << result.toStdString();
  }
  EXPECT_EQ(Colour::fromText("1 2 3").toHex(), "#010203");
  EXPECT_EQ(Colour::fromText("#010203fe").toHex(), "#010203fe") << "alpha is lost";
}

TEST(Values, CannotBeMadeWrong) {
  EXPECT_TRUE(Font("A", 0.1, 1000, Font::StyleFixed).has(Font::StyleFixed));
  EXPECT_THROW(Font("A", std::numeric_limits<double>::quiet_NaN()), Exception);
  EXPECT_THROW(Font("A", 10, 0), Exception);
  EXPECT_THROW(Font("A", 10, 400, 16U), Exception) << "a style that could not be written";
  EXPECT_THROW(Sound("a", 101), Exception);
  EXPECT_THROW(Sound("a", 1, -1), Exception);
  EXPECT_TRUE(Sound().isSilent() && Sound("a", 0).isSilent() && !Sound("a").isSilent());
}

TEST(Values, GoThroughFilesOfBothCodecs) {
  const std::pair<QString, const char*> rows[] = {
      {"", "an empty name"},
      {"\\", "the mark of an empty name"},
      {"Noto Sans \"quoted\" #1", "blanks, quotes and the sign of comments"},
      {QString::fromUtf8("Größe 宋体 😀"), "letters that Latin-1 lacks"},
      {"a\tb\nc\rd\ve\x7f", "what divides lines and words"},
      {QString(3, QChar(0)), "zero characters"},
      {QString(QChar(0xfeff)) + "a", "what decoding takes for a byte order mark"},
      {"<defaultcodec>utf-8", "what the first line of a file may not hold"},
      {QString(3995, 'x') + "\\\\\\\\", "backslashes where the line is continued"},
      {QString(33000, QChar(0xe4)), "longer than a reader takes at once"},
  };
  const KyrTest::ScopedLocale german("de_DE.UTF-8");
  const KyrTest::TempDir folder;
  for (const TextCodec_t codec : {CodecLatin1, CodecUtf8}) {
    for (const auto& [name, fault] : rows) {
      const Font font(name, 10.1, 350, Font::StyleStrikeOut | Font::StyleFixed);
      const Sound sound(name, 33, Sound::untilStopped);
      const Colour colour{1, 2, 3, 4};
      const QString lines = font.toLine("FONT") + "\r\n" + sound.toLine("SOUND") + "\n" +
                            colour.toLine("COLOUR") + "\n";
      FILE* const stream =
          std::fopen(qPrintable(folder.write("values", toCodec(codec, lines))), "rb");
      FileParse::File file(stream, codec);
      EXPECT_TRUE(Font::read(file, "FONT") == font) << fault;
      EXPECT_TRUE(Sound::read(file, "SOUND") == sound) << fault;
      EXPECT_TRUE(Colour::read(file, "COLOUR") == colour) << fault;
      std::fclose(stream);
    }
  }
}

TEST(Values, ExplainWhichLineIsWrong) {
  const KyrTest::Stream stream =
      KyrTest::pipeStream("# comment\nFONT A x\nFONTS B 10\nFONT C 10\nCOLOUR\nSOUND a\n");
  FileParse::File file(stream.get());
  const auto message = [&file](auto read, const char* key,
                               FileParse::File* other = nullptr) -> QString {
    try {
      read(other != nullptr ? *other : file, key);
      return "read";
    } catch (const FileParse::EndOfFile& end) {
      EXPECT_TRUE(end.getSentence().contains("FONT\" is expected")) << key;
      return "other key";
    } catch (const FileParse::Error& error) {
      return error.getText();
    }
  };
  EXPECT_TRUE(message(Font::read, "FONT").startsWith("line 2: \"A x\" is no font: the size"));
  EXPECT_EQ(message(Font::read, "FONT"), "other key") << "a longer key passed for this one";
  EXPECT_EQ(message(Font::read, "FONT"), "read") << "no line after a wrong one is read";
  EXPECT_TRUE(message(Colour::read, "COLOUR").startsWith("line 5: \"\" is no colour"));
  EXPECT_EQ(message(Font::read, "FONT"), "other key");
  EXPECT_EQ(message(Font::read, "FONT"), "other key") << "the end of the file";
  for (const bool strict : {false, true}) {
    const KyrTest::Stream cutShort = KyrTest::pipeStream("FONT A 10\\");
    file = FileParse::File(cutShort.get());
    file.setStrict(strict);
    EXPECT_EQ(message(Font::read, "FONT"), "line 1: the file ends in the middle of this line");
  }
  const KyrTest::TempDir folder;
  const QString name = folder.write("look.txt", "FONT  A x\nFONTS B 10\nFONT A 10\\");
  FileParse::File named(name);
  EXPECT_EQ(message(Font::read, "FONT", &named).indexOf(name + ":1:7: \"A x\" is no font: "), 0);
  EXPECT_EQ(message(Font::read, "FONT", &named), "other key");
  EXPECT_EQ(message(Font::read, "FONT", &named),
            name + ":3:10: the file ends in the middle of this line");
}

}  // namespace

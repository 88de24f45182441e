#include "Fuzz.h"

#include <kyr/text/KyrParse.h>
#include <kyr/text/KyrQuoting.h>
#include <kyr/text/KyrTextCodec.h>

#include <QXmlStreamReader>

namespace KyrFuzz {

namespace {

void checkBytes(std::string_view bytes) {
  const QByteArray array = arrayOf(bytes);
  const QString latin = Kyr::fromCodec(Kyr::CodecLatin1, array);
  expect(latin == QString::fromLatin1(array.constData(), array.size()),
         "Qt reads the same Latin-1");
  expect(Kyr::toCodec(Kyr::CodecLatin1, latin) == array, "Latin-1 leads back");
  expect(
      Kyr::fromCodec(Kyr::CodecUtf8, array) == QString::fromUtf8(array.constData(), array.size()),
      "Qt reads the same UTF-8");
}

void checkMarker(const std::string& line) {
  const std::string_view visible = line.c_str();
  const auto holds = [visible](const char* word) {
    return visible.find(word) != std::string_view::npos;
  };
  const bool isMarker = holds("<defaultcodec>") && (holds("utf-8") || holds("iso8859-1"));
  auto codec = static_cast<Kyr::TextCodec_t>(7);
  expect(Kyr::getCodecInLine(line.c_str(), &codec) == isMarker, "a marker is known by its words");
  const auto named = holds("utf-8") ? Kyr::CodecUtf8 : Kyr::CodecLatin1;
  expect(codec == (isMarker ? named : static_cast<Kyr::TextCodec_t>(7)), "UTF-8 wins");
}

/// A POSIX shell takes the word for the text.
QByteArray readByShell(const QByteArray& word) {
  expect(word.size() >= 2 && word.startsWith('"') && word.endsWith('"'), "a word has its quotes");
  QByteArray read;
  for (int i = 1; i < word.size() - 1; ++i) {
    const bool isEscape = word[i] == '\\' && std::strchr("$`\"\\\n", word[i + 1]) != nullptr;
    expect(isEscape || std::strchr("$`\"", word[i]) == nullptr || word[i] == '\0',
           "nothing in a word means something to a shell");
    i += isEscape ? 1 : 0;
    expect(i < word.size() - 1, "the last quote is no part of the word");
    read += word[i];
  }
  return read;
}

void checkQuoting(const QString& text) {
  const QString quoted = Kyr::quotePythonString(text);
  expect(Kyr::unquotePythonString(quoted) == text, "a Python literal leads back");
  for (int i = 0; i < quoted.size(); ++i) {
    i += quoted[i] == '\\' ? 1 : 0;
    expect(i < quoted.size() && quoted[i] != '\n' && (quoted[i] != '\'' || quoted[i - 1] == '\\'),
           "a Python literal ends where it ends");
  }
  expect(readByShell(Kyr::toQuotedShellString(text)) == text.toLocal8Bit(),
         "a shell reads the text");
}

/// A browser shows the text.
void checkRichText(const QString& text, bool nonBreaking) {
  QString page = Kyr::tokenizeRT(text, nonBreaking);
  page.replace("<br>", "\n").replace("&nbsp;", " ");
  QXmlStreamReader xml("<p>" + page + "</p>");
  QString shown;
  while (!xml.atEnd()) {
    xml.readNext();
    expect(xml.tokenType() != QXmlStreamReader::StartElement || xml.name() == QLatin1String("p"),
           "no text makes an element");
    shown += xml.isCharacters() ? xml.text().toString() : QString();
  }
  expect(!xml.hasError() && shown == text, "rich text shows the text");
}

void checkSearches(const QString& text, const QString& set, int from) {
  const std::u16string all = text.toStdU16String();
  const std::u16string some = set.toStdU16String();
  const auto start = static_cast<std::size_t>(from);
  const std::size_t last = start < all.size() ? start : std::u16string::npos;
  const auto same = [](int found, std::size_t expected) {
    return found == (expected == std::u16string::npos ? -1 : static_cast<int>(expected));
  };
  expect(same(Kyr::findFirstOf(text, set, from), all.find_first_of(some, start)) &&
             same(Kyr::findFirstNotOf(text, set, from), all.find_first_not_of(some, start)) &&
             same(Kyr::findLastOf(text, set, from), all.find_last_of(some, last)) &&
             same(Kyr::findLastNotOf(text, set, from), all.find_last_not_of(some, last)),
         "searches find what the standard library finds");
}

bool isXml(QChar character) {
  return character == '\n' || character == '\t' || character >= ' ';
}

}  // namespace

void harness(Choices input) {
  const bool nonBreaking = input.yes();
  const auto from = static_cast<int>(input.upTo(255));
  const std::string_view set = input.line();
  const std::string_view bytes = input.rest();
  checkBytes(bytes);
  checkMarker(std::string(bytes));
  for (const QString& text : {textOf(bytes), halvesOf(bytes)}) {
    checkQuoting(text);
    checkSearches(text, textOf(set), from);
    if (text.isValidUtf16()) {
      const QByteArray utf8 = Kyr::toCodec(Kyr::CodecUtf8, text);
      const bool hasMark = text.startsWith(QChar(0xFEFF));
      expect(Kyr::fromCodec(Kyr::CodecUtf8, utf8) == (hasMark ? text.mid(1) : text),
             "UTF-8 leads back");
    }
  }
  const QString text = textOf(bytes);
  const bool fitsXml = std::all_of(text.begin(), text.end(), isXml) &&
                       !text.contains(QChar(0xFFFE)) && !text.contains(QChar(0xFFFF));
  if (fitsXml && text.isValidUtf16()) {
    checkRichText(text, nonBreaking);
  }
}

}  // namespace KyrFuzz

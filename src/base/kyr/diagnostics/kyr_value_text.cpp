#include <kyr/diagnostics/value_text_p.h>

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/text/KyrParse.h>
#include <kyr/text/KyrString.h>

#include <QRegularExpression>

#include <cstring>

namespace Kyr {

namespace {

constexpr int longestPiece = 4000;  // of a line; a reader takes 4095 bytes at once
constexpr int longestQuotation = 80;

constexpr char codecMark[] = "<defaultcodec>";
constexpr char escapedCodecMark[] = "\\x3cdefaultcodec>";
constexpr char byteOrderMark[] = "\xEF\xBB\xBF";

/// Whether untokenize() would not have to guess.
bool isWord(const QByteArray& word) {
  static const QRegularExpression pattern(R"(\A(?:[^\\]++|\\(?:[abtnvfr_\\]|x[0-9a-f]{2}))++\z)");
  return word == "\\" || pattern.match(QString::fromLatin1(word)).hasMatch();
}

/// What follows the key in the next line, which the end of the file must not cut off.
QString restOfLine(FileParse::File& file, const char* key) {
  QString text;
  try {
    file.getStringLine(key, text);
  } catch (const FileParse::EndOfFile&) {
    throw;
  } catch (const FileParse::Error&) {
    if (!file.endedInside()) {
      throw;
    }
  }
  if (file.endedInside()) {
    throw ValueText::errorInLine(
        file, translate("Kyr_diagnostics", "the file ends in the middle of this line"));
  }
  return text;
}

}  // namespace

QStringList ValueText::wordsOf(const QString& text) {
  return QString(text).replace('\t', ' ').split(' ', Qt::SkipEmptyParts);
}

// In the first line of a file the mark of a codec would make the reader consume that line.
QString ValueText::wordOf(const QString& text) {
  QString word = QString::fromStdString(tokenize(text.toUtf8().toStdString(), true));
  return word.replace(codecMark, escapedCodecMark);
}

bool ValueText::textOf(const QString& word, QString& text) {
  const QByteArray bytes = word.toUtf8();
  if (!isWord(bytes)) {
    return false;
  }
  const QByteArray plain = QByteArray::fromStdString(untokenize(bytes.toStdString(), true));
  const QByteArray marked = byteOrderMark + plain;  // decoding drops one, which may be the text's
  text = QString::fromUtf8(marked.constData(), marked.size());  // with its zero bytes
  return text.toUtf8() == plain;
}

bool ValueText::numberOf(const QString& word, int lowest, int highest, int& number) {
  bool ok = false;
  const int read = qstringToInt(word, &ok);
  if (!ok || read < lowest || read > highest) {
    return false;
  }
  number = read;
  return true;
}

QString ValueText::line(const char* key, const QString& values) {
  const QString whole = QString::fromLatin1(key) + ' ' + values;
  QStringList pieces;
  for (int at = 0; at < whole.size(); at += longestPiece) {
    pieces += whole.mid(at, longestPiece);
  }
  return pieces.join("\\\n");
}

Exception ValueText::refusal(const QString& sentence, const QString& text, const QString& reason) {
  const QString shown = text.size() > longestQuotation ? text.left(longestQuotation) + "..." : text;
  return sentence.arg(shown, reason);
}

QString ValueText::nextLine(FileParse::File& file, const char* key) {
  QString text = restOfLine(file, key);
  const QString line = file.getDataLine();
  const auto length = static_cast<int>(std::strlen(key));
  if (length < line.size() && line.at(length) != ' ') {
    throw FileParse::EndOfFile();
  }
  return text;
}

FileParse::Error ValueText::errorInLine(const FileParse::File& file, const Exception& error) {
  return translate("Kyr_diagnostics", "line %1: %2")
      .arg(QString::number(file.getPhysicalLineNumber()), error.getText());
}

}  // namespace Kyr

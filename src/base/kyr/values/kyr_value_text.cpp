#include <kyr/values/value_text_p.h>

#include <kyr/core/file_parse_error_p.h>
#include <kyr/core/forever_p.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/text/KyrParse.h>
#include <kyr/text/KyrString.h>

#include <QRegularExpression>
#include <QtGlobal>

#include <cstring>
#include <utility>

namespace Kyr {

namespace {

constexpr int longestPiece = 4000;  // bytes of a physical line; a reader takes 4095 at once
constexpr int longestQuotation = 80;

constexpr char codecMark[] = "<defaultcodec>";
constexpr char escapedCodecMark[] = "\\x3cdefaultcodec>";
constexpr char byteOrderMark[] = "\xEF\xBB\xBF";

/// Whether a word holds escapes of tokenize() only, so that untokenize() need not guess.
bool isWord(const QByteArray& word) {
  static const Forever<QRegularExpression> pattern(
      R"(\A(?:[^\\]++|\\(?:[abtnvfr_\\]|x[0-9a-f]{2}))++\z)");
  return word == "\\" || pattern.object.match(QString::fromLatin1(word)).hasMatch();
}

/// What follows the key in the next line, which the end of the file must not cut off.
QString restOfLine(FileParse::File& file, const char* key) {
  QString text;
  try {
    file.getStringLine(key, text);
  } catch (const FileParse::EndOfFile&) {
    throw;
  } catch (const FileParse::Error&) {
    if (!file.endedInside() || !file.getFileName().isEmpty()) {
      throw;
    }
  }
  if (file.endedInside()) {
    ValueText::failInLine(file,
                          translate("Kyr_diagnostics", "the file ends in the middle of this line"));
  }
  return text;
}

}  // namespace

QStringList ValueText::wordsOf(const QString& text) {
  return QString(text).replace('\t', ' ').split(' ', Qt::SkipEmptyParts);
}

// The mark of a codec is escaped: in the first line of a file it would make the reader consume that
// line.
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
  text = QString::fromUtf8(marked.constData(), marked.size());  // zero bytes included
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
    FileParse::Finding finding;
    finding.place = file.getPlace();
    finding.place.column = 1;
    finding.place.token = line.section(' ', 0, 0);
    finding.place.key = key;
    finding.reason = QT_TRANSLATE_NOOP("Kyr_FileParse", "\"%1\" stands where \"%2\" is expected");
    FileParse::raiseEnd(std::move(finding));
  }
  return text;
}

void ValueText::failInLine(const FileParse::File& file, const QString& reason) {
  FileParse::Finding finding;
  finding.place = file.getPlace();
  finding.said = reason;
  const QString line = QString::number(file.getPhysicalLineNumber());
  FileParse::raise(std::move(finding),
                   translate("Kyr_diagnostics", "line %1: %2").arg(line, reason));
}

}  // namespace Kyr

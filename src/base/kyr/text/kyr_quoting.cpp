#include <kyr/text/KyrQuoting.h>

#include <cstring>

namespace Kyr {

namespace {

constexpr QChar quote = QLatin1Char('"');
constexpr QChar backslash = QLatin1Char('\\');

/// Letter behind the backslash of a Python escape; 0 for what stands for itself.
char pythonLetter(ushort code) {
  switch (code) {
    case '\n':
      return 'n';
    case '\r':
      return 'r';
    case '\f':
      return 'f';
    case '\t':
      return 't';
    case '\'':
    case '\\':
      return static_cast<char>(code);
    default:
      return 0;
  }
}

QChar pythonCharacter(QChar letter) {
  switch (letter.unicode()) {
    case 'n':
      return QLatin1Char('\n');
    case 'r':
      return QLatin1Char('\r');
    case 'f':
      return QLatin1Char('\f');
    case 't':
      return QLatin1Char('\t');
    default:
      return letter;
  }
}

/// The HTML of a character; null for what stands for itself.
const char* richText(ushort code, bool nonBreakingSpaces) {
  switch (code) {
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '&':
      return "&amp;";
    case '\n':
      return "<br>";
    case '"':
      return "&quot;";
    case '\'':
      return "&apos;";
    case ' ':
      return nonBreakingSpaces ? "&nbsp;" : nullptr;
    default:
      return nullptr;
  }
}

}  // namespace

QByteArray toQuotedShellString(const QString& text) {
  const QByteArray bytes = text.toLocal8Bit();
  QByteArray word;
  word.reserve(bytes.size() + 8);
  word += '"';
  for (const char byte : bytes) {
    if (byte == '"' || byte == '$' || byte == '\\' || byte == '`') {
      word += '\\';
    }
    word += byte;
  }
  return word += '"';
}

QString qstringStripQuotes(const QString& text) {
  QString::size_type start = text.startsWith(quote) ? 1 : 0;
  QString::size_type end = text.size();
  if (end > start && text.at(end - 1) == quote) {
    --end;
  }
  while (start < end && text.at(start).isSpace()) {
    ++start;
  }
  while (start < end && text.at(end - 1).isSpace()) {
    --end;
  }
  return text.mid(start, end - start);
}

QString quotePythonString(const QString& text) {
  QString quoted;
  quoted.reserve(text.size() + 8);
  for (const QChar character : text) {
    const char letter = pythonLetter(character.unicode());
    if (letter == 0) {
      quoted += character;
    } else {
      quoted += backslash;
      quoted += QLatin1Char(letter);
    }
  }
  return quoted;
}

QString unquotePythonString(const QString& text) {
  QString plain;
  plain.reserve(text.size());
  bool escape = false;
  for (const QChar character : text) {
    if (escape) {
      plain += pythonCharacter(character);
      escape = false;
    } else if (character == backslash) {
      escape = true;
    } else {
      plain += character;
    }
  }
  return plain;
}

QString tokenizeRT(const QString& s, bool nonBreakingSpaces) {
  QString rich;
  rich.reserve(s.size() + s.size() / 8);
  for (const QChar character : s) {
    const char* const html = richText(character.unicode(), nonBreakingSpaces);
    if (html == nullptr) {
      rich += character;
    } else {
      rich += QLatin1String(html);
    }
  }
  return rich;
}

}  // namespace Kyr

#include <kyr/values/KyrFont.h>

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/text/KyrParse.h>
#include <kyr/values/value_text_p.h>

#include <QLocale>

namespace Kyr {

namespace {

struct StyleWord {
  Font::Style_t style;
  const char* word;
};

/// The words of the styles, in the order in which they are written.
constexpr StyleWord styleWords[] = {
    {Font::StyleItalic, "italic"},
    {Font::StyleUnderline, "underline"},
    {Font::StyleStrikeOut, "strikeout"},
    {Font::StyleFixed, "fixed"},
};
constexpr unsigned allStyles =
    Font::StyleItalic | Font::StyleUnderline | Font::StyleStrikeOut | Font::StyleFixed;

Exception refusal(const QString& text, const QString& reason) {
  return ValueText::refusal(translate("Kyr_diagnostics", "\"%1\" is no font: %2"), text, reason);
}

QString wrongSize() {
  return translate("Kyr_diagnostics", "the size is a number of points from 0.1 to 10000");
}

QString wrongWeight() {
  return translate("Kyr_diagnostics", "the weight is a number from 1 to 1000, 400 is normal");
}

QString wrongStyle() {
  return translate("Kyr_diagnostics",
                   "behind the weight come italic, underline, strikeout and fixed, each once");
}

/// Whether a size is allowed; NaN is not.
bool isSize(double size) {
  return size >= Font::smallestSize && size <= Font::largestSize;
}

/// The style of a word; StylePlain for a word that names none.
Font::Style_t styleOf(const QString& word) {
  for (const StyleWord& each : styleWords) {
    if (word == each.word) {
      return each.style;
    }
  }
  return Font::StylePlain;
}

unsigned readStyles(const QStringList& words, const QString& text) {
  unsigned styles = Font::StylePlain;
  for (const QString& word : words) {
    const unsigned style = styleOf(word);
    if (style == Font::StylePlain || (styles & style) != 0) {
      throw refusal(text, wrongStyle());
    }
    styles |= style;
  }
  return styles;
}

}  // namespace

Font::Font(const QString& family, double size, int weight, unsigned styles)
    : _family(family), _size(size), _weight(weight), _styles(styles) {
  if (!isSize(size)) {
    throw refusal(family, wrongSize());
  }
  if (weight < lightest || weight > heaviest) {
    throw refusal(family, wrongWeight());
  }
  if ((styles & ~allStyles) != 0) {
    throw refusal(family, wrongStyle());
  }
}

// The size is written with the fewest digits that give the same number again.
QString Font::toText() const {
  QStringList words{ValueText::wordOf(_family),
                    QLocale::c().toString(_size, 'g', QLocale::FloatingPointShortest),
                    QString::number(_weight)};
  for (const StyleWord& each : styleWords) {
    if (has(each.style)) {
      words += each.word;
    }
  }
  return words.join(' ');
}

QString Font::toLine(const char* key) const {
  return ValueText::line(key, toText());
}

Font Font::fromText(const QString& text) {
  const QStringList words = ValueText::wordsOf(text);
  QString family;
  if (words.isEmpty() || !ValueText::textOf(words.first(), family)) {
    throw refusal(text, translate("Kyr_diagnostics",
                                  "the family is one word, with \\_ for each of its blanks"));
  }
  bool ok = false;
  const double size = qstringToDouble(words.value(1), &ok);
  if (!ok || !isSize(size)) {
    throw refusal(text, wrongSize());
  }
  int weight = normal;
  if (words.size() > 2 && !ValueText::numberOf(words[2], lightest, heaviest, weight)) {
    throw refusal(text, wrongWeight());
  }
  return Font(family, size, weight, readStyles(words.mid(3), text));
}

Font Font::read(FileParse::File& file, const char* key) {
  return ValueText::read<Font>(file, key);
}

}  // namespace Kyr

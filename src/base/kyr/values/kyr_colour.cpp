#include <kyr/values/KyrColour.h>

#include <kyr/core/forever_p.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/values/value_text_p.h>

#include <QRegularExpression>

#include <array>

namespace Kyr {

namespace {

using Channels = std::array<int, 4>;
constexpr int opaque = 255;

Colour colourOf(const Channels& channels) {
  const auto channel = [&](std::size_t index) { return std::uint8_t(channels[index]); };
  return {channel(0), channel(1), channel(2), channel(3)};
}

/// Reads a colour in hexadecimal digits.
/// \param text "#rrggbb" or "#rrggbbaa"
bool readHex(const QString& text, Channels& channels) {
  static const Forever<QRegularExpression> pattern(R"(\A#(?:[0-9A-Fa-f]{2}){3,4}\z)");
  if (!pattern.object.match(text).hasMatch()) {
    return false;
  }
  for (int i = 0; 2 * i + 1 < text.size(); ++i) {
    channels[std::size_t(i)] = text.mid(2 * i + 1, 2).toInt(nullptr, 16);
  }
  return true;
}

bool readNumbers(const QStringList& words, Channels& channels) {
  bool ok = words.size() == 3 || words.size() == 4;
  for (int i = 0; ok && i < words.size(); ++i) {
    ok = ValueText::numberOf(words[i], 0, opaque, channels[std::size_t(i)]);
  }
  return ok;
}

QString hexOf(std::uint8_t channel) {
  return QString("%1").arg(channel, 2, 16, QLatin1Char('0'));
}

}  // namespace

QString Colour::toText() const {
  return QString("%1 %2 %3 %4").arg(red).arg(green).arg(blue).arg(alpha);
}

QString Colour::toHex() const {
  const QString end = alpha == opaque ? QString() : hexOf(alpha);
  return "#" + hexOf(red) + hexOf(green) + hexOf(blue) + end;
}

QString Colour::toLine(const char* key) const {
  return ValueText::line(key, toText());
}

Colour Colour::fromText(const QString& text) {
  const QStringList words = ValueText::wordsOf(text);
  Channels channels{0, 0, 0, opaque};
  const bool isHex = words.size() == 1 && readHex(words.first(), channels);
  if (!isHex && !readNumbers(words, channels)) {
    throw ValueText::refusal(
        translate("Kyr_diagnostics", "\"%1\" is no colour: %2"), text,
        translate("Kyr_diagnostics",
                  "red, green, blue and alpha are numbers from 0 to 255, or together #rrggbbaa"));
  }
  return colourOf(channels);
}

Colour Colour::read(FileParse::File& file, const char* key) {
  return ValueText::read<Colour>(file, key);
}

}  // namespace Kyr

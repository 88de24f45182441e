#include <kyr/units/KyrUnitSet.h>

#include <kyr/core/KyrException.h>
#include <kyr/core/file_parse_error_p.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/text/KyrParse.h>

#include <algorithm>

namespace Kyr {

namespace {

constexpr int mostDecimals = 99;

bool hasUnit(const Unit& kind, int number) {
  const auto units = kind.getUnits();
  return std::find(units.begin(), units.end(), number) != units.end();
}

/// \return whether a word is an integer from lowest to highest
bool readNumber(const QString& word, int lowest, int highest, int* number) {
  bool ok = false;
  *number = qstringToInt(word, &ok);
  return ok && *number >= lowest && *number <= highest;
}

}  // namespace

void UnitSet::choose(const Unit& kind, Unit::Units_t unit, int decimals) {
  kind.to(0.0, unit);  // raises for a wrong one
  _choices[Unit::getID(&kind)] = {unit, std::clamp(decimals, allDigits, mostDecimals)};
}

QuantityText UnitSet::texts(const Unit& kind) const {
  return texts(kind, userLocale());
}

QuantityText UnitSet::texts(const Unit& kind, const QLocale& locale) const {
  QuantityText result(kind, locale);
  const auto found = _choices.find(Unit::getID(&kind));
  if (found == _choices.end() || !hasUnit(kind, found->second.unit)) {
    return result;
  }
  result.setUnit(static_cast<Unit::Units_t>(found->second.unit));
  if (found->second.decimals != allDigits) {
    result.setDecimals(static_cast<unsigned>(found->second.decimals));
  }
  return result;
}

QStringList UnitSet::toLines() const {
  QStringList lines;
  for (const auto& [kind, choice] : _choices) {
    lines += kind + ' ' + QString::number(choice.unit) + ' ' + QString::number(choice.decimals);
  }
  return lines;
}

UnitSet UnitSet::fromLines(const QStringList& lines) {
  constexpr int mostUnits = 1000000;
  UnitSet result;
  for (const QString& line : lines) {
    QStringList words = line.simplified().split(' ');
    const bool mayHaveBlanks = words[0].startsWith("DIFF_");  // in the denominator
    Choice choice{};
    if (words.size() < 3 || (words.size() > 3 && !mayHaveBlanks) ||
        !readNumber(words.takeLast(), allDigits, mostDecimals, &choice.decimals) ||
        !readNumber(words.takeLast(), 0, mostUnits, &choice.unit)) {
      throw Exception(translate("Kyr_Quantity", "\"%1\" names no kind, unit and decimals.")
                          .arg(FileParse::shown(line)));
    }
    result._choices[words.join(' ')] = choice;
  }
  return result;
}

}  // namespace Kyr

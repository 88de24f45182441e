#include "unit_names.h"

#include "arguments.h"

#include <kyr/i18n/KyrTranslate.h>

namespace KyrTool {

namespace {

/// The text to which all spellings of a unit's name lead, "mm^2" and "1/mm" and the Greek letter
/// included.
QString reduced(QString name) {
  const struct {
    QChar from;
    const char* to;
  } spellings[] = {
      {QChar(0xB5), "u"}, {QChar(0x3BC), "u"}, {QChar(0xB0), "deg"}, {QChar(0x2030), "permille"},
      {QChar(0xB2), "2"}, {QChar(0xB3), "3"},  {QChar('^'), ""},     {QChar(' '), ""},
  };
  for (const auto& spelling : spellings) {
    name.replace(spelling.from, QLatin1String(spelling.to));
  }
  return name.startsWith("1/") ? name.mid(1) : name;
}

}  // namespace

const std::vector<Kyr::Unit*>& allKinds() {
  static const std::vector<Kyr::Unit*> kinds = Kyr::Unit::getCatalogue();
  return kinds;
}

Kyr::Unit* kindOfName(const QString& name) {
  for (Kyr::Unit* const kind : allKinds()) {
    if (Kyr::Unit::getID(kind).compare(name, Qt::CaseInsensitive) == 0) {
      return kind;
    }
  }
  throw UsageError{
      Kyr::translate("Kyr_tool", "there is no kind \"%1\"; kyr units lists them").arg(name)};
}

QString asciiSpelling(const QString& unitName) {
  return reduced(unitName);
}

QStringList kindsWith(const QString& unitName) {
  QStringList kinds;
  for (const Kyr::Unit* const kind : allKinds()) {
    Kyr::UnitName unit;
    if (Kyr::QuantityText::findUnit(*kind, unitName, &unit)) {
      kinds += Kyr::Unit::getID(kind);
    }
  }
  return kinds;
}

}  // namespace KyrTool

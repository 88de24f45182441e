#include "Fuzz.h"

#include <kyr/units/KyrQuantityText.h>
#include <kyr/units/KyrUnitSet.h>
#include <kyr/units/KyrUnits.h>

#include <QLocale>

#include <cmath>
#include <vector>

namespace KyrFuzz {

namespace {

using Kyr::QuantityReading;
using Kyr::QuantityText;
using Kyr::Unit;

const std::vector<QLocale>& locales() {
  static const std::vector<QLocale> all{QLocale("en_US"), QLocale("de_DE"), QLocale("fr_FR"),
                                        QLocale("de_CH"), QLocale("ar_EG"), QLocale("hi_IN")};
  return all;
}

/// But for the sign of zero, which is not written.
bool sameBits(double a, double b) {
  return a == b;
}

void checkReading(const QuantityReading& reading, int length) {
  expect(reading.isAcceptable() ? std::isfinite(reading.value) && reading.reason.isEmpty()
                                : !reading.reason.isEmpty(),
         "a text is a quantity, or there is a reason");
  expect(reading.position >= -1 && reading.position <= length, "the reason is within the text");
}

/// Whether writing with all digits promises to give the same bits.
bool isExact(const Unit& kind, double value) {
  const double magnitude = std::fabs(value);
  return value == 0 || (&kind != &Kyr::uTemp && magnitude >= 1e-190 && magnitude <= 1e190);
}

void checkWritten(QuantityText texts, const QuantityReading& reading) {
  const QString written = texts.setExact().text(reading.value);
  const QuantityReading again = texts.read(written);
  expect(again.isAcceptable(), "what is written is read");
  expect(!isExact(texts.kind(), reading.value) || sameBits(again.value, reading.value),
         "with all digits it leads back to the same bits");
  expect(!isExact(texts.kind(), reading.value) || texts.text(again.value) == written,
         "reading and writing go round");
}

/// No beginning of a quantity is one that nothing can make a quantity.
void checkTyping(const QuantityText& texts, const QString& text, unsigned length) {
  expect(texts.read(text.left(static_cast<int>(length))).state != QuantityReading::Invalid,
         "an editor lets every quantity be typed");
}

void checkSet(std::string_view text) {
  Kyr::UnitSet set;
  const QStringList lines = textOf(text).split('\n');
  if (refusal([&] { set = Kyr::UnitSet::fromLines(lines); }).isNull()) {
    const QStringList written = set.toLines();
    expect(Kyr::UnitSet::fromLines(written).toLines() == written, "preferred units lead back");
  }
}

}  // namespace

void harness(Choices input) {
  static const std::vector<Unit*> kinds = Unit::getCatalogue();
  const Unit& kind = *kinds[input.upTo(255) % kinds.size()];
  const std::vector<Unit::Units_t> units = kind.getUnits();
  const Unit::Units_t unit = units[input.upTo(255) % units.size()];
  QuantityText texts(kind, locales()[input.upTo(5)]);
  QuantityText others(kind, locales()[input.upTo(5)]);
  const unsigned flags = input.upTo(15);
  const bool arithmetic = (flags & 1U) != 0;
  texts.setUnit(unit).setArithmetic(arithmetic).setGrouping((flags & 2U) != 0);
  texts.setExponents((flags & 4U) != 0).setAutomaticUnit((flags & 8U) != 0);
  others.setUnit(unit).setArithmetic(arithmetic);
  const unsigned begun = input.upTo(60);
  const std::string_view typed = input.rest().substr(0, 60);
  const QString text = textOf(typed);
  const QuantityReading reading = texts.read(text);
  checkReading(reading, static_cast<int>(text.size()));
  if (reading.isAcceptable()) {
    const QuantityReading other = others.read(text);
    expect(!other.isAcceptable() || sameBits(other.value, reading.value),
           "no text has two values in two languages");
    checkWritten(texts, reading);
    checkTyping(texts, text, begun);
  }
  checkSet(typed);
}

}  // namespace KyrFuzz

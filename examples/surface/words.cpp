#include "surface/words.h"

#include <kyr/i18n/KyrTranslate.h>

#include <QLocale>

namespace Surface {

QString fixed(double value, int decimals) {
  return QString::number(value, 'f', decimals).replace('.', Kyr::userLocale().decimalPoint());
}

QString counted(qint64 number) {
  constexpr ushort noBreakSpace = 0xA0;
  const bool commaIsDecimal = Kyr::userLocale().decimalPoint() == ',';
  const QString text = QLocale(QLocale::English, QLocale::UnitedStates).toString(number);
  return commaIsDecimal ? QString(text).replace(',', QChar(noBreakSpace)) : text;
}

QString counted(qint64 number, const Thing& thing) {
  return Kyr::translate("Surface", thing.one, thing.many, static_cast<quint64>(number))
      .arg(counted(number));
}

QString bytes(qint64 count) {
  if (count < 10000) {
    return counted(count, Things::byte);
  }
  const double kibibytes = static_cast<double>(count) / 1024;
  return kibibytes < 1000 ? fixed(kibibytes, 1) + " KiB" : fixed(kibibytes / 1024, 2) + " MiB";
}

QString speed(qint64 count, double seconds) {
  if (seconds < 0.002) {
    return Kyr::translate("Surface", "in less than 2 ms");
  }
  const double rate = static_cast<double>(count) / 1e6 / seconds;
  return Kyr::translate("Surface", "at %1 MB/s").arg(fixed(rate, rate < 10 ? 1 : 0));
}

}  // namespace Surface

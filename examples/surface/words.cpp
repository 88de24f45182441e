#include "surface/words.h"

#include <QLocale>

namespace Surface {

namespace {

QString fixed(double value, int decimals) {
  return QString::number(value, 'f', decimals);
}

}  // namespace

QString counted(qint64 number) {
  return QLocale(QLocale::English, QLocale::UnitedStates).toString(number);
}

QString counted(qint64 number, const QString& thing) {
  return counted(number) + ' ' + thing + (number == 1 ? "" : "s");
}

QString bytes(qint64 count) {
  if (count < 10000) {
    return counted(count, "byte");
  }
  const double kibibytes = static_cast<double>(count) / 1024;
  return kibibytes < 1000 ? fixed(kibibytes, 1) + " KiB" : fixed(kibibytes / 1024, 2) + " MiB";
}

QString speed(qint64 count, double seconds) {
  if (seconds < 0.002) {
    return "in less than 2 ms";
  }
  const double rate = static_cast<double>(count) / 1e6 / seconds;
  return QString("at %1 MB/s").arg(fixed(rate, rate < 10 ? 1 : 0));
}

}  // namespace Surface

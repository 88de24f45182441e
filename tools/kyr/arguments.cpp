#include "arguments.h"

#include <kyr/text/KyrParse.h>

namespace KyrTool {

Arguments::Arguments(const QStringList& words, const QStringList& options, const QStringList& flags,
                     int fewest, int most) {
  QStringList rest = words;
  while (!rest.isEmpty() && rest.first() != "--") {
    if (rest.first().startsWith("--")) {
      takeOption(rest, options, flags);
    } else {
      _plain += rest.takeFirst();
    }
  }
  _plain += rest.mid(1);
  if (_plain.size() < fewest) {
    throw UsageError{"an argument is missing"};
  }
  if (_plain.size() > most) {
    throw UsageError{QString("one argument too many: \"%1\"").arg(_plain[most])};
  }
}

void Arguments::takeOption(QStringList& words, const QStringList& known, const QStringList& flags) {
  const QString word = words.takeFirst();
  const QString name = word.mid(2);
  if (flags.contains(name)) {
    _options[name] = QString();
    return;
  }
  if (!known.contains(name)) {
    throw UsageError{QString("unknown option \"%1\"").arg(word)};
  }
  if (words.isEmpty()) {
    throw UsageError{QString("%1 needs a value").arg(word)};
  }
  _options[name] = words.takeFirst();
}

unsigned Arguments::number(const QString& name, unsigned lowest, unsigned highest,
                           unsigned otherwise) const {
  if (!has(name)) {
    return otherwise;
  }
  bool ok = false;
  const unsigned value = Kyr::qstringToUInt(option(name), &ok);
  if (!ok || value < lowest || value > highest) {
    throw UsageError{
        QString("--%1 takes a number from %2 to %3, not \"%4\"")
            .arg(name, QString::number(lowest), QString::number(highest), option(name))};
  }
  return value;
}

}  // namespace KyrTool

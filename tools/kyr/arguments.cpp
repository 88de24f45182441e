#include "arguments.h"

#include "help.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/text/KyrParse.h>

namespace KyrTool {

namespace {

bool isOption(const QString& word) {
  return word.startsWith("--") || (word.size() > 1 && word[0] == '-' && word[1].isLetter());
}

/// The option that a word names, "--force", "--workers=3" or "-f".
const Option& optionOf(const QString& word, const std::vector<Option>& known) {
  const QString name = word.section('=', 0, 0);
  QStringList names;
  for (const Option& option : known) {
    const QString full = "--" + QString(option.name);
    if (name == full || (option.letter != 0 && name == '-' + QString(option.letter))) {
      return option;
    }
    names += full;
  }
  throw UsageError{Kyr::translate("Kyr_tool", "unknown option \"%1\"").arg(name) +
                   suggestion(name, names)};
}

}  // namespace

Arguments::Arguments(const QStringList& words, const Command& command) {
  const std::vector<Option> known = optionsOf(command);
  QStringList rest = words;
  while (!rest.isEmpty() && rest.first() != "--") {
    if (isOption(rest.first())) {
      takeOption(rest, known);
    } else {
      _plain += rest.takeFirst();
    }
  }
  _plain += rest.mid(1);
  if (_plain.size() < command.fewest) {
    throw UsageError{Kyr::translate("Kyr_tool", "an argument is missing")};
  }
  if (_plain.size() > command.most) {
    throw UsageError{
        Kyr::translate("Kyr_tool", "one argument too many: \"%1\"").arg(_plain[command.most])};
  }
}

void Arguments::takeOption(QStringList& words, const std::vector<Option>& known) {
  const QString word = words.takeFirst();
  const Option& option = optionOf(word, known);
  const bool hasValue = word.contains('=');
  const QString name = word.section('=', 0, 0);
  if (option.isFlag()) {
    if (hasValue) {
      throw UsageError{Kyr::translate("Kyr_tool", "%1 takes no value").arg(name)};
    }
    _options[option.name] = QStringList();
    return;
  }
  if (!hasValue && words.isEmpty()) {
    throw UsageError{Kyr::translate("Kyr_tool", "%1 needs a value").arg(name)};
  }
  _options[option.name] += hasValue ? word.section('=', 1) : words.takeFirst();
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
        Kyr::translate("Kyr_tool", "--%1 takes a number from %2 to %3, not \"%4\"")
            .arg(name, QString::number(lowest), QString::number(highest), option(name))};
  }
  return value;
}

}  // namespace KyrTool

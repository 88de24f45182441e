#include "generate.h"

#include "output.h"
#include "unit_names.h"

#include <QStringList>

namespace KyrTool {

namespace {

QString kindNames() {
  QString names;
  for (const Kyr::Unit* const kind : allKinds()) {
    names += Kyr::Unit::getID(kind) + '\n';
  }
  return names;
}

/// Every name once, and its spelling for all keyboards. Marks that are quotes to shells are left
/// out.
QString unitNames() {
  QStringList names;
  for (const Kyr::Unit* const kind : allKinds()) {
    for (const Kyr::Unit::Units_t unit : kind->getUnits()) {
      const QString name = kind->getUName(unit);
      names += {asciiSpelling(name), name};
    }
  }
  names.removeDuplicates();
  QString lines;
  for (const QString& name : names) {
    lines += name.contains('\'') || name.contains('"') ? QString() : name + '\n';
  }
  return lines;
}

}  // namespace

bool generate(const QStringList& words) {
  const struct {
    const char* question;
    QString (*answer)();
  } answers[] = {{"--generate manual", manualPage},
                 {"--generate bash", bashCompletion},
                 {"--generate zsh", zshCompletion},
                 {"--complete kinds", kindNames},
                 {"--complete units", unitNames}};
  for (const auto& each : answers) {
    if (words.join(' ') == each.question) {
      print(each.answer());
      return true;
    }
  }
  return false;
}

}  // namespace KyrTool

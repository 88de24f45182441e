#include "commands.h"
#include "output.h"
#include "target.h"

#include <kyr/i18n/KyrTranslator.h>
#include <kyr/services/KyrChangeLog.h>

#include <QCoreApplication>
#include <QTranslator>

namespace KyrTool {

namespace {

using Kyr::ChangeLog::Log;

Log::Grouping_t groupingOf(const QString& name) {
  const QStringList names = {"none", "context", "version"};  // in the order of the enumeration
  const int index = names.indexOf(name);
  if (index < 0) {
    throw UsageError{QString("--group takes one of %1").arg(names.join(", "))};
  }
  return static_cast<Log::Grouping_t>(index);
}

/// The language of what the library says. The tool starts without the library's directories, so
/// it finds the catalogues by itself.
class Language {
 public:
  explicit Language(const QString& shortcut) : _translator(shortcut) {
    if (_translator.getLanguageShortcut() != shortcut) {
      throw UsageError{QString("--language takes one of en, de, fr, jp, cn, pt")};
    }
    const QString folder = QCoreApplication::applicationDirPath() + "/../messages";
    if (_catalogue.load("Kyr_" + shortcut, folder)) {
      QCoreApplication::installTranslator(&_catalogue);
    } else if (shortcut != "en") {
      throw FileError{QString("%1/Kyr_%2.qm: cannot be read").arg(folder, shortcut)};
    }
  }

 private:
  Kyr::Translator _translator;
  QTranslator _catalogue;
};

}  // namespace

int changelog(const Arguments& arguments) {
  const QString output = arguments.count() > 0 ? arguments[0] : QString("-");
  const Log::Grouping_t grouping =
      groupingOf(arguments.has("group") ? arguments.option("group") : "context");
  const Language language(arguments.has("language") ? arguments.option("language") : "en");
  const QString page = Kyr::ChangeLog::libraryChangeLog().transformToPage(
      Kyr::ChangeLog::libraryChangeLogTitle(), grouping);
  if (output == "-") {
    print(page);
    return Fine;
  }
  Target target(output);
  const QByteArray bytes = page.toUtf8();
  target.stream().write(bytes.constData(), bytes.size());
  target.complete();
  return Fine;
}

}  // namespace KyrTool

#include "commands.h"
#include "output.h"
#include "target.h"

#include <kyr/i18n/KyrTranslate.h>
#include <kyr/i18n/KyrTranslator.h>
#include <kyr/services/KyrChangeLog.h>

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

/// The language of what the library says. The tool starts without the library's directories; the
/// library then finds the catalogues beside itself.
class Language {
 public:
  explicit Language(const QString& shortcut) : _translator(shortcut) {
    if (_translator.getLanguageShortcut() != shortcut) {
      throw UsageError{QString("--language takes one of en, de, fr, jp, cn, pt")};
    }
    _translator.installTranslator("Kyr");
    // Every catalogue has a name for this key, the English one too.
    const char* const key = "language: english";
    if (shortcut != "en" && Kyr::translate("Kyr_Translator", key) == key) {
      throw FileError{QString("Kyr_%1.qm: cannot be read").arg(shortcut)};
    }
  }

 private:
  Kyr::Translator _translator;
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

#include "commands.h"
#include "language.h"
#include "output.h"
#include "target.h"

#include <kyr/changelog/KyrChangeLog.h>
#include <kyr/i18n/KyrTranslate.h>

namespace KyrTool {

namespace {

using Kyr::ChangeLog::Log;

Log::Grouping_t groupingOf(const QString& name) {
  const QStringList names = {"none", "context", "version"};  // in the order of the enumeration
  const auto index = names.indexOf(name);
  if (index < 0) {
    throw UsageError{Kyr::translate("Kyr_tool", "--group takes one of %1").arg(names.join(", "))};
  }
  return static_cast<Log::Grouping_t>(index);
}

/// The page in a language, which is that of the library's texts meanwhile.
QString pageIn(const QString& language, Log::Grouping_t grouping) {
  useLanguage(language);
  QString page = Kyr::ChangeLog::libraryChangeLog().transformToPage(
      Kyr::ChangeLog::libraryChangeLogTitle(), grouping);
  useLanguageOfUser();
  return page;
}

}  // namespace

int changelog(const Arguments& arguments) {
  const QString output = arguments.count() > 0 ? arguments[0] : QString("-");
  const Log::Grouping_t grouping =
      groupingOf(arguments.has("group") ? arguments.option("group") : "context");
  const QString page =
      pageIn(arguments.has("language") ? arguments.option("language") : "en", grouping);
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

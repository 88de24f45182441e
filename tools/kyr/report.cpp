#include "commands.h"
#include "output.h"

#include <kyr/core/KyrException.h>
#include <kyr/diagnostics/KyrSystemReport.h>
#include <kyr/i18n/KyrTranslate.h>
#include <kyr/os/KyrOS.h>

#include <QDir>

namespace KyrTool {

namespace {

constexpr unsigned mostDumps = 1000;

QString describe(const Kyr::SystemReport& report, const QString& fileName) {
  Kyr::OS::FileStatus status;
  Kyr::OS::stat(fileName, &status);
  return Kyr::translate("Kyr_tool", "%1: %2 sections, logs and dumps: %3, %4 bytes")
             .arg(printable(QDir::toNativeSeparators(fileName)),
                  QString::number(report.sections().size()), QString::number(report.files().size()),
                  QString::number(status.size)) +
         '\n';
}

}  // namespace

int writeReport(const Arguments& arguments) {
  Kyr::SystemReport::Limits limits;
  if (arguments.count() > 0 && arguments[0] == "-") {
    throw UsageError{
        Kyr::translate("Kyr_tool", "a report goes into a file, not to standard output")};
  }
  limits.dumps = arguments.number("dumps", 0, mostDumps, limits.dumps);
  Kyr::SystemReport report;
  const QString fileName = arguments.count() > 0 ? arguments[0] : report.name() + ".tar.gz";
  report.collect(Kyr::SystemReport::AllParts, limits);
  try {
    report.write(fileName,
                 arguments.has("force") ? Kyr::OS::ReplaceExisting : Kyr::OS::KeepExisting);
  } catch (const Kyr::Exception& error) {
    throw FileError{error.getText()};
  }
  print(describe(report, fileName));
  const QStringList missing = report.missing();
  for (const QString& each : missing) {
    printError(Kyr::translate("Kyr_tool", "the report is not complete: %1").arg(each));
  }
  print(Kyr::translate(
            "Kyr_tool",
            "It names this machine, its user and what is set; secrets are blanked as far as their\n"
            "names tell. Unpack it and look at index.html before you pass it on.") +
        '\n');
  return missing.isEmpty() ? Fine : FileAtFault;
}

}  // namespace KyrTool

#include "commands.h"
#include "json.h"
#include "output.h"

#include <kyr/diagnostics/KyrSystemReport.h>

#include <QJsonArray>

namespace KyrTool {

namespace {

using Report = Kyr::SystemReport;

/// Pairs as an object, other tables as an array of objects.
QJsonValue jsonOf(const Report::Section& section) {
  QJsonObject pairs;
  QJsonArray table;
  for (const QStringList& row : section.rows) {
    QJsonObject cells;
    for (int i = 0; i < section.columns.size(); ++i) {
      cells[section.columns[i]] = row.value(i);
    }
    table += cells;
    pairs[row.value(0)] = row.value(1);
  }
  return section.columns.isEmpty() ? QJsonValue(pairs) : QJsonValue(table);
}

}  // namespace

int showInfo(const Arguments& arguments) {
  Report report;
  report.collect(Report::PartSystem | Report::PartProcessor | Report::PartMemory |
                 Report::PartVersions | Report::PartDirectories);
  if (!arguments.has("json")) {
    print(report.toText());
    return Fine;
  }
  QJsonObject sections;
  for (const Report::Section& section : report.sections()) {
    sections[section.title] = jsonOf(section);
  }
  printJson(sections);
  return Fine;
}

}  // namespace KyrTool

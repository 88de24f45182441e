#include "commands.h"
#include "output.h"

#include <kyr/diagnostics/KyrSystemReport.h>

namespace KyrTool {

int showInfo(const Arguments& /*arguments*/) {
  using Report = Kyr::SystemReport;
  Report report;
  report.collect(Report::PartSystem | Report::PartProcessor | Report::PartMemory |
                 Report::PartVersions | Report::PartDirectories);
  print(report.toText());
  return Fine;
}

}  // namespace KyrTool

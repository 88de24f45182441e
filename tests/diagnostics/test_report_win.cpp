#include <kyr/diagnostics/KyrSystemReport.h>

#include "support/Support.h"

#include <QSettings>

using namespace Kyr;

TEST(ReportOnWindows, ReadsKeysAndVersionsOfModules) {
  QSettings settings("HKEY_CURRENT_USER\\Software\\ORV", QSettings::NativeFormat);
  settings.setValue("KyrTest/LicenseKey", "geheim");
  settings.setValue("KyrTest/Plain", "text");
  SystemReport report;
  report.collect(SystemReport::PartSettings | SystemReport::PartModules);
  settings.remove("KyrTest");
  for (const char* const line :
       {"KyrTest/LicenseKey  \\[blanked\\]\n", "KyrTest/Plain       text\n",
        "/libKyr.dll +6\\.2\\.0\\.6 +[0-9a-f]{8}  0x"}) {
    EXPECT_TRUE(report.toText().contains(QRegularExpression(line)))
        << line << report.toText().toStdString();
  }
}

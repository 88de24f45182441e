#include <kyr/diagnostics/KyrSystemReport.h>
#include <kyr/diagnostics/report_posix_p.h>

#include "support/Support.h"

using namespace Kyr;

TEST(DisplaysOnLinux, ReadsTheKernelsListsOfScreens) {
  const KyrTest::TempDir folder;
  const std::pair<const char*, const char*> files[] = {
      {"class/drm/card0-HDMI-A-1/status", "connected\n"},
      {"class/drm/card0-HDMI-A-1/modes", "1920x1080\n1280x720\n800x600\n"},
      {"class/drm/card0-DP-1/status", "disconnected\n"},
      {"class/drm/version", "drm 1.1.0\n"},
      {"bus/pci/devices/0000:00:02.0/class", "0x030000\n"},
      {"bus/pci/devices/0000:00:02.0/vendor", "0x1234\n"},
      {"bus/pci/devices/0000:00:02.0/device", "0x5678\n"},
      {"bus/pci/devices/0000:00:03.0/class", "0x020000\n"},
  };
  for (const auto& [name, contents] : files) {
    QDir(folder.path()).mkpath(QFileInfo(name).path());
    folder.write(name, contents);
  }
  EXPECT_TRUE(QFile::link("/drivers/card", folder.file("bus/pci/devices/0000:00:02.0/driver")));
  SystemReport report;
  report.add("Displays",
             [&](auto& section) { Report::describeDisplaysBelow(folder.path(), section); });
  report.add("None", [&](auto& section) { Report::describeDisplaysBelow("/missing", section); });
  EXPECT_EQ(report.toText().toStdString(),
            "Displays\n--------\n"
            "  graphics card 0000:00:02.0  1234:5678, driver card\n"
            "  connector card0-DP-1        disconnected\n"
            "  connector card0-HDMI-A-1    connected, 1920x1080 (preferred), 2 more modes\n\n"
            "None\n----\n  nothing found\n");
}

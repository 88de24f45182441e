#include <kyr/diagnostics/report_p.h>

#include <windows.h>

namespace Kyr {

namespace {

/// The mode of a screen, as "1920 x 1080, 32 bits, 60 Hz, at 0, 0".
QString modeOf(const wchar_t* device) {
  DEVMODEW mode{};
  mode.dmSize = sizeof mode;
  if (!::EnumDisplaySettingsW(device, ENUM_CURRENT_SETTINGS, &mode)) {
    return {};
  }
  return QString("%1 x %2, %3 bits, %4 Hz, at %5, %6")
      .arg(mode.dmPelsWidth)
      .arg(mode.dmPelsHeight)
      .arg(mode.dmBitsPerPel)
      .arg(mode.dmDisplayFrequency)
      .arg(mode.dmPosition.x)
      .arg(mode.dmPosition.y);
}

QString kindOf(DWORD flags) {
  const bool isPrimary = (flags & DISPLAY_DEVICE_PRIMARY_DEVICE) != 0;
  const bool isUsed = (flags & DISPLAY_DEVICE_ATTACHED_TO_DESKTOP) != 0;
  return isPrimary ? "primary screen" : isUsed ? "screen" : "not used";
}

bool nextDevice(const wchar_t* adapter, DWORD index, DISPLAY_DEVICEW& device) {
  device = {};
  device.cb = sizeof device;
  return ::EnumDisplayDevicesW(adapter, index, &device, 0) != 0;
}

}  // namespace

void Report::describeDisplays(Section& section) {
  section.columns = QStringList{"device", "name", "use", "mode"};
  DISPLAY_DEVICEW adapter{};
  DISPLAY_DEVICEW monitor{};
  for (DWORD i = 0; nextDevice(nullptr, i, adapter); ++i) {
    section.rows.push_back({QString::fromWCharArray(adapter.DeviceName),
                            QString::fromWCharArray(adapter.DeviceString),
                            kindOf(adapter.StateFlags), modeOf(adapter.DeviceName)});
    for (DWORD j = 0; nextDevice(adapter.DeviceName, j, monitor); ++j) {
      section.rows.push_back({QString::fromWCharArray(monitor.DeviceName),
                              QString::fromWCharArray(monitor.DeviceString), "monitor", ""});
    }
  }
}

}  // namespace Kyr

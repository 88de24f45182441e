#include <kyr/diagnostics/report_p.h>
#include <kyr/diagnostics/report_posix_p.h>

#include <kyr/os/KyrOS.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace Kyr {

namespace {

constexpr int mostBytes = 1 << 16;

/// The lines of one of the kernel's files; none when it is missing.
QStringList linesOf(const QString& path, Report::Section& section) {
  QFile file(path);
  if (file.open(QIODevice::ReadOnly)) {
    return QString::fromUtf8(file.read(mostBytes)).split('\n', Qt::SkipEmptyParts);
  }
  if (OS::stat(path)) {
    section.miss(path + " cannot be read.");
  }
  return {};
}

/// The names in one of the kernel's directories; none when it is missing.
QStringList entriesOf(const QString& folder, Report::Section& section) {
  QStringList entries;
  if (!OS::readDirectory(folder, &entries) && OS::stat(folder)) {
    section.miss(folder + " cannot be read.");
  }
  return entries;
}

/// The state of a connector, as "connected, 1920x1080 (preferred), 14 more modes".
QString connectorText(const QString& path, Report::Section& section) {
  const QStringList modes = linesOf(path + "/modes", section);
  QStringList words{linesOf(path + "/status", section).value(0, "unknown")};
  if (!modes.isEmpty()) {
    words += modes.first() + " (preferred)";
  }
  if (modes.size() > 1) {
    words += QString("%1 more modes").arg(modes.size() - 1);
  }
  return words.join(", ");
}

/// A card by the numbers of its maker and model: "8086:3e92, driver i915".
QString cardText(const QString& path, Report::Section& section) {
  const QString maker = linesOf(path + "/vendor", section).value(0).mid(2);
  const QString model = linesOf(path + "/device", section).value(0).mid(2);
  const QString driver = QFileInfo(QFile::symLinkTarget(path + "/driver")).fileName();
  return QString("%1:%2, driver %3").arg(maker, model, driver.isEmpty() ? "none" : driver);
}

void addConnectors(const QString& folder, Report::Section& section) {
  for (const QString& entry : entriesOf(folder, section)) {
    if (QFile::exists(folder + entry + "/status")) {
      section.add("connector " + entry, connectorText(folder + entry, section));
    }
  }
}

void addCards(const QString& folder, Report::Section& section) {
  for (const QString& entry : entriesOf(folder, section)) {
    const QString kind = linesOf(folder + entry + "/class", section).value(0);
    const bool isDisplay = kind.startsWith("0x03");
    if (isDisplay) {
      section.add("graphics card " + entry, cardText(folder + entry, section));
    }
  }
}

}  // namespace

void Report::describeDisplaysBelow(const QString& root, Section& section) {
  addCards(root + "/bus/pci/devices/", section);
  addConnectors(root + "/class/drm/", section);
}

void Report::describeDisplays(Section& section) {
  for (const char* const name : {"XDG_SESSION_TYPE", "DISPLAY", "WAYLAND_DISPLAY"}) {
    section.add(name, OS::getEnv(name));
  }
  describeDisplaysBelow("/sys", section);
}

}  // namespace Kyr

#include <kyr/diagnostics/report_p.h>
#include <kyr/diagnostics/report_posix_p.h>

#include <kyr/os/KyrOS.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace Kyr {

namespace {

constexpr int mostBytes = 1 << 16;

/// The lines of one of the kernel's files; none when it cannot be read.
QStringList linesOf(const QString& path) {
  QFile file(path);
  return file.open(QIODevice::ReadOnly)
             ? QString::fromUtf8(file.read(mostBytes)).split('\n', Qt::SkipEmptyParts)
             : QStringList();
}

/// "connected, 1920x1080 (preferred), 14 more modes"
QString connectorText(const QString& path) {
  const QStringList modes = linesOf(path + "/modes");
  QStringList words{linesOf(path + "/status").value(0, "unknown")};
  if (!modes.isEmpty()) {
    words += modes.first() + " (preferred)";
  }
  if (modes.size() > 1) {
    words += QString("%1 more modes").arg(modes.size() - 1);
  }
  return words.join(", ");
}

/// A card by the numbers of its maker and model: "8086:3e92, driver i915".
QString cardText(const QString& path) {
  const QString maker = linesOf(path + "/vendor").value(0).mid(2);
  const QString model = linesOf(path + "/device").value(0).mid(2);
  const QString driver = QFileInfo(QFile::symLinkTarget(path + "/driver")).fileName();
  return QString("%1:%2, driver %3").arg(maker, model, driver.isEmpty() ? "none" : driver);
}

void addConnectors(const QString& folder, Report::Section& section) {
  QStringList entries;
  OS::readDirectory(folder, &entries);
  for (const QString& entry : entries) {
    if (QFile::exists(folder + entry + "/status")) {
      section.add("connector " + entry, connectorText(folder + entry));
    }
  }
}

void addCards(const QString& folder, Report::Section& section) {
  QStringList entries;
  OS::readDirectory(folder, &entries);
  for (const QString& entry : entries) {
    const bool isDisplay = linesOf(folder + entry + "/class").value(0).startsWith("0x03");
    if (isDisplay) {
      section.add("graphics card " + entry, cardText(folder + entry));
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

#include <kyr/diagnostics/report_p.h>

#include <kyr/core/KyrVersion.h>
#include <kyr/diagnostics/KyrMemoryObserver.h>
#include <kyr/env/settings_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>
#include <kyr/time/KyrTime.h>

#include <QCoreApplication>
#include <QLocale>
#include <QSysInfo>
#include <QThread>
#include <QTimeZone>

#include <algorithm>
#include <filesystem>

#include <zlib.h>

namespace Kyr {

namespace {

constexpr int mostRows = 2000;  // other programs may fill settings and the environment without end

QString durationText(std::int64_t seconds) {
  constexpr std::int64_t minutesOfDay = 1440;
  const std::int64_t minutes = seconds / 60;
  return seconds < 0 ? QString()
                     : QString("%1 d %2 h %3 min")
                           .arg(minutes / minutesOfDay)
                           .arg(minutes / 60 % 24)
                           .arg(minutes % 60);
}

void addDrives(Report::Section& section) {
  for (const OS::RemovableDrive& drive : OS::getRemovableDrives()) {
    section.add("removable drive " + drive.path,
                QString("%1 %2, %3 of %4 free%5")
                    .arg(drive.label, drive.fileSystem, Report::sizeText(std::uint64_t(drive.free)),
                         Report::sizeText(std::uint64_t(drive.size)),
                         drive.isReadOnly ? ", not to be written" : "")
                    .trimmed());
  }
}

void addProxies(Report::Section& section) {
  const OS::ProxySettings proxies = OS::getProxySettings();
  const auto add = [&](const QString& name, const QString& value) {
    section.add(name, SystemReport::blankSecrets("proxy", value));
  };
  add("proxy for http", proxies.http);
  add("proxy for https", proxies.https);
  add("proxy script", proxies.script);
  section.add("without proxy", proxies.exceptions.join(", "));
}

QString bitsOf(int wordSize) {
  return QString("%1 bits").arg(wordSize);
}

QString applicationText() {
  const QString version = QCoreApplication::applicationVersion();
  return QCoreApplication::instance()
             ? QString("%1 %2").arg(QCoreApplication::applicationName(), version).trimmed()
             : QString();
}

QString argumentsText() {
  return QCoreApplication::instance()
             ? Report::blankArguments(QCoreApplication::arguments().mid(1)).join(' ')
             : QString();
}

QString freeText(const QString& path) {
  std::error_code error;
  const std::filesystem::space_info space =
      std::filesystem::space(Platform::nativePath(path), error);
  return error ? QString("unknown") : Report::sizeText(space.available);
}

QString settingText(const QString& key, const QVariant& value) {
  if (value.userType() == QMetaType::QByteArray) {
    return QString("[%1 bytes]").arg(value.toByteArray().size());
  }
  const QString text = value.userType() == QMetaType::QStringList ? value.toStringList().join(", ")
                                                                  : value.toString();
  return SystemReport::blankSecrets(key, text);
}

void addSettings(Report::Section& section, const Report::SettingsPlace& place) {
  QStringList keys = place.settings->allKeys();
  if (place.settings->status() != QSettings::NoError) {
    section.miss(place.name + " cannot be read.");
  }
  if (keys.size() > mostRows) {
    section.remarks +=
        QString("%1 holds %2 values; the first %3 follow.")
            .arg(place.name, QString::number(keys.size()), QString::number(mostRows));
  }
  for (const QString& key : keys.mid(0, mostRows)) {
    section.rows.push_back({place.name, key, settingText(key, place.settings->value(key))});
  }
}

QString hexText(std::uint64_t number) {
  return "0x" + QString::number(number, 16);
}

}  // namespace

void Report::describeSystem(Section& section) {
  section.add("report of", timeText(Time::currentTime().wholeSeconds()));
  section.add("system", OS::getSystemName());
  section.add("version", OS::getSystemVersion());
  section.add("kernel", QSysInfo::kernelType());
  section.add("architecture", QSysInfo::currentCpuArchitecture());
  section.add("name", QSysInfo::machineHostName());
  section.add("up for", durationText(secondsSinceStart()));
  section.add("language", QLocale::system().name());
  section.add("time zone", QString::fromUtf8(QTimeZone::systemTimeZoneId()));
  addProxies(section);
  addDrives(section);
}

void Report::describeProcessor(Section& section) {
  const bool isSet = !OS::getEnv("KYR_NUMBER_OF_CPUS").isNull();
  const QString name = OS::getProcessorName();
  if (name.isEmpty()) {
    section.miss("The processor's name cannot be found out.");
  }
  section.add("processor", name);
  section.add("threads at once", QString::number(QThread::idealThreadCount()));
  section.add("used by the suite", QString::number(OS::getNumberOfCPUs()) +
                                       (isSet ? " (KYR_NUMBER_OF_CPUS is set)" : ""));
}

void Report::describeMemory(Section& section) {
  const MemoryUse use = MemoryObserver::measure();
  if (use.systemTotal == 0 || use.resident == 0) {
    section.miss("What memory is in use cannot be found out.");
  }
  const auto add = [&](const char* name, std::uint64_t bytes) {
    section.add(name, bytes > 0 ? sizeText(bytes) : QString());
  };
  add("of the machine", use.systemTotal);
  add("available", use.systemAvailable);
  add("of this process", use.resident);
  add("at most so far", use.peakResident);
  add("addressable", use.addressTotal);
  add("addresses left", use.addressAvailable);
}

void Report::describeVersions(Section& section) {
  section.add("application of the suite", Settings::isSettled() ? Settings::applicationName() : "");
  section.add("program", applicationText());
  section.add("arguments", argumentsText());
  section.add("file", OS::convertSeparatorsToUnix(OS::getExecutable()));
  section.add("process", QString("%1, of %2").arg(OS::getPID()).arg(bitsOf(QSysInfo::WordSize)));
  section.add("libKyr", libraryVersion());
  section.add("Qt", QString("%1, built against %2").arg(qVersion(), QT_VERSION_STR));
  section.add("zlib", QString("%1, built against %2").arg(zlibVersion(), ZLIB_VERSION));
  section.add("compiler", __VERSION__);
  section.add("runtime", runtimeVersion());
}

std::vector<Report::Directory> Report::directories() {
  const Settings::Settled& settled = Settings::settled();
  const bool isSettled = Settings::isSettled();
  const Settings::ConfigDirectories config =
      isSettled ? settled.config : Settings::configDirectories();
  return {
      {"software", isSettled ? settled.software : Settings::softwareDirectory()},
      {"settings", config.roaming},
      {"settings of this version", config.roamingVersion},
      {"settings of this machine", config.nonRoaming},
      {"profiles", settled.profile.inUse},
      {"profiles as configured", settled.profile.configured},
      {"temporary", OS::convertSeparatorsToUnix(OS::getTempDirectory())},
      {"current", OS::convertSeparatorsToUnix(OS::getCurrentDirectory())},
  };
}

void Report::describeDirectories(Section& section) {
  section.columns = QStringList{"directory", "path", "free"};
  for (const Directory& each : directories()) {
    if (!each.path.isEmpty()) {
      const bool isThere = OS::stat(each.path);
      section.rows.push_back(
          {each.name, each.path, isThere ? freeText(each.path) : QString("is not there")});
    }
  }
}

void Report::describeSettings(Section& section) {
  section.columns = QStringList{"place", "name", "value"};
  for (const SettingsPlace& place : settingsPlaces()) {
    addSettings(section, place);
  }
}

void Report::describeEnvironment(Section& section) {
  const QMap<QString, QString> variables = OS::getEnvironment();
  for (auto each = variables.begin(); each != variables.end(); ++each) {
    section.rows.push_back({each.key(), SystemReport::blankSecrets(each.key(), each.value())});
  }
}

void Report::describeModules(Section& section) {
  section.columns = QStringList{"file", "version", "build", "address", "size"};
  for (const Module& module : modules()) {
    section.rows.push_back({OS::convertSeparatorsToUnix(module.path), module.version,
                            module.identity, hexText(module.address), sizeText(module.size)});
  }
}

}  // namespace Kyr

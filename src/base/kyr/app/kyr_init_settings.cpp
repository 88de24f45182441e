#include <kyr/app/KyrInit.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/core/KyrVersion.h>
#include <kyr/env/settings_p.h>

namespace Kyr {

Application_t KyrInit::getApplication() {
  return Settings::settled().application;
}

const char* KyrInit::getApplicationName() {
  return Settings::applicationName();
}

QString KyrInit::getApplicationVersion() {
  const QString& version = Settings::settled().version;
  return version.isEmpty() ? QString(libraryVersion()) : version;
}

std::optional<CrashReport> KyrInit::lastCrash() {
  return CrashReports::newest(QString::fromUtf8(getApplicationName()));
}

const QString& KyrInit::getConfigDirectory(ConfigDirectory which) {
  const Settings::ConfigDirectories& settled = Settings::settled().config;
  switch (which) {
    case ConfigRoaming:
      return settled.roaming;
    case ConfigRoamingVersion:
      return settled.roamingVersion;
    case ConfigNonRoaming:
      return settled.nonRoaming;
  }
  throw ProgError("unknown directory", true);
}

const QString& KyrInit::getProfileDirectory(ProfileDirectory_t which) {
  const Settings::ProfileDirectories& settled = Settings::settled().profile;
  switch (which) {
    case ProfileInUse:
      return settled.inUse;
    case ProfileOfVersion:
      return settled.ofVersion;
    case ProfileConfigured:
      return settled.configured;
  }
  throw ProgError("unknown directory", true);
}

const QString& KyrInit::getSoftwareDirectory() {
  return Settings::settled().software;
}

QString KyrInit::getConfigVersionString() {
  return Settings::settled().config.version;
}

QString KyrInit::createVersionConfigName(const QString& name) {
  return Settings::createVersionFileName(name);
}

QString KyrInit::getVersionConfigName(const QString& name) {
  return Settings::versionFileName(name);
}

QString KyrInit::getProfileConfigName(const QString& name) {
  return Settings::profileFileName(name);
}

bool KyrInit::updateConfigDirectory(const QString& earlier, const QString& directory) {
  return Settings::updateVersionDirectory(earlier, directory);
}

}  // namespace Kyr

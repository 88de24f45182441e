#include <kyr/env/settings_p.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/core/KyrVersion.h>
#include <kyr/core/forever_p.h>
#include <kyr/env/library_place_p.h>
#include <kyr/os/KyrOS.h>

#include <QDir>

#include <algorithm>

namespace Kyr {

namespace {

/// Never destroyed: a crash while the process ends still asks for it.
Forever<Settings::Settled> settledRoom;
Settings::Settled& current = settledRoom.object;

/// The directory of this version's settings was made by this process and is not filled yet.
bool versionDirectoryIsNew = false;

QString folder(OS::SpecialFolder_t which, const char* below) {
  return OS::convertSeparatorsToUnix(OS::getSpecialFolder(which) + below);
}

QString plainPath(const QString& path) {
  return OS::convertSeparatorsToUnix(QString(path).remove('"'));
}

QString ifThere(const QString& directory, const QString& name) {
  const QString path = directory + "/" + name;
  OS::FileStatus status;
  const bool isFile = !directory.isEmpty() && OS::stat(path, &status) && !status.isDirectory;
  return isFile ? path : QString();
}

/// Copies one entry of a directory, if it is a file that the other directory does not have.
bool copyMissing(const QString& name, const QString& from, const QString& to) {
  const QString source = from + "/" + name;
  const QString target = to + "/" + name;
  OS::FileStatus status;
  const bool isFile = OS::stat(source, &status) && !status.isDirectory;
  return !isFile || OS::stat(target) || OS::copyFile(source, target);
}

bool copyFiles(const QString& from, const QString& to) {
  QStringList names;
  bool complete = OS::readDirectory(from, &names);
  for (const QString& name : names) {
    complete = copyMissing(name, from, to) && complete;
  }
  return complete;
}

// What cannot be made is passed over: a program starts also without a home that it may write.
void createConfigDirectories() {
  const Settings::ConfigDirectories& config = current.config;
  for (const QString& directory : {config.roaming, config.roamingVersion, config.nonRoaming,
                                   config.roaming + "/log", config.nonRoaming + "/tmp"}) {
    OS::mkdir(directory, true);
  }
}

Settings::ProfileDirectories profileDirectories() {
  Settings::ProfileDirectories settled;
  const QString registered = OS::getRegistryValue(OS::RegistryMachine, "ProfileDirectory");
  settled.inUse = OS::convertSeparatorsToUnix(registered);
  settled.configured = settled.inUse;
  if (settled.inUse.isEmpty()) {
    settled.configured = folder(OS::FolderCommonData, "/ORV-Profile");
    settled.inUse = OS::stat(settled.configured) ? settled.configured : QString();
  }
  if (settled.inUse.isEmpty()) {
    settled.inUse = OS::convertSeparatorsToUnix(OS::getEnv("KYR_PROFILE_DIR"));
  }
  if (!settled.inUse.isEmpty()) {
    settled.ofVersion = settled.inUse + "/" + current.config.version;
  }
  return settled;
}

/// The root that the environment names, or the program's path, or else this one.
QString softwareDirectoryOr(const QString& elsewhere) {
  const QString set = plainPath(OS::getEnv("KYR"));
  return set.isEmpty() ? Settings::softwareRoot(OS::getExecutable(), elsewhere) : set;
}

bool hasCatalogues(const QString& root) {
  const QStringList directories = Settings::catalogueDirectories(root);
  return std::any_of(directories.begin(), directories.end(),
                     [](const QString& directory) { return OS::stat(directory); });
}

/// Where the library is installed: the folder with its catalogues.
QString libraryRoot() {
  const QStringList roots = Settings::libraryRoots();
  const auto root = std::find_if(roots.begin(), roots.end(), &hasCatalogues);
  return root != roots.end() ? *root : Platform::libraryDirectory();
}

}  // namespace

// ---- the start ----

void Settings::setApplication(Application_t application, const QString& name,
                              const QString& version) {
  current.application = application;
  current.name = name.toUtf8();
  current.version = version;
}

void Settings::settle(Directories directories) {
  current.config = configDirectories();
  versionDirectoryIsNew = !OS::stat(current.config.roamingVersion);
  if (directories.areMade) {
    createConfigDirectories();
  }
  const bool usesProfile = applicationProperties(current.application).usesProfile;
  current.profile = usesProfile ? profileDirectories() : ProfileDirectories();
  current.software = softwareDirectoryOr(
      directories.currentMayBeSoftware ? OS::getCurrentDirectory() : libraryRoot());
  if (current.software.isNull()) {
    throw ProgError("Unable to determine KYR root dir", true);
  }
}

Settings::ConfigDirectories Settings::configDirectories() {
  const QString version = libraryVersion();
  const QString set = OS::convertSeparatorsToUnix(OS::getEnv("KYR_CONFIG_DIR"));
  ConfigDirectories settled;
  settled.version = "v" + version.left(version.indexOf('-'));
  settled.roaming = set.isEmpty() ? folder(OS::FolderRoamingData, "/orv") : set;
  settled.nonRoaming = set.isEmpty() ? folder(OS::FolderLocalData, "/orv") : set;
  settled.roamingVersion = settled.roaming + "/" + settled.version;
  return settled;
}

QString Settings::softwareRoot(const QString& executable, const QString& elsewhere) {
  const QString path = OS::convertSeparatorsToUnix(executable);
  const auto end = path.lastIndexOf("/bin/", -1, Qt::CaseInsensitive);
  const QString root = end >= 0 ? path.left(end) : elsewhere;
  return end < 0 && root.isEmpty() ? QString() : plainPath(root);
}

QStringList Settings::catalogueDirectories(const QString& root) {
  return {root + "/messages", root + "/share/" KYR_FOLDER "/messages"};
}

QStringList Settings::libraryRoots() {
  const QString library = Platform::libraryDirectory();
  return library.isEmpty() ? QStringList()
                           : QStringList{library, QDir::cleanPath(library + "/.."),
                                         QDir::cleanPath(library + "/../..")};
}

QString Settings::softwareDirectory() {
  return softwareDirectoryOr(OS::getCurrentDirectory());
}

// ---- afterwards ----

const Settings::Settled& Settings::settled() {
  return current;
}

bool Settings::isSettled() {
  return !current.config.version.isEmpty();
}

const char* Settings::applicationName() {
  return current.name.isEmpty() ? applicationProperties(current.application).name
                                : current.name.constData();
}

QString Settings::createVersionFileName(const QString& name) {
  OS::mkdir(current.config.roamingVersion, true);
  return current.config.roamingVersion + "/" + name;
}

QString Settings::versionFileName(const QString& name) {
  return ifThere(current.config.roamingVersion, name);
}

QString Settings::profileFileName(const QString& name) {
  return ifThere(current.profile.inUse, name);
}

bool Settings::updateVersionDirectory(const QString& earlier, const QString& directory) {
  QString& own = current.config.roamingVersion;
  if (!directory.isEmpty()) {
    own = OS::convertSeparatorsToUnix(directory);
    versionDirectoryIsNew = false;
  }
  const bool isNew = versionDirectoryIsNew || !OS::stat(own);
  if (!OS::mkdir(own, true)) {
    return false;
  }
  // After a failure the directory still counts as new, so that another call copies what is missing.
  versionDirectoryIsNew = isNew && !copyFiles(earlier, own);
  return !versionDirectoryIsNew;
}

}  // namespace Kyr

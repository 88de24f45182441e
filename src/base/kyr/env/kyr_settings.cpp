#include <kyr/env/KyrInit.h>
#include <kyr/env/settings_p.h>

#include <kyr/core/KyrProgError.h>
#include <kyr/core/KyrVersion.h>
#include <kyr/core/forever_p.h>
#include <kyr/os/KyrOS.h>

#include <QDir>

#include <array>
#include <cwchar>
#include <iterator>

namespace Kyr {

namespace {

constexpr int longestTempDirectory = 260;

struct Texts {
  QString configVersion;
  QString roamingDirectory;
  QString roamingVersionDirectory;
  QString nonRoamingDirectory;
  QString softwareDirectory;
  QString profileDirectory;
  QString versionProfileDirectory;
  QString configuredProfileDirectory;
};
Forever<Texts> textsRoom;

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

/// Writes a text's decimal digits in front of \a end, without the heap.
/// \return where they begin
wchar_t* writeDigits(wchar_t* end, unsigned number) {
  do {
    *--end = static_cast<wchar_t>(L'0' + number % 10);
    number /= 10;
  } while (number > 0);
  return end;
}

/// Appends as much as fits.
class Appender {
 public:
  Appender(wchar_t* buffer, unsigned size)
      : _start(buffer), _at(buffer + std::wcslen(buffer)), _end(buffer + size) {}

  void append(const wchar_t* text, std::size_t length) {
    _fits = _fits && length < static_cast<std::size_t>(_end - _at);
    if (_fits) {
      _at = std::wmemcpy(_at, text, length) + length;
    }
  }
  /// \return whether all of it did; otherwise there is no text any more
  bool finish() {
    (_fits ? _at : _start)[0] = L'\0';
    return _fits;
  }

 private:
  wchar_t* _start;
  wchar_t* _at;
  wchar_t* _end;
  bool _fits = true;
};

}  // namespace

Application_t KyrInit::_app = ApplicationSheetForming;
unsigned KyrInit::_process_id = 0;
int KyrInit::_start_app_socket = -1;
bool KyrInit::_main_window_started = false;
bool KyrInit::_version_cfg_dir_is_new = false;
QString& KyrInit::_config_version = textsRoom.object.configVersion;
QString& KyrInit::_roaming_cfg_dir = textsRoom.object.roamingDirectory;
QString& KyrInit::_roaming_version_cfg_dir = textsRoom.object.roamingVersionDirectory;
QString& KyrInit::_nonroaming_cfg_dir = textsRoom.object.nonRoamingDirectory;
QString& KyrInit::_software_dir = textsRoom.object.softwareDirectory;
QString& KyrInit::_profile_dir = textsRoom.object.profileDirectory;
QString& KyrInit::_version_profile_dir = textsRoom.object.versionProfileDirectory;
QString& KyrInit::_configured_profile_dir = textsRoom.object.configuredProfileDirectory;

// ---- the start ----

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

void KyrInit::initConfigDirectories() {
  const Settings::ConfigDirectories settled = Settings::configDirectories();
  _config_version = settled.version;
  _roaming_cfg_dir = settled.roaming;
  _nonroaming_cfg_dir = settled.nonRoaming;
  _roaming_version_cfg_dir = settled.roamingVersion;
}

// A home that cannot be written is no reason not to start.
void KyrInit::createConfigDirectories() {
  _version_cfg_dir_is_new = !OS::stat(_roaming_version_cfg_dir);
  for (const QString& directory : {_roaming_cfg_dir, _roaming_version_cfg_dir, _nonroaming_cfg_dir,
                                   _roaming_cfg_dir + "/log", _nonroaming_cfg_dir + "/tmp"}) {
    OS::mkdir(directory, true);
  }
}

void KyrInit::initProfileDirectory() {
  for (QString* const directory :
       {&_profile_dir, &_version_profile_dir, &_configured_profile_dir}) {
    directory->clear();
  }
  if (applicationProperties(_app).usesProfile) {
    settleProfileDirectory();
  }
}

void KyrInit::settleProfileDirectory() {
  const QString registered = OS::getRegistryValue(OS::RegistryMachine, "ProfileDirectory");
  _profile_dir = OS::convertSeparatorsToUnix(registered);
  _configured_profile_dir = _profile_dir;
  if (_profile_dir.isEmpty()) {
    _configured_profile_dir = folder(OS::FolderCommonData, "/ORV-Profile");
    _profile_dir = OS::stat(_configured_profile_dir) ? _configured_profile_dir : QString();
  }
  if (_profile_dir.isEmpty()) {
    _profile_dir = OS::convertSeparatorsToUnix(OS::getEnv("KYR_PROFILE_DIR"));
  }
  if (!_profile_dir.isEmpty()) {
    _version_profile_dir = _profile_dir + "/" + _config_version;
  }
}

QString Settings::softwareRoot(const QString& executable, const QString& currentDirectory) {
  const QString path = OS::convertSeparatorsToUnix(executable);
  const int end = path.lastIndexOf("/bin/", -1, Qt::CaseInsensitive);
  const QString root = end >= 0 ? path.left(end) : currentDirectory;
  return end < 0 && root.isEmpty() ? QString() : plainPath(root);
}

QString Settings::softwareDirectory() {
  const QString set = plainPath(OS::getEnv("KYR"));
  return set.isEmpty() ? softwareRoot(OS::getExecutable(), OS::getCurrentDirectory()) : set;
}

void KyrInit::initSoftwareDirectory() {
  _software_dir = Settings::softwareDirectory();
  if (_software_dir.isNull()) {
    throw ProgError("Unable to determine KYR root dir", true);
  }
}

// ---- afterwards ----

Application_t KyrInit::getApplication() {
  return _app;
}

const char* KyrInit::getApplicationName() {
  return applicationProperties(_app).name;
}

const QString& KyrInit::getConfigDirectory(ConfigDirectory which) {
  switch (which) {
    case ConfigRoaming:
      return _roaming_cfg_dir;
    case ConfigRoamingVersion:
      return _roaming_version_cfg_dir;
    case ConfigNonRoaming:
      return _nonroaming_cfg_dir;
  }
  throw ProgError("unknown directory", true);
}

const QString& KyrInit::getProfileDirectory(ProfileDirectory_t which) {
  switch (which) {
    case ProfileInUse:
      return _profile_dir;
    case ProfileOfVersion:
      return _version_profile_dir;
    case ProfileConfigured:
      return _configured_profile_dir;
  }
  throw ProgError("unknown directory", true);
}

const QString& KyrInit::getSoftwareDirectory() {
  return _software_dir;
}

QString KyrInit::getConfigVersionString() {
  return _config_version;
}

QString KyrInit::getProgramLogfile(unsigned pid) {
  const QString directory = OS::getTempDirectory();
  if (pid == 0 || directory.isEmpty() || directory.size() > longestTempDirectory) {
    return OS::nullDevice();
  }
  return directory + QDir::separator() + "ORV-" + QString::number(pid) + ".log";
}

bool KyrInit::getProgramCrashdumpfile(unsigned pid, wchar_t* buffer, unsigned size) {
  if (!OS::getTempDirectory(buffer, size)) {
    return false;
  }
  std::array<wchar_t, 16> number;
  const wchar_t* const digits = writeDigits(number.data() + number.size(), pid);
  const auto separator = static_cast<wchar_t>(QDir::separator().unicode());
  Appender path(buffer, size);
  path.append(&separator, 1);
  path.append(L"ORV-", 4);
  path.append(digits, static_cast<std::size_t>(number.data() + number.size() - digits));
  path.append(L".dmp", 4);
  return path.finish();
}

QString KyrInit::createVersionConfigName(const QString& name) {
  OS::mkdir(_roaming_version_cfg_dir, true);
  return _roaming_version_cfg_dir + "/" + name;
}

QString KyrInit::getVersionConfigName(const QString& name) {
  return ifThere(_roaming_version_cfg_dir, name);
}

QString KyrInit::getProfileConfigName(const QString& name) {
  return ifThere(_profile_dir, name);
}

bool KyrInit::updateConfigDirectory(const QString& earlier, const QString& directory) {
  if (!directory.isEmpty()) {
    _roaming_version_cfg_dir = OS::convertSeparatorsToUnix(directory);
    _version_cfg_dir_is_new = false;
  }
  const bool isNew = _version_cfg_dir_is_new || !OS::stat(_roaming_version_cfg_dir);
  if (!OS::mkdir(_roaming_version_cfg_dir, true)) {
    return false;
  }
  // What could not be copied now may be copied by another call.
  _version_cfg_dir_is_new = isNew && !copyFiles(earlier, _roaming_version_cfg_dir);
  return !_version_cfg_dir_is_new;
}

}  // namespace Kyr

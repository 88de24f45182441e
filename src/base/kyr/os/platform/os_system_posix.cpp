#include <kyr/core/KyrQtVersion.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_environment_p.h>
#include <kyr/os/os_file_p.h>
#include <kyr/text/utf8_p.h>

#include <QSettings>
#include <QSysInfo>

#include <array>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

#include <pwd.h>
#include <unistd.h>

namespace Kyr {

namespace {

using Platform::nameOf;
using Platform::withoutEndSlashes;

/// A directory that the environment names; only an absolute one means the same to every program.
/// \return empty when it names none
QString directoryFromEnvironment(const char* name) {
  const QString path = OS::getEnv(name);
  return path.startsWith('/') ? withoutEndSlashes(path) : QString();
}

/// The home that the system's table of users has.
/// \return null for a user without an entry
const char* homeOfAccount(passwd& entry, std::array<char, 16384>& buffer) {
  passwd* found = nullptr;
  ::getpwuid_r(::getuid(), &entry, buffer.data(), buffer.size(), &found);
  return found ? found->pw_dir : nullptr;
}

std::string textOf(const char* text) {
  return text ? text : "";
}

/// The user's home; empty where that is the root directory, or nobody knows one.
QString home() {
  QString path = directoryFromEnvironment("HOME");
  if (path.isEmpty()) {
    passwd entry{};
    std::array<char, 16384> buffer;
    path = withoutEndSlashes(nameOf(textOf(homeOfAccount(entry, buffer))));
  }
  return path.size() > 1 && path.startsWith('/') ? path : QString();
}

QString folderOr(const char* variable, const char* belowHome) {
  const QString path = directoryFromEnvironment(variable);
  return path.isEmpty() ? home() + belowHome : path;
}

/// Without the heap; mbstowcs() would ask for the locale.
/// \param length of the text in bytes
/// \return false, with an empty text in the buffer, unless all of it is UTF-8 and fits
bool decode(const char* text, std::size_t length, wchar_t* buffer, unsigned size) {
  const char* const end = text + length;
  unsigned count = 0;
  bool isText = true;
  while (isText && text < end && count + 1 < size) {
    const char32_t character = Utf8::take(text, end);
    isText = character != Utf8::none;
    buffer[count++] = static_cast<wchar_t>(character);
  }
  const bool isWhole = isText && text == end;
  buffer[isWhole ? count : 0] = L'\0';
  return isWhole;
}

}  // namespace

const char* OS::nullDevice() noexcept {
  return "/dev/null";
}

bool OS::getTempDirectory(wchar_t* buffer, unsigned size) noexcept {
  if (size == 0) {
    return false;
  }
  const char* const set = std::getenv("TMPDIR");  // qgetenv() would allocate
  const char* const path = set && *set == '/' ? set : "/tmp";
  std::size_t length = std::strlen(path);
  while (length > 1 && path[length - 1] == '/') {
    --length;
  }
  return decode(path, length, buffer, size);
}

QString OS::getSpecialFolder(SpecialFolder_t folder) {
  switch (folder) {
    case FolderRoamingData:
      return folderOr("XDG_CONFIG_HOME", "/.config");
    case FolderLocalData:
      return folderOr("XDG_DATA_HOME", "/.local/share");
    case FolderCommonData:
      return "/var/lib";
  }
  return {};
}

QString OS::getExecutable() {
  std::error_code error;
  return nameOf(std::filesystem::read_symlink("/proc/self/exe", error));
}

QString OS::getCurrentDirectory() {
  std::error_code error;
  return nameOf(std::filesystem::current_path(error));
}

// The file is read as UTF-8, which people write into it by hand; what QSettings writes is ASCII.
QString OS::getRegistryValue(RegistryScope_t scope, const QString& name) {
  QSettings settings(QSettings::NativeFormat,
                     scope == RegistryMachine ? QSettings::SystemScope : QSettings::UserScope,
                     "ORV");
  QtVersion::assumeUtf8In(settings);
  settings.setFallbacksEnabled(false);
  return settings.value(name).toString();
}

QString OS::getEnv(const char* name) {
  const QByteArray value = qgetenv(name);
  return value.isNull() ? QString() : value.isEmpty() ? QString("") : nameOf(value.toStdString());
}

bool Platform::setVariable(const char* name, const QString& value) {
  return qputenv(name, QByteArray::fromStdString(nativePath(value).native()));
}

bool Platform::unsetVariable(const char* name) {
  return qunsetenv(name);
}

QMap<QString, QString> Platform::readEnvironment() {
  QMap<QString, QString> all;
  for (char** entry = environ; entry && *entry; ++entry) {
    const QString text = nameOf(std::string(*entry));
    const auto end = text.indexOf('=');
    if (end > 0) {
      all.insert(text.left(end), text.mid(end + 1));
    }
  }
  return all;
}

QString OS::getSystemName() {
  return QSysInfo::prettyProductName();
}

QString OS::getSystemVersion() {
  return QSysInfo::kernelVersion();
}

QString OS::getProcessorName() {
  std::ifstream file("/proc/cpuinfo");
  for (std::string line; std::getline(file, line);) {
    const QString text = QString::fromStdString(line);
    if (text.startsWith("model name") || text.startsWith("Model")) {
      return text.section(':', 1).simplified();
    }
  }
  return {};
}

unsigned OS::getPID() noexcept {
  return static_cast<unsigned>(::getpid());
}

}  // namespace Kyr

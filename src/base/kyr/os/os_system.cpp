#include <kyr/os/KyrOS.h>
#include <kyr/os/os_environment_p.h>

#include <QThread>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstring>

namespace Kyr {

namespace {

constexpr unsigned longestTempDirectory = 4096;
constexpr unsigned mostCPUs = 1024;

std::atomic<unsigned> numberOfCPUs{0};

/// What one version of Windows is sold as; later builds of the same version may have other names.
struct WindowsName {
  unsigned major;
  unsigned minor;
  unsigned firstBuild;
  const char* desktop;
  const char* server;
};

constexpr WindowsName windowsNames[] = {
    // The newest come first, as the first row that is not newer than a system counts.
    {10, 0, 26100, "11", "Server 2025"},
    {10, 0, 22000, "11", "Server 2022"},
    {10, 0, 20348, "10", "Server 2022"},
    {10, 0, 17763, "10", "Server 2019"},
    {10, 0, 0, "10", "Server 2016"},
    {6, 3, 0, "8.1", "Server 2012 R2"},
    {6, 2, 0, "8", "Server 2012"},
    {6, 1, 0, "7", "Server 2008 R2"},
    {6, 0, 0, "Vista", "Server 2008"},
    {5, 2, 0, "XP Professional x64 Edition", "Server 2003"},
    {5, 1, 0, "XP", "XP"},
    {5, 0, 0, "2000", "2000 Server"},
};

/// Whether a name can be one of a variable; systems differ in what they make of others.
bool isVariable(const char* name) {
  return *name != '\0' && std::strchr(name, '=') == nullptr;
}

}  // namespace

std::mutex& Platform::environmentMutex() {
  static std::mutex mutex;
  return mutex;
}

bool OS::setEnv(const char* name, const QString& value) {
  const std::lock_guard<std::mutex> lock(Platform::environmentMutex());
  return isVariable(name) && !value.contains(QChar::Null) && Platform::setVariable(name, value);
}

bool OS::unsetEnv(const char* name) {
  const std::lock_guard<std::mutex> lock(Platform::environmentMutex());
  return isVariable(name) && Platform::unsetVariable(name);
}

QMap<QString, QString> OS::getEnvironment() {
  const std::lock_guard<std::mutex> lock(Platform::environmentMutex());
  return Platform::readEnvironment();
}

QString OS::getTempDirectory() {
  std::array<wchar_t, longestTempDirectory> buffer;
  return getTempDirectory(buffer.data(), longestTempDirectory)
             ? QString::fromWCharArray(buffer.data())
             : QString();
}

QString OS::getWindowsName(unsigned major, unsigned minor, unsigned build, bool isServer) {
  for (const WindowsName& name : windowsNames) {
    if (name.major == major && name.minor == minor && build >= name.firstBuild) {
      return QString("Windows ") + (isServer ? name.server : name.desktop);
    }
  }
  return QString(isServer ? "Windows Server %1.%2" : "Windows %1.%2").arg(major).arg(minor);
}

void OS::setNumberOfCPUs(unsigned count) noexcept {
  numberOfCPUs = std::min(count, mostCPUs);
}

unsigned OS::getNumberOfCPUs() noexcept {
  const unsigned count = numberOfCPUs;
  return count > 0 ? count : static_cast<unsigned>(std::max(1, QThread::idealThreadCount()));
}

}  // namespace Kyr

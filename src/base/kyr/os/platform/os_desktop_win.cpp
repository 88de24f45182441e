#include <kyr/os/KyrOS.h>
#include <kyr/os/os_proxy_p.h>

#include <QStorageInfo>

#include <array>
#include <string>

#include <windows.h>
#include <winioctl.h>

namespace Kyr {

namespace {

constexpr const wchar_t* internetSettings =
    L"Software\\Microsoft\\Windows\\CurrentVersion\\Internet Settings";

/// Whether a drive is connected by USB: disks there do not call themselves removable.
bool isOnUsb(const QString& letter) {
  const std::wstring name = ("\\\\.\\" + letter + ":").toStdWString();
  const HANDLE drive = ::CreateFileW(name.c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr,
                                     OPEN_EXISTING, 0, nullptr);
  if (drive == INVALID_HANDLE_VALUE) {
    return false;
  }
  STORAGE_PROPERTY_QUERY query{};
  query.PropertyId = StorageDeviceProperty;
  query.QueryType = PropertyStandardQuery;
  STORAGE_DEVICE_DESCRIPTOR found{};
  DWORD size = 0;
  const bool known = ::DeviceIoControl(drive, IOCTL_STORAGE_QUERY_PROPERTY, &query, sizeof query,
                                       &found, sizeof found, &size, nullptr) != 0;
  ::CloseHandle(drive);
  return known && found.BusType == BusTypeUsb;
}

bool isRemovable(const QString& letter) {
  switch (::GetDriveTypeW((letter + ":\\").toStdWString().c_str())) {
    case DRIVE_REMOVABLE:
    case DRIVE_CDROM:
      return true;
    case DRIVE_FIXED:
      return isOnUsb(letter);
    default:
      return false;
  }
}

/// A value of the user's Internet settings; empty where there is none of this kind.
QString readSetting(const wchar_t* name) {
  HKEY key = nullptr;
  if (::RegOpenKeyExW(HKEY_CURRENT_USER, internetSettings, 0, KEY_QUERY_VALUE, &key) !=
      ERROR_SUCCESS) {
    return {};
  }
  std::array<wchar_t, 8192> text{};
  DWORD bytes = (text.size() - 1) * sizeof(wchar_t);
  DWORD type = 0;
  const LSTATUS result =
      ::RegQueryValueExW(key, name, nullptr, &type, reinterpret_cast<BYTE*>(text.data()), &bytes);
  ::RegCloseKey(key);
  if (result != ERROR_SUCCESS) {
    return {};
  }
  return type == REG_DWORD ? QString::number(*reinterpret_cast<const WORD*>(text.data()))
                           : QString::fromWCharArray(text.data());
}

/// The proxy for a scheme: "b:80" of "http=a:80;https=b:80" for "https", "a:80" of "a:80" for all.
QString proxyFor(const QString& scheme, const QString& servers) {
  if (!servers.contains('=')) {
    return servers.trimmed();
  }
  for (const QString& server : servers.split(';', Qt::SkipEmptyParts)) {
    if (server.section('=', 0, 0).trimmed().compare(scheme, Qt::CaseInsensitive) == 0) {
      return server.section('=', 1).trimmed();
    }
  }
  return {};
}

}  // namespace

std::vector<OS::RemovableDrive> OS::getRemovableDrives() {
  std::vector<RemovableDrive> drives;
  DWORD oldMode = 0;
  ::SetThreadErrorMode(SEM_FAILCRITICALERRORS, &oldMode);  // no window that asks for a disc
  const DWORD present = ::GetLogicalDrives();
  for (int i = 0; i < 26; ++i) {
    const QString letter(QChar('A' + i));
    if ((present >> i & 1U) == 0 || !isRemovable(letter)) {
      continue;
    }
    const QStorageInfo info(letter + ":/");
    if (info.isReady()) {
      drives.push_back({letter + ":/", info.name(), QString::fromLatin1(info.fileSystemType()),
                        info.bytesTotal(), info.bytesAvailable(), info.isReadOnly()});
    }
  }
  ::SetThreadErrorMode(oldMode, nullptr);
  return drives;
}

bool Platform::readProxySettings(OS::ProxySettings& settings) {
  settings.script = readSetting(L"AutoConfigURL");
  if (readSetting(L"ProxyEnable") != "1") {
    return !settings.script.isEmpty();
  }
  const QString servers = readSetting(L"ProxyServer");
  settings.http = proxyFor("http", servers);
  settings.https = proxyFor("https", servers);
  for (const QString& exception : readSetting(L"ProxyOverride").split(';', Qt::SkipEmptyParts)) {
    settings.exceptions.append(exception.trimmed());
  }
  return true;
}

}  // namespace Kyr

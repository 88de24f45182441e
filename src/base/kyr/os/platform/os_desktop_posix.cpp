#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>
#include <kyr/os/os_proxy_p.h>

#include <QStorageInfo>

#include <algorithm>
#include <array>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>

#include <mntent.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace Kyr {

namespace {

namespace fs = std::filesystem;

std::string firstWord(const fs::path& file) {
  std::ifstream stream(file);
  std::string word;
  stream >> word;
  return word;
}

/// The system's folder about a device that holds blocks; empty when it is none.
fs::path folderOf(const char* device) {
  struct stat found = {};
  if (::stat(device, &found) != 0 || !S_ISBLK(found.st_mode)) {
    return {};
  }
  const std::string number =
      std::to_string(major(found.st_rdev)) + ':' + std::to_string(minor(found.st_rdev));
  std::error_code error;
  return fs::canonical("/sys/dev/block/" + number, error);
}

/// Whether a device can be taken out. Disks on USB and readers of memory cards do not call
/// themselves removable, so the way by which they are connected counts.
bool isRemovable(const char* device) {
  const fs::path folder = folderOf(device);
  if (folder.empty()) {
    return false;
  }
  std::error_code error;
  const fs::path disk = fs::exists(folder / "partition", error) ? folder.parent_path() : folder;
  return firstWord(disk / "removable") == "1" || firstWord(disk / "device/type") == "SD" ||
         folder.native().find("/usb") != std::string::npos;
}

OS::RemovableDrive describe(const QString& path) {
  const QStorageInfo info(path);
  OS::RemovableDrive drive;
  drive.path = path;
  drive.label = info.name();
  drive.fileSystem = QString::fromLocal8Bit(info.fileSystemType());
  drive.size = std::max<std::int64_t>(0, info.bytesTotal());
  drive.free = std::max<std::int64_t>(0, info.bytesAvailable());
  drive.isReadOnly = info.isReadOnly();
  return drive;
}

}  // namespace

// Only removable drives are asked for more: a server that does not answer would hold everything up.
std::vector<OS::RemovableDrive> OS::getRemovableDrives() {
  std::vector<RemovableDrive> drives;
  const std::unique_ptr<FILE, int (*)(FILE*)> mounts(::setmntent("/proc/self/mounts", "re"),
                                                     &::endmntent);
  std::array<char, 8192> buffer{};
  mntent entry{};
  while (mounts && ::getmntent_r(mounts.get(), &entry, buffer.data(), int{buffer.size()})) {
    if (entry.mnt_fsname[0] == '/' && isRemovable(entry.mnt_fsname)) {
      drives.push_back(describe(Platform::nameOf(std::string(entry.mnt_dir))));
    }
  }
  std::sort(drives.begin(), drives.end(),
            [](const RemovableDrive& a, const RemovableDrive& b) { return a.path < b.path; });
  return drives;
}

// Desktops keep settings of their own and hand them to programs in the environment.
bool Platform::readProxySettings(OS::ProxySettings& /*settings*/) {
  return false;
}

}  // namespace Kyr

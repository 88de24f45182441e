#include <kyr/files/leftovers_p.h>

#include <kyr/files/lock_file_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_directory_p.h>
#include <kyr/os/os_process_p.h>

#include <QDateTime>
#include <QHash>

#include <algorithm>
#include <array>
#include <atomic>

namespace Kyr {

namespace {

/// How the names of all temporary files begin.
constexpr const char* startOfAll = ".kyr-";

constexpr int manyEntries = 1000;

/// Fingerprints of the large directories that were looked at last; 0 for none.
std::array<std::atomic<std::uint64_t>, 64> seen;
std::atomic<unsigned> nextToSee{0};

std::uint64_t fingerprint(const QString& directory) {
  return (std::uint64_t{1} << 32U) | qHash(directory);
}

bool wasSeen(const QString& directory) {
  return std::find(seen.begin(), seen.end(), fingerprint(directory)) != seen.end();
}

void rememberSeen(const QString& directory) {
  seen[nextToSee++ % seen.size()] = fingerprint(directory);
}

bool isOld(const QString& name) {
  constexpr std::int64_t minute = 60000;
  OS::FileStatus status;
  return OS::stat(name, &status) && QDateTime::currentMSecsSinceEpoch() - status.modified > minute;
}

/// Whether an entry is a new lock file of an earlier build, whose process has ended: these are
/// named
/// ".kyr-", 32 hexadecimal digits and ".new". One without a process in it may be about to get its
/// text, and is left alone.
bool isUnusedLock(const QString& directory, const QString& entry) {
  constexpr int length = 41;
  LockFile::Mark mark;
  return entry.size() == length && entry.endsWith(".new") &&
         LockFile::look(directory + entry, mark) == LockFile::Read && LockFile::isStale(mark) &&
         (LockFile::processOf(mark.text) != 0 || isOld(directory + entry));
}

}  // namespace

void Leftovers::sweep(const QString& directory) {
  if (wasSeen(directory)) {
    return;
  }
  QStringList entries;
  int all = 0;
  Platform::readEntries(directory, startOfAll, entries, all);
  if (all > manyEntries) {
    rememberSeen(directory);
  }
  for (const QString& entry : entries) {
    if (TemporaryFile::isLeftover(entry) || isUnusedLock(directory, entry)) {
      Platform::removeFile(directory + entry);
    }
  }
}

}  // namespace Kyr

/// \file
/// Two processes that want the same project: one has it, the other says who.
///
///   sharing DIRECTORY
///
/// The first starts itself a second time, as "sharing DIRECTORY BLOCK".

#include <kyr/core/KyrException.h>
#include <kyr/files/KyrLockingManager.h>
#include <kyr/log/KyrSyncErrorLog.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/KyrProcess.h>
#include <kyr/sync/KyrSharedMemory.h>

#include <QCoreApplication>
#include <QOperatingSystemVersion>

#include <cstdio>
#include <memory>

using namespace Kyr;

namespace {

/// Whether processes can share memory; those of Windows cannot.
bool hasSharedMemory() {
  return QOperatingSystemVersion::currentType() != QOperatingSystemVersion::Windows;
}

/// The other process, which finds the project taken.
int lookOn(const QString& project, int block) {
  ExclusiveLock lock(project);
  const bool isTaken =
      !lock.tryLock() && LockingManager().isLocked(project) == LockingManager::LockedElsewhere;
  SyncSystemErrorLog log(false, project + ".log");
  log << "process " << static_cast<long long>(lock.getOwner().pid) << " has the project" << END_LOG;
  int answer = 0;
  if (hasSharedMemory()) {
    SharedMemory shared(sizeof answer, block);
    shared.copyFrom(&answer, sizeof answer);
    ++answer;
    shared.copyTo(&answer, sizeof answer);
  }
  return isTaken ? 0 : 1;
}

int own(const QString& project) {
  ExclusiveLock lock(project);
  if (!lock.tryLock()) {
    throw Exception(QString("process %1 has the project").arg(lock.getOwner().pid));
  }
  int answer = 41;
  std::unique_ptr<SharedMemory> shared;
  if (hasSharedMemory()) {
    shared = std::make_unique<SharedMemory>(sizeof answer);
    shared->copyTo(&answer, sizeof answer);
  }
  const QString block = QString::number(shared ? shared->getId() : 0);
  Process other(OS::getExecutable(), {project, block});
  other.start();
  other.wait();
  const bool isGood = other.getResult().isGood();
  std::printf("%s", other.getResult().errors.constData());
  if (shared) {
    shared->copyFrom(&answer, sizeof answer);
    std::printf("shared: %d\n", answer);
  }
  std::printf(isGood ? "the other one kept out\n" : "both had the project\n");
  return isGood ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication application(argc, argv);
  const QStringList words = QCoreApplication::arguments();
  if (words.size() < 2 || words.size() > 3 || words[1].startsWith('-')) {
    std::fprintf(stderr, "usage: sharing DIRECTORY, which receives a log\n");
    return 2;
  }
  const QString& folder = words[1];
  try {
    if (words.size() == 3) {
      return lookOn(folder, words[2].toInt());
    }
    OS::makeDirectory(folder);
    return own(folder + "/part.kyr");
  } catch (const Exception& error) {
    std::fprintf(stderr, "sharing: %s\n", qPrintable(error.getText()));
    return 1;
  }
}

#include "support/Support.h"

#include <kyr/files/KyrLockingManager.h>

namespace {

using namespace Kyr;
using KyrTest::readFile;

/// Another process, which asks for a lock when it is told.
class Fighter {
 public:
  explicit Fighter(const QString& path) { _process.start(KYR_FIGHTER, {path}); }
  ~Fighter() { end(); }
  Fighter(const Fighter&) = delete;
  Fighter& operator=(const Fighter&) = delete;

  void tell(const QByteArray& order) {
    _process.write(order);
    _process.waitForBytesWritten();  // it would stay here until somebody waits for the answer
  }
  QByteArray answer() {
    while (!_process.canReadLine() && _process.waitForReadyRead()) {
    }
    return _process.readLine().trimmed();
  }
  QByteArray ask(const QByteArray& order) {
    tell(order);
    return answer();
  }
  QByteArray pid() {
    EXPECT_TRUE(_process.waitForStarted()) << _process.errorString().toStdString();
    return QByteArray::number(_process.processId());
  }
  void end() {
    _process.closeWriteChannel();
    _process.waitForFinished();
  }
  void kill() {
    _process.kill();
    _process.waitForFinished();
  }

 private:
  QProcess _process;
};

TEST(Locking, JudgesTheLockFile) {
  const KyrTest::TempDir dir;
  Fighter other(dir.file("other.dat"));
  Fighter ended(dir.file("ended.dat"));
  const QByteArray live = other.pid();
  const QByteArray dead = ended.pid();
  ended.end();
  const QByteArray own = QByteArray::number(Kyr::OS::getPID());
  const QByteArray null;
  const LockingManager manager;
  const QString path = dir.file(QString::fromUtf8("sc\xc3\xa4n.dat"));
  const QString name = manager.getLockFileName(path);
  ExclusiveLock held(path);
  ASSERT_TRUE(held.tryLock());
  const QByteArray rest = readFile(name).mid(own.size());  // all that tells of this machine
  held.unlock();
  constexpr auto none = LockingManager::NotLocked;
  constexpr auto here = LockingManager::LockedHere;
  constexpr auto there = LockingManager::LockedElsewhere;
  const struct {
    QByteArray text;  // null: no lock file
    LockingManager::LockingMode_t mode;
    bool locks;
    bool staysAtUnlock;
    bool staysAtSweep;
    bool locksExclusively;
    const char* catches;
  } rows[] = {
      {null, none, true, false, false, true, "needs a file"},
      {own + "\n", here, false, false, true, false, "counts its own locks"},
      {live + "\n", there, false, true, true, false, "takes a lock away"},
      {dead + "\n", none, true, true, false, true, "bows to the dead"},
      {live + "\nstart x\n", there, false, true, true, true, "a number is used again"},
      {live + "\nstart 5@\n", there, false, true, true, false, "half a start tells two apart"},
      {dead + "\nhost x\n", there, false, true, true, false, "judges another host"},
      {own + "\nhost x\n", there, false, true, true, false, "is at home on another host"},
      {dead + "\nspace x\n", there, false, true, true, false, "judges another container"},
      {dead + "\nmachine x\n", there, false, true, true, false, "two machines of one name"},
      {dead + "\nkept yes\n", there, false, true, true, false, "judges an unknown machine"},
      {dead + rest, none, true, true, false, true, "the system keeps a file locked for the dead"},
      {live + QByteArray(rest).replace("start ", "start 1"), there, false, true, true, true,
       "lives on in one that has its number"},
      {"text", none, true, false, false, true, "text is a number"},
      {"", none, true, false, false, true, "an empty file is a lock"},
      {" " + own + "abc", here, false, false, true, false, "no rest allowed"},
      {"-1", none, true, true, false, true, "minus means all processes"},
      {"99999999999999999999", none, true, false, false, true, "wraps"},
      {QByteArray(1 << 20, '\0'), none, true, false, false, true, "binary"},
  };
  EXPECT_EQ(name, path + ".lock");
  const auto put = [&](const QByteArray& text) {
    QFile::remove(name);
    if (!text.isNull()) {
      dir.write(QString::fromUtf8("sc\xc3\xa4n.dat.lock"), text);
    }
  };
  for (const auto& row : rows) {
    put(row.text);
    EXPECT_EQ(manager.isLocked(path), row.mode) << row.catches;
    manager.unlock(path);
    EXPECT_EQ(QFile::exists(name), row.staysAtUnlock) << row.catches;
    put(row.text);
    manager.removeStaleLocks(dir.path());
    EXPECT_EQ(QFile::exists(name), row.staysAtSweep) << row.catches;
    put(row.text);
    EXPECT_EQ(manager.lock(path), row.locks) << row.catches;
    EXPECT_EQ(readFile(name), row.locks ? own + "\n" : row.text) << row.catches;
    put(row.text);
    {
      ExclusiveLock lock(path);
      EXPECT_EQ(lock.tryLock(), row.locksExclusively) << row.catches;
      EXPECT_EQ(manager.isLocked(path) == here, row.locksExclusively || row.mode == here)
          << "the other class reads another owner: " << row.catches;
      EXPECT_FALSE(lock.tryLock() || ExclusiveLock(path).tryLock()) << "twice";
      if (row.locksExclusively) {
        manager.removeStaleLocks(dir.path());
        manager.unlock(path);
        EXPECT_TRUE(QFile::exists(name)) << "its lock is taken away";
      }
    }
    EXPECT_EQ(QFile::exists(name), !row.locksExclusively) << row.catches;
  }
}

TEST(Locking, LeavesOtherNamesAlone) {
  const KyrTest::TempDir dir;
  const QString upper = dir.write("scan.LOCK", "text");
  const LockingManager manager(".mine");
  dir.write("a.mine", "0");
  manager.removeStaleLocks(dir.path());
  manager.removeStaleLocks(dir.file("missing"));
  EXPECT_TRUE(QFile::exists(upper) && !QFile::exists(dir.file("a.mine")));
  EXPECT_EQ(manager.getLockFileName("a/b.c\\d"), "a/b.c/d.mine");
  EXPECT_EQ(LockingManager("").getLockFileName("d/f"), "d/f.lock") << "a file is its own lock";
  EXPECT_FALSE(manager.lock(dir.file("missing/f")) || ExclusiveLock("/missing/f").tryLock());
  EXPECT_TRUE(QDir().mkdir(dir.file("x.dat.lock")));
  EXPECT_FALSE(LockingManager().lock(dir.file("x.dat")) ||
               ExclusiveLock(dir.file("x.dat")).tryLock())
      << "a directory";
}

TEST(Locking, NeverHasTwoOwners) {
  const KyrTest::TempDir dir;
  const QString path = dir.file("scan.dat");
  auto killed = std::make_unique<Fighter>(path);
  EXPECT_EQ(killed->ask("0\n"), "taken");
  EXPECT_EQ(ExclusiveLock(path).getOwner().pid, killed->pid().toLongLong());
  killed->kill();
  const QByteArray stale = readFile(path + ".lock");
  const QString earlier = ".kyr-" + QString(32, '5');
  dir.write(earlier + ".new", stale);
  std::vector<std::unique_ptr<Fighter>> fighters;
  for (int i = 0; i < 4; ++i) {
    fighters.push_back(std::make_unique<Fighter>(path));
  }
  for (int round = 0; round < 200; ++round) {
    const auto soon = std::chrono::system_clock::now() + std::chrono::milliseconds(2);
    for (const auto& fighter : fighters) {
      fighter->tell(QByteArray::number(qlonglong(soon.time_since_epoch().count())) + "\n");
    }
    int owners = 0;
    for (const auto& fighter : fighters) {
      owners += fighter->answer() == "taken" ? 1 : 0;
    }
    ASSERT_EQ(owners, 1) << (round % 2 == 0 ? "for a stale lock" : "for a free one");
    for (const auto& fighter : fighters) {
      ASSERT_EQ(fighter->ask("leave\n"), "free");
    }
    ASSERT_FALSE(QFile::exists(path + ".lock")) << "a lock stays";
    if (round % 2 != 0) {
      dir.write("scan.dat.lock", stale);
    }
  }
  EXPECT_LE(QDir(dir.path()).entryList(QDir::Files | QDir::Hidden).size(), 1) << "leftovers";
}

}  // namespace

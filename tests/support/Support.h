/// \file
/// What tests of several rooms share.
#pragma once

#include <kyr/sync/KyrMutex.h>

#include <QByteArray>
#include <QString>

#include <condition_variable>
#include <cstdio>
#include <functional>
#include <memory>
#include <mutex>
#include <string>

namespace KyrTest {

/// A directory of the test's own, removed with its contents at the end.
class TempDir {
 public:
  TempDir();
  ~TempDir();
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const QString& path() const { return _path; }
  /// The path of an entry of the directory.
  QString file(const QString& name) const { return _path + "/" + name; }
  /// Creates a file with these bytes and gives its path.
  QString write(const QString& name, const QByteArray& bytes) const;

 private:
  QString _path;
};

/// The whole content of a file; fails the running test when it cannot be read.
QByteArray readFile(const QString& path);

/// What the Kyr::Exception says that an action throws; empty when it throws none.
std::string failure(const std::function<void()>& action);

/// A stream of the C runtime that closes itself.
using Stream = std::unique_ptr<std::FILE, int (*)(std::FILE*)>;

/// An empty file without a name, for reading and writing bytes.
Stream temporaryStream();

/// The reading end of a pipe that holds these bytes and then ends.
/// \param bytes at most 4000, which every pipe takes at once
Stream pipeStream(const QByteArray& bytes);

/// The path of a device that can be opened but has no space; empty where there is none.
QString fullDevice();

/// From now on writes of this process, and of programs that it becomes, take nothing and call that
/// no failure; but for up to 1000 bytes to a standard stream.
/// \return false where the system has no such thing
bool takeNothing();

/// A moment for which one thread waits and which another opens. Never a sleep.
class Gate {
 public:
  void open();
  /// Waits for the gate; after 30 seconds it fails the test with the name of the moment.
  /// \return false on time-out
  bool await(const char* moment);

 private:
  std::mutex _mutex;
  std::condition_variable _opened;
  bool _open = false;
};

/// How a child process ended.
struct Ended {
  bool exited = false;  ///< ended by itself; code holds its exit code
  int code = -1;
  bool faulted = false;  ///< ended by an access violation
  QByteArray output;     ///< all of its standard output, as bytes
  QByteArray errors;     ///< all of its standard error, as bytes
};

/// Runs \a action in a process of its own, with both output streams captured, and waits for it.
/// The child ends with code 0 when the action returns; no test failure inside it is noticed.
///
/// The child may be a copy of this process or a new run of the same test up to this call. So
/// call it from the test's own thread with no other thread alive, the same number of times in
/// every run, whatever earlier calls gave back; what the action captures must be the same in
/// every run; and nothing that it changes, captured or global, comes back.
Ended inChild(const std::function<void()>& action);

/// Leaves the process without another large block of memory, until it is called with false. For
/// processes that end soon.
void limitMemory(bool limited);

/// Whether the child ended by the deliberate fault of an internal program error, with exactly
/// this report; explains itself otherwise. For EXPECT_EQ(reportProblem(...), "").
std::string reportProblem(const Ended& ended, const std::string& report);

/// The report of an error that was raised with a site.
std::string report(const std::string& message, const std::string& function, const std::string& file,
                   unsigned line);

/// Sets the process's locale, by the name it has on Linux, and puts the old one back; ok() is false
/// where it is missing.
class ScopedLocale {
 public:
  explicit ScopedLocale(const char* name);
  ~ScopedLocale();
  ScopedLocale(const ScopedLocale&) = delete;
  ScopedLocale& operator=(const ScopedLocale&) = delete;
  bool ok() const { return _ok; }

 private:
  std::string _before;
  bool _ok;
};

/// Sets an environment variable and puts the old value back.
class ScopedEnvironment {
 public:
  ScopedEnvironment(const char* name, const QByteArray& value);
  ~ScopedEnvironment();
  ScopedEnvironment(const ScopedEnvironment&) = delete;
  ScopedEnvironment& operator=(const ScopedEnvironment&) = delete;

 private:
  const char* _name;
  bool _wasSet;
  QByteArray _before;
};

}  // namespace KyrTest

/// \file
/// What tests of several rooms share, with GoogleTest and what many of them need of the standard
/// library, of Qt and of this one; what is not its own is compiled in advance.
#pragma once

#include <kyr/core/KyrException.h>
#include <kyr/core/KyrPlatform.h>
#include <kyr/core/KyrProgError.h>
#include <kyr/core/KyrStructVector.h>
#include <kyr/os/KyrOS.h>
#include <kyr/sync/KyrMutex.h>

#include <gtest/gtest.h>

#include <QByteArray>
#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QStringList>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cmath>
#include <condition_variable>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <functional>
#include <iostream>
#include <limits>
#include <list>
#include <map>
#include <memory>
#include <mutex>
#include <new>
#include <optional>
#include <random>
#include <sstream>
#include <string>
#include <string_view>
#include <thread>
#include <tuple>
#include <type_traits>
#include <utility>
#include <vector>

/// Leaves a test out where a sanitizer does the opposite of what it is about.
#if defined(KYR_ADDRESS_SANITIZER)
#define KYR_SKIP_ADDRESS_SANITIZER(reason) GTEST_SKIP() << (reason)
#else
#define KYR_SKIP_ADDRESS_SANITIZER(reason) static_cast<void>(0)
#endif
#if defined(KYR_THREAD_SANITIZER)
#define KYR_SKIP_SANITIZERS(reason) GTEST_SKIP() << (reason)
#else
#define KYR_SKIP_SANITIZERS(reason) KYR_SKIP_ADDRESS_SANITIZER(reason)
#endif

namespace KyrTest {

using Bytes = Kyr::StructVector<unsigned char>;

/// The bytes of an array, as the library's packers take them.
Bytes bytesOf(const QByteArray& array);

/// The bytes of a vector as an array.
template <class Vector>
QByteArray arrayOf(const Vector& bytes) {
  return {reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size())};
}

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

/// Makes a file of these bytes and gives its path; fails the running test when it cannot be
/// written.
QString writeFile(const QString& path, const QByteArray& bytes);

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

/// Makes all later writes of this process, and of programs that it becomes, take nothing without a
/// failure; up to 1000 bytes to a standard stream are taken.
/// \return false where the system has no such thing
bool takeNothing();

/// A moment for which one thread waits and which another opens; a test waits by it, never by a
/// sleep.
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

/// Whether \a action waits for what does not come: it runs in a thread of its own, which stays
/// behind when the action has not ended after a fifth of a second. A machine that is too busy says
/// yes as well, so expect yes.
bool hangs(std::function<void()> action);

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

/// Runs a program to its end; fails the running test when it does not come within a minute.
/// \param folder where it runs, if not here
/// \param input what its standard input holds
/// \param prepare changes the process before it is started
Ended runProgram(const QString& program, const QStringList& words, const QString& folder = {},
                 const QByteArray& input = {}, const std::function<void(QProcess&)>& prepare = {});

/// Takes care that the process gets no further large block of memory, until it is called with
/// false. For processes that end soon.
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

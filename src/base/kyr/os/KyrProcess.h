/// \file
/// Other programs, started and watched.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <memory>

namespace Kyr {

/// How a program ended.
/// \threadsafety a value
struct ProcessResult {
  int exitCode = 0;      ///< what the program returned; meaningless if it crashed
  bool crashed = false;  ///< ended by a fault, a signal or terminate()
  QByteArray output;     ///< all of its standard output, as bytes
  QByteArray errors;     ///< all of its standard error, as bytes

  /// Whether it ended by itself and returned 0.
  bool isGood() const { return !crashed && exitCode == 0; }
};

/// A program in a process of its own, with its output captured.
///
/// Set it up, start(), then wait(). Needs no event loop. While it runs, its output is taken in only
/// by wait(): a program that writes much stops until somebody waits for it.
/// \code
/// Process solver("solver", {"--fast", name});
/// solver.start();
/// if (!solver.wait(60000)) {
///   solver.terminate(1000);
/// }
/// const bool good = solver.getResult().isGood();
/// \endcode
/// \threadsafety one thread per object, always the same
class KYR_EXPORT Process {
 public:
  /// \param program found as by OS::findExecutable()
  explicit Process(const QString& program, const QStringList& arguments = {});
  /// Kills the program if it still runs.
  ~Process();
  Process(const Process&) = delete;
  Process& operator=(const Process&) = delete;

  /// Before start(): where the program begins; by default the current directory.
  void setDirectory(const QString& directory);
  /// Before start(): sets a variable in the program's environment, which otherwise is this one.
  /// \param value null removes the variable
  void setEnv(const QString& name, const QString& value);
  /// Before start(): what the program reads from its standard input; by default nothing.
  void setInput(const QByteArray& bytes);

  /// \throws Exception when there is no such program, or it cannot be started; once only
  void start();
  /// The system's number of the process; 0 while it does not run.
  std::int64_t getPid() const;
  /// Whether it was started and has not ended.
  bool isRunning();

  /// Waits for the end.
  /// \param milliseconds negative: without limit; 0 only looks
  /// \return whether it has ended, or never ran
  bool wait(int milliseconds = -1);
  /// Asks the program to end, and kills it if it has not ended within \a milliseconds. Programs for
  /// Windows without a window cannot be asked.
  /// \param milliseconds 0 or negative kills it at once, without asking
  void terminate(int milliseconds);

  /// What is known after wait() gave true.
  /// \throws Exception while it runs, and when it never ran
  ProcessResult getResult() const;

 private:
  class Running;
  std::unique_ptr<Running> _running;
};

}  // namespace Kyr

/// \file
/// Logs that several threads write.
#pragma once

#include <kyr/log/KyrErrorLog.h>
#include <kyr/sync/KyrMutex.h>

#include <atomic>

namespace Kyr {

/// As ErrorLog, under a lock of its own.
///
/// Each insertion is one step, a message is not: when two threads build messages in the same log
/// at the same time, their pieces mix. See to it that one thread at a time builds a message, or
/// give each thread its own log.
/// \code
/// static SyncErrorLog log;
/// static Mutex building("readAll", "reader", 1);
/// const AutoMutex lock(&building);
/// log << "cannot read " << name << END_LOG;
/// \endcode
/// \threadsafety any thread
class KYR_EXPORT SyncErrorLog : public LogInserters<SyncErrorLog> {
 public:
  /// The same as #END_LOG.
  static constexpr char endline = END_LOG;

  /// \param append true keeps the newest message last, false first
  explicit SyncErrorLog(bool append = false);
  SyncErrorLog(const SyncErrorLog&) = delete;
  SyncErrorLog& operator=(const SyncErrorLog&) = delete;
  virtual ~SyncErrorLog();

  /// Empties the text and the message that is being built.
  void clear();
  /// The finished messages that were kept.
  QString getLog() const;
  /// Whether the text of finished messages has any character.
  bool isLog() const;
  /// Sets how much text is kept; see LogText.
  /// \param characters 0 to 2^29; others are taken for the nearest of these
  void setLimit(int characters);
  /// Has every message that is finished from now on also written into a journal, whatever else
  /// becomes of it.
  void setFeed(const LogFeed& feed);

 protected:
  /// Takes the finished message over and empties it; here, adds it to the log text. Runs with
  /// the lock held: overriding functions neither lock again nor insert into this log.
  virtual void appendLine() KYR_REQUIRES(_mutex);

  /// Adds a number to the message, in decimal.
  SyncErrorLog& addUInt64(unsigned long long value);
  /// Adds a number to the message, in decimal.
  SyncErrorLog& addInt64(long long value);
  /// Adds a number to the message, with six significant digits.
  SyncErrorLog& addDouble(double value);
  /// Adds a Latin-1 character to the message; #END_LOG finishes it.
  SyncErrorLog& addChar(char value);
  /// Adds a text to the message.
  SyncErrorLog& addString(const QString& text);
  /// Adds an address to the message, as "0x" and at least eight hexadecimal digits.
  SyncErrorLog& addPointer(const void* address);

  /// The message that is being built, or was just finished when appendLine() runs.
  QString& message() KYR_REQUIRES(_mutex) { return _message; }
  /// All finished messages that were kept.
  LogText& logText() KYR_REQUIRES(_mutex) { return _log; }
  /// Whether the newest message comes last.
  bool isAppending() const { return _append; }

  mutable Mutex _mutex;  ///< guards the message and the text; not recursive

 private:
  friend class LogInserters<SyncErrorLog>;

  QString _message KYR_GUARDED_BY(_mutex);
  LogText _log KYR_GUARDED_BY(_mutex);
  const bool _append;
  LogFeed _feed KYR_GUARDED_BY(_mutex);
};

/// Echoes finished messages to standard error, or drops them. Keeps none: isLog() stays false.
/// \threadsafety any thread
class KYR_EXPORT SyncOutputErrorLog : public SyncErrorLog {
 public:
  /// \param outputMessage whether messages are echoed
  explicit SyncOutputErrorLog(bool outputMessage);
  ~SyncOutputErrorLog() override;

  /// Whether messages are echoed from now on; does not wait for the lock.
  void setOutputMessage(bool outputMessage) { _outputMessage = outputMessage; }

 protected:
  void appendLine() override KYR_REQUIRES(_mutex);

 private:
  std::atomic<bool> _outputMessage;
};

/// The log of a whole process: echoes every message to standard error with an empty line behind
/// it, keeps it with a line feed at its end, and appends it to a file.
///
/// The file is opened for each message and the message written in one piece, so the file is
/// complete whenever the process dies, and several logs and processes may share it. It gets every
/// message, also those that the text in memory has no room for. A file that cannot be opened or
/// written is left alone without a report.
/// \threadsafety any thread
class KYR_EXPORT SyncSystemErrorLog : public SyncErrorLog {
 public:
  /// \param flag kept for the application; changes nothing here
  /// \param fileName created when missing; empty for no file
  SyncSystemErrorLog(bool flag, const QString& fileName);
  ~SyncSystemErrorLog() override;

  /// What the constructor was given.
  bool flag() const { return _flag; }

 protected:
  void appendLine() override KYR_REQUIRES(_mutex);

 private:
  const bool _flag;
  const QString _fileName;
};

}  // namespace Kyr

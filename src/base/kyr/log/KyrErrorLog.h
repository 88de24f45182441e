/// \file
/// Logs that collect the messages of a long operation, for one thread.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/log/KyrJournal.h>

#include <QString>

#include <cstdint>

namespace Kyr {

/// Inserted into a log, this character ends the message: `log << text << END_LOG`.
inline constexpr char END_LOG = '\1';

/// The finished messages of a log as one text. Adding is cheap at both ends.
///
/// The text has a bound. Beyond it the oldest lines fall out, which are at the end that messages
/// are not added to, and "[lines left out: N]" stands in their place. At least the newest lines
/// with limit() characters stay, at most a quarter more. A message that alone is longer than the
/// bound falls out whole. Lines fall out, too, when there is no memory for a message; the message
/// itself only if that does not help. None of this throws.
/// \code
/// LogText text;
/// text.setLimit(100000);
/// text.add("the newest message", false);  // in front
/// \endcode
/// \threadsafety one thread at a time; text() of a const object counts as use
class KYR_EXPORT LogText {
 public:
  /// The bound of every log unless it is given another: 256 Mi characters.
  static constexpr int defaultLimit = 1 << 28;

  /// An empty text with the default bound.
  LogText();
  LogText(const LogText& other);
  LogText& operator=(const LogText& other);
  ~LogText();

  /// Whether the text has no character.
  bool isEmpty() const { return _text.isEmpty(); }
  /// Empties the text; the lines that fell out are forgotten.
  void clear();

  /// The bound, in characters of QString.
  int limit() const { return _limit; }
  /// Sets the bound that counts from the next message on.
  /// \param characters 0 to 2^29; others are taken for the nearest of these
  void setLimit(int characters);

  /// Adds a message with a line feed between it and the text so far. To an empty text it comes
  /// without one, so empty messages before the first other leave no trace.
  /// \param atEnd true adds behind the text, false in front of it
  void add(const QString& message, bool atEnd);
  /// Appends \a piece as it is.
  void append(const QString& piece);

  /// The text. After messages were added in front, the next call costs as much as the text is
  /// long, and so does the next message in front after that.
  const QString& text() const;

 private:
  /// What fell out at one end of the text.
  struct Fallen {
    std::uint64_t lines = 0;
    std::uint64_t noted = 0;  ///< how many of the lines the note at this end counts
    int noteSize = 0;         ///< characters of the note and its line feed; 0 without a note
  };

  KYR_HIDDEN void turn(bool reversed) const;
  KYR_HIDDEN void enter(const QString& message, bool reversed, bool withFeed) noexcept;
  KYR_HIDDEN bool keep(const QString& message, bool reversed, bool withFeed,
                       std::int64_t most) noexcept;
  KYR_HIDDEN void put(const QString& message, bool withFeed);
  KYR_HIDDEN void shorten(std::int64_t most);

  mutable QString _text;
  mutable bool _reversed = false;  ///< _text runs from its last character to its first
  int _limit = defaultLimit;
  Fallen _fallen[2];  ///< in front of the text, and behind it
};

/// Where a log's messages go besides: into a journal, at one level.
/// \threadsafety any thread, as long as nobody assigns
struct LogFeed {
  Journal* journal = nullptr;                 ///< lives longer than the log; null for none
  Journal::Level_t level = Journal::Warning;  ///< of all entries
  const char* source = nullptr;               ///< a literal

  /// Adds an entry to the journal, if there is one.
  void give(const QString& message) const {
    if (journal) {
      journal->add(level, source, message);
    }
  }
};

/// What can be inserted into a log with `<<`, for all logs alike; the base of ErrorLog and
/// SyncErrorLog, not for use by itself. Each inserts into the message that is being built.
/// \threadsafety as the log
template <class Log>
class LogInserters {
 public:
  /// Adds a number in decimal; an unsigned char is one too.
  Log& operator<<(unsigned char value) { return log().addUInt64(value); }
  Log& operator<<(unsigned short value) { return log().addUInt64(value); }
  Log& operator<<(unsigned int value) { return log().addUInt64(value); }
  Log& operator<<(unsigned long value) { return log().addUInt64(value); }
  Log& operator<<(unsigned long long value) { return log().addUInt64(value); }
  /// Adds a number in decimal; a signed char and a bool come here as int.
  Log& operator<<(short value) { return log().addInt64(value); }
  Log& operator<<(int value) { return log().addInt64(value); }
  Log& operator<<(long value) { return log().addInt64(value); }
  Log& operator<<(long long value) { return log().addInt64(value); }
  /// Adds a number with six significant digits, as "0.1" or "1.23457e+06".
  Log& operator<<(float value) { return log().addDouble(double(value)); }
  Log& operator<<(double value) { return log().addDouble(value); }
  /// Adds a Latin-1 character, or ends the message with END_LOG.
  Log& operator<<(char value) { return log().addChar(value); }
  /// Adds a text, of which a pointer names UTF-8; null adds nothing.
  Log& operator<<(const char* text) { return log().addString(QString::fromUtf8(text)); }
  Log& operator<<(const QString& text) { return log().addString(text); }
  /// Adds an address as "0x" and at least eight hexadecimal digits.
  Log& operator<<(const void* address) { return log().addPointer(address); }

 protected:
  LogInserters() = default;
  LogInserters(const LogInserters&) = default;
  LogInserters& operator=(const LogInserters&) = default;
  ~LogInserters() = default;

 private:
  Log& log() { return static_cast<Log&>(*this); }
};

/// Collects messages for the caller of an operation, which shows them at the end.
///
/// A message is built piece by piece with `<<` and ends with #END_LOG; until then it belongs to
/// no text, and clear() discards it. Numbers read the same in every locale. Owned by the
/// caller, handed to operations by pointer. Subclasses decide in appendLine() what becomes of a
/// finished message. The text keeps the newest 256 Mi characters, as LogText says.
/// \code
/// ErrorLog log(true);
/// log << "cannot read " << name << ", error " << 7 << END_LOG;
/// if (log.isLog()) {
///   std::cerr << log.getLog().toStdString();
/// }
/// \endcode
/// \threadsafety one thread at a time; see SyncErrorLog for several
class KYR_EXPORT ErrorLog : public LogInserters<ErrorLog> {
 public:
  /// The same as #END_LOG.
  static constexpr char endline = END_LOG;

  /// \param append true keeps the newest message last, false first
  explicit ErrorLog(bool append = false);
  ErrorLog(const ErrorLog& other);
  ErrorLog& operator=(const ErrorLog& other);
  virtual ~ErrorLog();

  /// Empties the text and the message that is being built.
  void clear();
  /// The finished messages, separated by line feeds.
  /// \return valid until the next message is finished
  const QString& getLog() const { return _log.text(); }
  /// Whether the text of finished messages has any character.
  bool isLog() const { return !_log.isEmpty(); }
  /// Sets how much text is kept; see LogText.
  /// \param characters 0 to 2^29; others are taken for the nearest of these
  void setLimit(int characters) { _log.setLimit(characters); }
  /// Has every message that is finished from now on also written into a journal, whatever else
  /// becomes of it. Copies of the log do the same.
  void setFeed(const LogFeed& feed) { _feed = feed; }

 protected:
  /// Takes the finished message over and empties it; here, adds it to the log text.
  virtual void appendLine();

  /// Adds a number to the message, in decimal.
  ErrorLog& addUInt64(unsigned long long value);
  /// Adds a number to the message, in decimal.
  ErrorLog& addInt64(long long value);
  /// Adds a number to the message, with six significant digits.
  ErrorLog& addDouble(double value);
  /// Adds a Latin-1 character to the message; #END_LOG finishes it.
  ErrorLog& addChar(char value);
  /// Adds a text to the message.
  ErrorLog& addString(const QString& text);
  /// Adds an address to the message, as "0x" and at least eight hexadecimal digits.
  ErrorLog& addPointer(const void* address);

  /// The message that is being built, or was just finished when appendLine() runs.
  QString& message() { return _message; }
  /// All finished messages that were kept.
  LogText& logText() { return _log; }
  /// Whether the newest message comes last.
  bool isAppending() const { return _append; }

 private:
  friend class LogInserters<ErrorLog>;

  QString _message;
  LogText _log;
  bool _append;
  LogFeed _feed;
};

/// Echoes finished messages to standard error, or drops them. Keeps none: isLog() stays false.
/// \threadsafety one thread at a time
class KYR_EXPORT OutputErrorLog : public ErrorLog {
 public:
  /// \param outputMessage whether messages are echoed
  explicit OutputErrorLog(bool outputMessage);
  OutputErrorLog(const OutputErrorLog& other);
  OutputErrorLog& operator=(const OutputErrorLog& other);
  ~OutputErrorLog() override;

  /// Whether messages are echoed from now on.
  void setOutputMessage(bool outputMessage) { _outputMessage = outputMessage; }

 protected:
  void appendLine() override;

 private:
  bool _outputMessage;
};

}  // namespace Kyr

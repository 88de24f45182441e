/// \file
/// A log file that tells when, where and how badly, for those who look for a fault later.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

#include <atomic>
#include <cstdint>
#include <memory>

namespace Kyr {

class JournalWriter;

/// How a Journal keeps its file.
/// \threadsafety a value
struct JournalOptions {
  /// Bytes from which on the file becomes an old one; at least 4096 are taken.
  std::int64_t mostBytes = 10 << 20;
  /// How many old files stay, with ".1" to ".N" behind the name, the newest first; 1 to 99.
  int oldFiles = 5;
  /// For later versions.
  std::uintptr_t spare[4] = {};
};

/// Writes entries into a file, one in a line: the time in UTC, the level, process and thread, the
/// source, the text.
///
///     2026-11-22T14:15:16.123Z info    31784/31790 batch        57 files read
///     2026-11-22T14:15:16.207Z warning 31784/31784 batch        missing: 3 to 8
///
/// Several processes may write one journal at once, through objects of their own: no line is torn
/// or lost, also when the file becomes an old one. Files that others rename or remove meanwhile are
/// left, and begun anew. See docs/formats/journal.md.
///
/// Entries of the level Warning and above are in the hands of the system when add() returns, and so
/// all before them; others at most a fifth of a second later, when the journal ends, when the
/// process exits, or when it crashes, if KyrInit::InitLibrary() has installed the crash handler.
/// Only a process that is killed from outside may lose that fifth of a second.
/// \code
/// Journal journal("batch.log");
/// journal.add(Journal::Info, "batch", name + " read");
/// if (journal.takes(Journal::Debug)) {  // costs a look, so that the text need not be made
///   journal.add(Journal::Debug, "batch", QString("at %1").arg(point));
/// }
/// ErrorLog log;
/// log.setFeed({&journal, Journal::Warning, "reader"});  // as SyncErrorLog
/// \endcode
/// Nothing fails because of a journal. What cannot be written is counted and said once on standard
/// error, and the journal itself says how much is missing as soon as it can be written again.
/// \threadsafety any thread
class KYR_EXPORT Journal {
 public:
  /// How much an entry matters; what is below the level of the journal is not written.
  enum Level_t : int {
    Debug = 0,    ///< for developers
    Info = 1,     ///< what was done
    Warning = 2,  ///< what the user should know of
    Error = 3,    ///< what has failed
    Silence = 4,  ///< for setLevel(): nothing at all
  };

  /// \param fileName opened with the first entry, and created when it is missing; its directory
  ///        must be there
  explicit Journal(const QString& fileName, const JournalOptions& options = {});
  /// Writes what is left. Error logs that feed the journal must have ended.
  ~Journal();
  Journal(const Journal&) = delete;
  Journal& operator=(const Journal&) = delete;

  /// Sets the lowest level that is written from now on; Info in the beginning.
  void setLevel(Level_t level) noexcept { _level.store(level, std::memory_order_relaxed); }
  /// Whether entries of a level are written.
  bool takes(Level_t level) const noexcept {
    return level >= _level.load(std::memory_order_relaxed);
  }

  /// Adds an entry, unless its level is too low.
  /// \param source the part of the program, a word; null for none
  /// \param text may have several lines; line feeds at its end do not count
  void add(Level_t level, const char* source, const QString& text) noexcept;
  /// As above.
  /// \param text in UTF-8; null counts as empty
  void add(Level_t level, const char* source, const char* text) noexcept;

  /// Hands all entries to the system.
  /// \return false when some of those that waited could not be written
  bool flush() noexcept;

  /// Why entries were lost last, or the file could not become an old one; empty if there was
  /// nothing of that.
  QString getError() const;
  /// How many entries could not be written.
  std::uint64_t getLost() const noexcept;

 private:
  std::atomic<int> _level{Info};
  const std::unique_ptr<JournalWriter> _writer;
};

}  // namespace Kyr

/// \file
/// The file of a journal, which several processes write.
#pragma once

#include <kyr/log/KyrJournal.h>

#include <QString>

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <filesystem>

namespace Kyr {

namespace Platform {

// Platform files define these. Whoever fails leaves the reason in lastError().

constexpr std::intptr_t noJournal = -1;

/// Opens a file for writing to its end, in one step for each write, whoever else writes. Others may
/// rename and remove it meanwhile.
/// \return noJournal on failure
std::intptr_t openJournal(const std::filesystem::path& name) noexcept;
void closeJournal(std::intptr_t file) noexcept;

struct JournalLook {
  bool isRemoved = false;  ///< no name leads to the file any more
  bool isCurrent = true;   ///< the given name leads to it
  std::uint64_t size = 0;
};
/// \return how it was before, as far as the system does not tell
JournalLook lookAtJournal(std::intptr_t file, const std::filesystem::path& name) noexcept;

/// Keeps others from doing the same until the file is closed; does not wait for them.
/// \return false when somebody else has it
bool lockJournal(std::intptr_t file) noexcept;

}  // namespace Platform

/// Appends lines to a file and makes it an old one when it is large.
///
/// Each write is one call of the system, which finds the end of the file itself, so that those of
/// other processes are never torn. Who makes the file an old one holds a lock on it; all others go
/// on writing to the file that they have, see behind their next write that it has another name by
/// now, and open the new one.
/// \threadsafety one thread at a time, but for writeForEnd()
class JournalFile {
 public:
  JournalFile(const QString& name, const JournalOptions& options);
  ~JournalFile();
  JournalFile(const JournalFile&) = delete;
  JournalFile& operator=(const JournalFile&) = delete;

  /// Opens the file where it can be: append() does, too, but writeForEnd() does not.
  bool open() noexcept;
  /// Appends whole lines.
  /// \return false when not all was written; getReason() says why
  bool append(const char* bytes, std::size_t count) noexcept;
  /// As append(), to the file as it is, without memory; also while another thread is in append().
  void writeForEnd(const char* bytes, std::size_t count) noexcept;
  /// The next append() opens the file anew.
  void close() noexcept;

  /// Why append() failed last, or the file cannot become an old one.
  const QString& getReason() const { return _reason; }

 private:
  bool fail();
  void makeOld();
  bool moveUp() const;
  std::filesystem::path oldName(int number) const;

  const std::filesystem::path _name;
  const std::uint64_t _mostBytes;
  const int _oldFiles;
  std::atomic<std::intptr_t> _file{Platform::noJournal};
  bool _endsInsideLine = false;
  QString _reason;
};

}  // namespace Kyr

#include <kyr/log/journal_file_p.h>

#include <kyr/os/os_file_p.h>
#include <kyr/os/os_reason_p.h>

#include <QFileInfo>

#include <algorithm>
#include <exception>
#include <system_error>

namespace Kyr {

namespace {

constexpr std::int64_t fewestBytes = 4096;
constexpr int mostOldFiles = 99;
constexpr int attempts = 3;  // at a file that others remove again and again

/// The name that means the same file in every current directory; empty for none.
std::filesystem::path absolute(const QString& name) {
  return Platform::isName(name) ? Platform::verbatimPath(QFileInfo(name).absoluteFilePath())
                                : std::filesystem::path();
}

}  // namespace

JournalFile::JournalFile(const QString& name, const JournalOptions& options)
    : _name(absolute(name)),
      _mostBytes(static_cast<std::uint64_t>(std::max(options.mostBytes, fewestBytes))),
      _oldFiles(std::clamp(options.oldFiles, 1, mostOldFiles)) {
  Platform::surviveFileLimit();
}

JournalFile::~JournalFile() {
  close();
}

bool JournalFile::append(const char* bytes, std::size_t count) noexcept try {
  for (int attempt = 0; attempt < attempts; ++attempt) {
    if (!open()) {
      return fail();
    }
    if (_endsInsideLine && !Platform::writeAll(_file, "\n", 1)) {
      return fail();
    }
    _endsInsideLine = !Platform::writeAll(_file, bytes, count);
    if (_endsInsideLine) {
      return fail();
    }
    const Platform::JournalLook look = Platform::lookAtJournal(_file, _name);
    if (!look.isRemoved) {
      if (!look.isCurrent || look.size >= _mostBytes) {
        makeOld();
      }
      return true;
    }
    close();
  }
  _reason = "the file is removed again and again";
  return false;
} catch (const std::exception&) {
  return false;  // for want of memory
}

void JournalFile::writeForEnd(const char* bytes, std::size_t count) noexcept {
  const std::intptr_t file = _file;
  if (file != Platform::noJournal) {
    Platform::writeAll(file, bytes, count);
  }
}

bool JournalFile::open() noexcept {
  if (_file == Platform::noJournal && !_name.empty()) {
    _file = Platform::openJournal(_name);
  }
  return _file != Platform::noJournal;
}

void JournalFile::close() noexcept {
  const std::intptr_t file = _file.exchange(Platform::noJournal);
  if (file != Platform::noJournal) {
    Platform::closeJournal(file);
  }
}

bool JournalFile::fail() {
  _reason = _name.empty() ? QString(Platform::badName) : Platform::inWords(Platform::lastError());
  return false;
}

// The lock is on the file itself. Whoever gets it later finds that the name leads elsewhere by
// then. A new file is open before the old one is closed: a crash always finds one.
void JournalFile::makeOld() {
  if (Platform::lockJournal(_file) && Platform::lookAtJournal(_file, _name).isCurrent) {
    const bool isRenamed = moveUp();
    _reason =
        isRenamed ? _reason : "it cannot be renamed: " + Platform::inWords(Platform::lastError());
  }
  const std::intptr_t next = Platform::openJournal(_name);
  if (next != Platform::noJournal) {
    Platform::closeJournal(_file.exchange(next));
  }
}

/// Gives every file the number behind its own, as far as they have no gap; the last one takes the
/// place of the oldest. Where one stays, so do all newer ones.
bool JournalFile::moveUp() const {
  std::error_code error;
  int number = 1;
  while (number < _oldFiles && std::filesystem::exists(oldName(number), error)) {
    ++number;
  }
  for (; number > 0 && !error; --number) {
    std::filesystem::rename(oldName(number - 1), oldName(number), error);
  }
  return !error;
}

/// \param number 0 for the file itself
std::filesystem::path JournalFile::oldName(int number) const {
  std::filesystem::path name = _name;
  return number > 0 ? name += "." + std::to_string(number) : name;
}

}  // namespace Kyr

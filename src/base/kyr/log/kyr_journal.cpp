#include <kyr/log/KyrJournal.h>

#include <kyr/log/journal_file_p.h>
#include <kyr/log/journal_line_p.h>
#include <kyr/log/journals_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/sync/own_thread_p.h>
#include <kyr/time/time_clock_p.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <mutex>
#include <new>
#include <thread>

namespace Kyr {

namespace {

constexpr std::size_t bufferSize = 16 << 10;
constexpr std::size_t largeLine = 64 << 10;            // whose memory is given back
constexpr std::chrono::milliseconds delay(200);        // of entries that nobody waits for
constexpr std::chrono::milliseconds endPatience(100);  // with a thread that is writing
constexpr std::size_t mostJournals = 16;               // with a buffer

/// Those whose buffers the end of the process must find. It is read in a crash, so it has no lock.
std::atomic<JournalWriter*> journals[mostJournals];
/// Held while a journal comes or goes, and around a fork.
std::mutex listMutex;
/// How many threads go through the journals for the end of the process; none goes meanwhile.
std::atomic<int> readersForEnd{0};

}  // namespace

/// Entries wait in a buffer, as a call of the system for each would cost more than all else. It is
/// written when it is full, at once for a warning, and after a while by a thread.
class JournalWriter {
 public:
  JournalWriter(const QString& fileName, const JournalOptions& options);
  ~JournalWriter();
  JournalWriter(const JournalWriter&) = delete;
  JournalWriter& operator=(const JournalWriter&) = delete;

  void add(Journal::Level_t level, std::string_view source, std::string_view text) noexcept;
  void lose() noexcept { ++_lost; }
  bool flush() noexcept;
  QString error() const;
  std::uint64_t lost() const noexcept { return _lost; }

  void flushForEnd() noexcept;
  void beforeFork() noexcept;
  void behindFork(bool inChild) noexcept;

 private:
  bool isLookedAfter() noexcept;
  void lookAfter();
  void write(const char* bytes, std::size_t count, std::uint64_t entries) noexcept;
  void writeBuffer() noexcept;
  void tellOfLost();
  void sayOnce();

  mutable std::mutex _mutex;  // guards all that is not atomic
  std::condition_variable _filled;
  std::unique_ptr<std::thread> _thread;
  bool _stops = false;
  const QString _fileName;
  JournalFile _file;
  JournalLine _format;
  std::string _line;
  std::uint64_t _process = OS::getPID();
  std::uint64_t _entries = 0;  // in the buffer
  std::uint64_t _told = 0;     // of the lost entries, in the journal
  bool _isSaid = false;
  bool _isListed = false;
  std::atomic<std::uint64_t> _lost{0};

  // The end of the process reads this without the mutex. Who has claimed the buffer may write it.
  std::array<char, bufferSize> _buffer;
  std::atomic<std::size_t> _used{0};
  std::atomic<bool> _isClaimed{false};
  std::atomic<bool> _isEnding{false};
  std::atomic<bool> _endHasClaim{false};
  std::atomic<std::size_t> _writtenForEnd{0};
};

// ---- all journals ----

namespace {

template <class Action>
void forAllJournals(Action action) noexcept {
  for (const std::atomic<JournalWriter*>& room : journals) {
    if (JournalWriter* const journal = room) {
      action(*journal);
    }
  }
}

/// \return false when there are too many
bool enlist(JournalWriter* journal) noexcept {
  const std::lock_guard<std::mutex> lock(listMutex);
  return std::any_of(std::begin(journals), std::end(journals), [journal](auto& room) {
    JournalWriter* none = nullptr;
    return room.compare_exchange_strong(none, journal);
  });
}

void strike(JournalWriter* journal) noexcept {
  const std::lock_guard<std::mutex> lock(listMutex);
  for (std::atomic<JournalWriter*>& room : journals) {
    JournalWriter* found = journal;
    room.compare_exchange_strong(found, nullptr);
  }
  while (readersForEnd != 0) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
}

void beforeFork() noexcept {
  listMutex.lock();
  forAllJournals([](JournalWriter& journal) { journal.beforeFork(); });
}

void behindFork(bool inChild) noexcept {
  if (inChild) {
    readersForEnd = 0;
  }
  forAllJournals([inChild](JournalWriter& journal) { journal.behindFork(inChild); });
  listMutex.unlock();
}

/// Done when the library is loaded: a fork beside the first journal would leave this half done in
/// the child, whose own first journal would wait for it for ever.
[[maybe_unused]] const bool isPrepared = [] {
  std::atexit(&Journals::flushForEnd);
  Platform::callAroundForks(
      &beforeFork, [] { behindFork(false); }, [] { behindFork(true); });
  return true;
}();

}  // namespace

void Journals::flushForEnd() noexcept {
  ++readersForEnd;
  forAllJournals([](JournalWriter& journal) { journal.flushForEnd(); });
  --readersForEnd;
}

// ---- one journal ----

JournalWriter::JournalWriter(const QString& fileName, const JournalOptions& options)
    : _fileName(fileName), _file(fileName, options) {
  _isListed = enlist(this);
}

JournalWriter::~JournalWriter() {
  {
    const std::lock_guard<std::mutex> lock(_mutex);
    _stops = true;
  }
  _filled.notify_all();
  if (_thread) {
    _thread->join();
  }
  flush();
  strike(this);
}

void JournalWriter::add(Journal::Level_t level, std::string_view source,
                        std::string_view text) noexcept {
  const std::lock_guard<std::mutex> lock(_mutex);
  try {
    _line.clear();
    _format.append(
        _line, {Clock::milliseconds(), level, _process, Platform::threadNumber(), source, text});
  } catch (const std::exception&) {
    lose();  // for want of memory
    return;
  }
  if (_line.size() > bufferSize - _used) {
    writeBuffer();
  }
  if (!_isListed || _isEnding || _line.size() > bufferSize - _used) {
    write(_line.data(), _line.size(), 1);
  } else {
    const bool isFirst = _used == 0;
    if (isFirst) {
      _file.open();
    }
    std::copy(_line.begin(), _line.end(), _buffer.begin() + static_cast<std::ptrdiff_t>(_used));
    _used += _line.size();
    ++_entries;
    if (level >= Journal::Warning || !isLookedAfter()) {
      writeBuffer();
    } else if (isFirst) {
      _filled.notify_one();
    }
  }
  if (_line.capacity() > largeLine) {
    _line = std::string();
  }
}

bool JournalWriter::flush() noexcept {
  const std::lock_guard<std::mutex> lock(_mutex);
  const std::uint64_t before = _lost;
  writeBuffer();
  return _lost == before;
}

QString JournalWriter::error() const {
  const std::lock_guard<std::mutex> lock(_mutex);
  return _file.getReason();
}

/// Whether a thread writes the buffer after a while; starts it.
bool JournalWriter::isLookedAfter() noexcept {
  if (!_thread && !_stops) {
    try {
      _thread = std::make_unique<std::thread>([this] { lookAfter(); });
    } catch (const std::exception&) {
      return false;  // another entry may find memory and threads again
    }
  }
  return _thread != nullptr;
}

void JournalWriter::lookAfter() {
  std::unique_lock<std::mutex> lock(_mutex);
  while (!_stops) {
    _filled.wait(lock, [this] { return _stops || _used > 0; });
    _filled.wait_for(lock, delay, [this] { return _stops; });
    writeBuffer();
  }
}

void JournalWriter::writeBuffer() noexcept {
  if (_used > 0 && !_isClaimed.exchange(true)) {
    write(_buffer.data(), _used, _entries);
    _used = 0;
    _entries = 0;
    _isClaimed = false;
  }
}

void JournalWriter::write(const char* bytes, std::size_t count, std::uint64_t entries) noexcept {
  bool isWritten = false;
  try {
    tellOfLost();
    isWritten = _file.append(bytes, count);
    sayOnce();
  } catch (const std::exception&) {  // for want of memory; what is lost is counted
  }
  _lost += isWritten ? 0 : entries;
}

/// Writes an entry about those that are missing where it stands.
void JournalWriter::tellOfLost() {
  const std::uint64_t lost = _lost;
  if (lost != _told) {
    const std::string text = std::to_string(lost - _told) + " entries are missing here";
    std::string line;
    _format.append(line, {Clock::milliseconds(), Journal::Error, _process, Platform::threadNumber(),
                          "journal", text});
    _told = _file.append(line.data(), line.size()) ? lost : _told;
  }
}

void JournalWriter::sayOnce() {
  const QString& reason = _file.getReason();
  if (!reason.isEmpty() && !_isSaid) {
    _isSaid = true;
    std::fprintf(stderr, "Journal '%s' is not complete: %s\n", _fileName.toLocal8Bit().constData(),
                 reason.toLocal8Bit().constData());
  }
}

// ---- the end of the process, and its doubling ----

// A thread that is writing holds the claim. What comes behind the claim is written by whoever
// comes.
void JournalWriter::flushForEnd() noexcept {
  _isEnding = true;
  for (auto waited = endPatience; !_endHasClaim && _isClaimed.exchange(true) && waited.count() > 0;
       --waited) {
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  _endHasClaim = true;
  const std::size_t used = _used;
  const std::size_t begin = _writtenForEnd.exchange(used);
  if (used > begin) {
    _file.writeForEnd(_buffer.data() + begin, used - begin);
  }
}

void JournalWriter::beforeFork() noexcept {
  _mutex.lock();
}

// The child has neither the thread nor a right to the entries of its parent. The condition still
// counts the thread as waiting, so that its end would wait for that: it is left as it is.
void JournalWriter::behindFork(bool inChild) noexcept {
  if (inChild) {
    new (&_filled) std::condition_variable;
    static_cast<void>(
        _thread.release());  // NOLINT(bugprone-unused-return-value): is no thread here
    _used = 0;
    _entries = 0;
    _told = _lost;
    _process = OS::getPID();
    _file.close();
  }
  _mutex.unlock();
}

// ---- the interface ----

Journal::Journal(const QString& fileName, const JournalOptions& options)
    : _writer(std::make_unique<JournalWriter>(fileName, options)) {}

Journal::~Journal() = default;

void Journal::add(Level_t level, const char* source, const QString& text) noexcept {
  if (!takes(level)) {
    return;
  }
  try {
    const QByteArray bytes = text.toUtf8();
    _writer->add(level, source ? source : "",
                 {bytes.constData(), static_cast<std::size_t>(bytes.size())});
  } catch (const std::exception&) {
    _writer->lose();  // for want of memory
  }
}

void Journal::add(Level_t level, const char* source, const char* text) noexcept {
  if (takes(level)) {
    _writer->add(level, source ? source : "", text ? text : "");
  }
}

bool Journal::flush() noexcept {
  return _writer->flush();
}

QString Journal::getError() const {
  return _writer->error();
}

std::uint64_t Journal::getLost() const noexcept {
  return _writer->lost();
}

}  // namespace Kyr

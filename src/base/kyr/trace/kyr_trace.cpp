#include <kyr/trace/KyrTrace.h>

#include <kyr/core/KyrException.h>
#include <kyr/core/forever_p.h>
#include <kyr/os/KyrOS.h>
#include <kyr/os/os_file_p.h>
#include <kyr/os/os_reason_p.h>
#include <kyr/sync/KyrMutex.h>
#include <kyr/sync/own_thread_p.h>
#include <kyr/text/utf8_p.h>
#include <kyr/trace/trace_line_p.h>
#include <kyr/trace/trace_p.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <new>
#include <optional>
#include <string>

namespace Kyr {

/// Support matches reports by these numbers; they do not follow edits of this file.
namespace site {
constexpr unsigned ControlMutex = 46, FileMutex = 47;
constexpr const char* File = "kyr_trace";
}  // namespace site

namespace {

constexpr const char* cannotWrite = "cannot write the trace %1";
constexpr const char* variable = "KYR_TRACE";
constexpr const char* end = "\n]\n";

constexpr unsigned shardCount = 16;
constexpr std::size_t shardCapacity = 32768;
constexpr std::int64_t longestWait = 1000000000;  // nanoseconds until events reach the file
constexpr int forEver = -1;
/// At the end of a process on Windows, a thread that was ended may hold a lock for good.
constexpr int patience = 200;  // milliseconds

/// What waits to be written, of the threads that have come to this one. So the memory does not grow
/// with the threads, nobody need notice their ends, and they seldom wait for each other.
struct alignas(64) Shard {
  char* bytes() const KYR_REQUIRES(mutex);

  Mutex mutex;
  std::size_t size KYR_GUARDED_BY(mutex) = 0;
};

/// What a thread is in the traces. Without a destructor, which some systems call too late.
struct TracedThread {
  std::uint64_t number = 0;  // the system's; 0 for not asked yet
  unsigned shard = 0;
  unsigned announced = 0;  // the trace in which it stands with its name
  std::array<char, 64> name{};
};

Forever<Mutex> controlLock("Kyr::Trace::start", site::File, site::ControlMutex);
/// Held while a trace begins or ends.
Mutex& control = controlLock.object;
Forever<std::optional<QString>> asked;  // the name last given, with its "%p"; of control
bool hasProcessNumber = false;          // that name; of control

Forever<std::array<Shard, shardCount>> shardRoom;
std::array<Shard, shardCount>& shards = shardRoom.object;
char waiting[shardCount][shardCapacity];  // apart from the shards, as it begins with zeros only
std::atomic<unsigned> lastShard{0};
std::atomic<std::int64_t> writeAllAt{0};

Forever<Mutex> fileLock("Kyr::Trace::stop", site::File, site::FileMutex);
Mutex& fileMutex = fileLock.object;
std::intptr_t file KYR_GUARDED_BY(fileMutex) = Platform::noTrace;
std::uint64_t fileSize KYR_GUARDED_BY(fileMutex) = 0;  // up to the last whole event
Forever<QString> nameRoom;
QString& writtenName KYR_GUARDED_BY(fileMutex) = nameRoom.object;

std::atomic<unsigned> trace{0};  // the number of the present one, or of the last
std::atomic<unsigned> process{0};
std::atomic<std::uint64_t> lastLife{0};

thread_local TracedThread traced;

char* Shard::bytes() const {
  return waiting[this - shards.data()];
}

TracedThread& thisThread() noexcept {
  if (traced.number == 0) {
    traced.number = Platform::threadNumber();
    traced.shard = lastShard++ % shardCount;
  }
  return traced;
}

void say(const QString& text) {
  const QByteArray bytes = text.toLocal8Bit() + '\n';
  std::fwrite(bytes.constData(), 1, static_cast<std::size_t>(bytes.size()), stderr);
  std::fflush(stderr);
}

TraceLine begun(const char* name, const char* phase) noexcept {
  TraceLine line;
  line.add(",\n{\"name\":").addText(name).add(",\"ph\":\"").add(phase);
  line.add("\",\"pid\":").add(process).add(",\"tid\":").add(thisThread().number);
  return line;
}

TraceLine named(const char* what, const char* name, std::size_t length) noexcept {
  TraceLine line = begun(what, "M");
  line.add(",\"args\":{\"name\":").addText(name, length).add("}}");
  return line;
}

TraceLine timed(const char* name, const char* category, const char* phase,
                std::int64_t time) noexcept {
  TraceLine line = begun(name, phase);
  line.add(",\"cat\":\"").add(category).add("\",\"ts\":").addTime(time);
  return line;
}

}  // namespace

std::atomic<Trace::State_t> Trace::_state{Trace::Unknown};

/// Brings events to the file.
class TraceWriter {
 public:
  static void begin(const QString& pattern) KYR_REQUIRES(control);
  static void finish(int wait) noexcept KYR_REQUIRES(control);
  static bool beginAsAsked() KYR_REQUIRES(control);
  static void finishAtExit() noexcept;
  /// Takes an event of this thread.
  static void add(const TraceLine& line) noexcept;

 private:
  static bool isOn() { return Trace::_state.load(std::memory_order_relaxed) == Trace::On; }
  static void append(Shard& shard, const TraceLine& line) noexcept KYR_REQUIRES(shard.mutex);
  static void announce(TracedThread& thread, Shard& shard) noexcept KYR_REQUIRES(shard.mutex);
  static void write(Shard& shard, int wait) noexcept KYR_REQUIRES(shard.mutex);
  static void writeAll(int wait) noexcept;
  static void writeAllIfDue() noexcept;
  static bool send(const char* bytes, std::size_t count) KYR_REQUIRES(fileMutex);
  static void giveUp() noexcept KYR_REQUIRES(fileMutex);
  static void complete(int wait) noexcept;
  static void beforeFork() noexcept;
  static void afterFork() noexcept;
  static void inChild() noexcept;

  static const bool isPrepared;
};

void TraceWriter::begin(const QString& pattern) {
  const QString name = QString(pattern).replace("%p", QString::number(OS::getPID()));
  Platform::expectName(cannotWrite, name);
  const QByteArray program =
      OS::convertSeparatorsToUnix(OS::getExecutable()).section('/', -1).toUtf8();
  asked.object = pattern;
  hasProcessNumber = name != pattern;
  const AutoMutex lock(&fileMutex);
  file = Platform::openTrace(name);
  if (file == Platform::noTrace) {
    Platform::fail(cannotWrite, name);
  }
  writtenName = name;
  fileSize = 0;
  process = OS::getPID();
  ++trace;
  writeAllAt = Trace::now() + longestWait;
  Trace::_state = Trace::On;
  TraceLine line = named("process_name", program, static_cast<std::size_t>(program.size()));
  const std::string first = "[" + std::string(line.data() + 1, line.size() - 1);
  send(first.data(), first.size());
}

/// Writes events, each of which is whole.
bool TraceWriter::send(const char* bytes, std::size_t count) {
  if (file == Platform::noTrace) {
    return false;
  }
  if (!Platform::writeAll(file, bytes, count)) {
    giveUp();
    return false;
  }
  fileSize += count;
  return true;
}

/// Ends the trace with what the file has taken.
void TraceWriter::giveUp() noexcept {
  Trace::_state = Trace::Off;
  try {
    const QString why = Platform::inWords(Platform::lastError());
    say(QString(cannotWrite).replace("%1", writtenName) + ": " + why);
  } catch (const std::bad_alloc&) {
    std::fputs("cannot write the trace\n", stderr);
  }
  Platform::cutTrace(file, fileSize);
  Platform::writeAll(file, end, std::strlen(end));
  Platform::closeTrace(file);
  file = Platform::noTrace;
}

void TraceWriter::complete(int wait) noexcept {
  if (!fileMutex.tryLock(wait)) {
    return;
  }
  const AutoMutex lock(&fileMutex, AutoMutex::Taken);
  if (send(end, std::strlen(end))) {
    Platform::closeTrace(file);
    file = Platform::noTrace;
  }
}

// Who is about to add an event finds out under the lock of its shard that there is no trace.
void TraceWriter::finish(int wait) noexcept {
  Trace::_state = Trace::Off;
  writeAll(wait);
  complete(wait);
}

void TraceWriter::finishAtExit() noexcept {
  if (Trace::_state != Trace::Unknown && control.tryLock(patience)) {
    const AutoMutex lock(&control, AutoMutex::Taken);
    finish(patience);
  }
}

bool TraceWriter::beginAsAsked() {
  if (Trace::_state == Trace::Unknown) {
    Trace::_state = Trace::Off;  // for what is traced on the way to a trace
    const QString name = asked.object ? *asked.object : OS::getEnv(variable);
    if (!name.isEmpty()) {
      begin(name);
    }
  }
  return isOn();
}

void TraceWriter::write(Shard& shard, int wait) noexcept {
  if (fileMutex.tryLock(wait)) {
    const AutoMutex lock(&fileMutex, AutoMutex::Taken);
    send(shard.bytes(), shard.size);
    shard.size = 0;
  }
}

void TraceWriter::writeAll(int wait) noexcept {
  for (Shard& shard : shards) {
    if (shard.mutex.tryLock(wait)) {
      const AutoMutex lock(&shard.mutex, AutoMutex::Taken);
      write(shard, wait);
    }
  }
}

void TraceWriter::writeAllIfDue() noexcept {
  const std::int64_t now = Trace::now();
  std::int64_t due = writeAllAt.load(std::memory_order_relaxed);
  if (now >= due && writeAllAt.compare_exchange_strong(due, now + longestWait)) {
    writeAll(forEver);
  }
}

void TraceWriter::append(Shard& shard, const TraceLine& line) noexcept {
  if (shardCapacity - shard.size < line.size()) {
    write(shard, forEver);
  }
  std::memcpy(shard.bytes() + shard.size, line.data(), line.size());
  shard.size += line.size();
}

/// Tells the trace of a thread when it comes to it first.
void TraceWriter::announce(TracedThread& thread, Shard& shard) noexcept {
  if (thread.announced == trace) {
    return;
  }
  thread.announced = trace;
  const bool isFirst = thread.number == process;
  const char* const name = thread.name[0] == '\0' && isFirst ? "main" : thread.name.data();
  if (*name != '\0') {
    append(shard, named("thread_name", name, std::strlen(name)));
  }
}

void TraceWriter::add(const TraceLine& line) noexcept {
  TracedThread& thread = thisThread();
  {
    Shard& shard = shards[thread.shard];
    const AutoMutex lock(&shard.mutex);
    if (!isOn()) {
      return;
    }
    announce(thread, shard);
    append(shard, line);
  }
  writeAllIfDue();
}

// When the library is loaded: a fork beside the start of the first trace would leave the child a
// lock that nobody frees.
const bool TraceWriter::isPrepared = [] {
  Platform::callAroundForks(&beforeFork, &afterFork, &inChild);
  return std::atexit(&finishAtExit) == 0;
}();

// A child gets the locks free, and none of what its parent is still to write.
void TraceWriter::beforeFork() noexcept KYR_NO_THREAD_SAFETY_ANALYSIS {
  control.lock();
  for (Shard& shard : shards) {
    shard.mutex.lock();
  }
  fileMutex.lock();
}

void TraceWriter::afterFork() noexcept KYR_NO_THREAD_SAFETY_ANALYSIS {
  fileMutex.unlock(nullptr, site::File, 0);
  for (Shard& shard : shards) {
    shard.mutex.unlock(nullptr, site::File, 0);
  }
  control.unlock(nullptr, site::File, 0);
}

void TraceWriter::inChild() noexcept KYR_NO_THREAD_SAFETY_ANALYSIS {
  if (file != Platform::noTrace) {
    Platform::closeParentsTrace(file);
    file = Platform::noTrace;
  }
  for (Shard& shard : shards) {
    shard.size = 0;
  }
  traced.number = 0;
  if (isOn()) {
    Trace::_state = hasProcessNumber ? Trace::Unknown : Trace::Off;
  }
  afterFork();
}

void Trace::start(const QString& fileName) {
  const AutoMutex lock(&control);
  TraceWriter::finish(forEver);
  TraceWriter::begin(fileName);
}

void Trace::stop() noexcept {
  const AutoMutex lock(&control);
  TraceWriter::finish(forEver);
}

bool Trace::startAsAsked() noexcept {
  const AutoMutex lock(&control);
  try {
    return TraceWriter::beginAsAsked();
  } catch (const std::exception& failure) {
    std::fprintf(stderr, "%s\n", failure.what());
    return false;
  }
}

void Trace::nameThread(const QString& name) noexcept {
  try {
    const QByteArray bytes = name.toUtf8();
    const std::size_t length = Utf8::lengthOfStart(
        bytes.constData(), static_cast<std::size_t>(bytes.size()), traced.name.size() - 1);
    traced.name = {};
    std::copy_n(bytes.constData(), length, traced.name.begin());
    traced.announced = 0;
  } catch (const std::bad_alloc&) {
    // The thread keeps the name that it has.
  }
}

std::int64_t Trace::now() noexcept {
  using Clock = std::chrono::steady_clock;
  const auto since = Clock::now().time_since_epoch();
  return std::max<std::int64_t>(std::chrono::duration_cast<std::chrono::nanoseconds>(since).count(),
                                1);
}

void Trace::addSpan(const char* name, const char* category, std::int64_t begun) noexcept {
  if (begun != 0 && isOn()) {
    TraceLine line = timed(name, category, "X", begun);
    line.add(",\"dur\":").addTime(now() - begun).add("}");
    TraceWriter::add(line);
  }
}

void Trace::addMark(const char* name) noexcept {
  TraceLine line = timed(name, "mark", "i", now());
  line.add(",\"s\":\"t\"}");
  TraceWriter::add(line);
}

void TraceLife::record() noexcept {
  const std::uint64_t life = ++lastLife;
  TraceLine first = timed(_name, _category, "b", _begun);
  first.add(",\"id\":").add(life);
  try {
    if (const QByteArray detail = _detail.toUtf8(); !detail.isEmpty()) {
      first.add(",\"args\":{\"detail\":");
      first.addText(detail.constData(), static_cast<std::size_t>(detail.size())).add("}");
    }
  } catch (const std::bad_alloc&) {
    // The life is recorded without what tells it from others.
  }
  TraceWriter::add(first.add("}"));
  TraceLine last = timed(_name, _category, "e", Trace::now());
  TraceWriter::add(last.add(",\"id\":").add(life).add("}"));
  _begun = 0;
}

}  // namespace Kyr

#include <kyr/crash/crash_dump_format_p.h>
#include <kyr/crash/crash_old_dumps_p.h>
#include <kyr/crash/crash_posix_p.h>
#include <kyr/text/utf8_p.h>

#include <algorithm>
#include <cerrno>
#include <ctime>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/utsname.h>
#include <unistd.h>

namespace Kyr {

namespace {

using namespace Crash;

/// How much of a stack is written: bytes from the stack pointer towards the thread's beginning.
constexpr std::uint64_t mostStackOfCrash = 1U << 20;
constexpr std::uint64_t mostStackOfOthers = 128U << 10;
/// Bytes of code that are written around the instruction that faulted.
constexpr std::uint64_t codeAround = 256;

constexpr std::size_t mostStreams = 16;
constexpr std::size_t mostModules = 2048;
constexpr std::size_t mostThreads = 4096;

using Path = std::array<char, 4096>;

/// The path that was given when the handler was installed; empty for none.
Path dumpFile{};

// Static memory, as the handler's stack is small; there is one crash in the life of a process.
std::array<Dump::Module, mostModules> modules;
std::array<Dump::Thread, mostThreads> threadEntries;
std::array<Dump::MemoryRange, mostThreads + 1> ranges;
std::array<char, std::size_t{1} << 16> systemText;

/// The file as it grows: each piece goes to its end, and the head is written last.
class DumpFile {
 public:
  explicit DumpFile(int descriptor) noexcept : _descriptor(descriptor) {}

  /// \return where the bytes came to lie; every piece begins at a multiple of 8
  Dump::Location append(const void* bytes, std::size_t size) noexcept {
    const std::uint32_t offset = _end;
    write(offset, bytes, size);
    _end += static_cast<std::uint32_t>((size + 7) & ~std::size_t{7});
    return {static_cast<std::uint32_t>(size), offset};
  }

  /// A number of entries and then the entries.
  template <typename Entry>
  Dump::Location appendList(const Entry* entries, std::uint32_t count) noexcept {
    // The entries follow their number at once, so the number stands 4 bytes before a multiple of 8.
    const std::uint32_t offset = _end + 4;
    const std::uint32_t size = count * static_cast<std::uint32_t>(sizeof(Entry));
    write(offset, &count, sizeof count);
    write(offset + 4, entries, size);
    _end += 8 + ((size + 7) & ~7U);
    return {4 + size, offset};
  }

  /// Appends a name in UTF-16, with its length in bytes in front.
  std::uint32_t appendName(const char* utf8, std::size_t length) noexcept;

  /// Appends memory of this process; what cannot be read becomes zeros.
  Dump::MemoryRange appendMemory(std::uint64_t begin, std::uint64_t end) noexcept;

  void addStream(std::uint32_t type, Dump::Location location) noexcept {
    if (_streamCount < _streams.size()) {
      _streams[_streamCount++] = {type, location};
    }
  }

  void writeHead() noexcept {
    Dump::Header header{};
    header.signature = Dump::signature;
    header.version = Dump::version;
    header.streamCount = _streamCount;
    header.directory = sizeof header;
    header.time = static_cast<std::uint32_t>(::time(nullptr));
    write(0, &header, sizeof header);
    write(sizeof header, _streams.data(), sizeof _streams);
    if (_error == 0 && ::ftruncate(_descriptor, _end) != 0) {
      _error = errno;
    }
  }

  /// What went wrong first; 0 when all is well.
  int error() const noexcept { return _error; }

 private:
  void write(std::uint32_t offset, const void* bytes, std::size_t size) noexcept {
    const auto* next = static_cast<const char*>(bytes);
    while (size > 0 && _error == 0) {
      const ssize_t count = ::pwrite(_descriptor, next, size, offset);
      if (count < 0 && errno == EINTR) {
        continue;
      }
      if (count <= 0) {
        _error = count < 0 ? errno : EIO;
        return;
      }
      next += count;
      offset += static_cast<std::uint32_t>(count);
      size -= static_cast<std::size_t>(count);
    }
  }

  int _descriptor;
  int _error = 0;
  std::uint32_t _end = sizeof(Dump::Header) + sizeof(Dump::Directory) * mostStreams;
  std::uint32_t _streamCount = 0;
  std::array<Dump::Directory, mostStreams> _streams{};
};

/// Takes a character off a name; a byte that is none in UTF-8 counts as one of its own.
char32_t takeCharacter(const char*& next, const char* end) noexcept {
  const char* const begin = next;
  const char32_t character = Utf8::take(next, end);
  if (character != Utf8::none) {
    return character;
  }
  next = begin + 1;
  return static_cast<unsigned char>(*begin);
}

std::uint32_t DumpFile::appendName(const char* utf8, std::size_t length) noexcept {
  static std::array<char16_t, 4096> units;
  std::size_t count = 2;  // the length takes the place of the first two units
  for (const char* end = utf8 + length; utf8 < end && count + 3 < units.size();) {
    const char32_t character = takeCharacter(utf8, end);
    if (character > 0xffff) {
      units[count++] = static_cast<char16_t>(0xd7c0 + (character >> 10));
      units[count++] = static_cast<char16_t>(0xdc00 + (character & 0x3ff));
    } else {
      units[count++] = static_cast<char16_t>(character);
    }
  }
  units[count] = 0;
  const auto bytes = static_cast<std::uint32_t>((count - 2) * sizeof(char16_t));
  std::memcpy(units.data(), &bytes, sizeof bytes);
  return append(units.data(), (count + 1) * sizeof(char16_t)).offset;
}

Dump::MemoryRange DumpFile::appendMemory(std::uint64_t begin, std::uint64_t end) noexcept {
  const auto size = static_cast<std::uint32_t>(end - begin);
  const std::uint32_t offset = _end;
  constexpr std::uint32_t page = 4096;
  for (std::uint32_t done = 0; done < size && _error == 0;) {
    const std::uint64_t address = begin + done;
    const auto piece =
        static_cast<std::uint32_t>(std::min<std::uint64_t>(page - address % page, size - done));
    write(offset + done, reinterpret_cast<const void*>(address), piece);
    if (_error == EFAULT) {
      _error = 0;
    }
    done += piece;
  }
  _end += (size + 7) & ~7U;
  return {begin, {size, offset}};
}

// ---- modules ----------------------------------------------------------------------------------

Dump::Location appendIdentity(DumpFile& file, const Memory& memory, std::uint64_t base) noexcept {
  struct {
    std::uint32_t signature = Dump::buildIdSignature;
    BuildId id{};
  } record;
  const std::size_t length = readBuildId(memory, base, record.id);
  return length > 0 ? file.append(&record, sizeof record.signature + length) : Dump::Location{};
}

void appendModules(DumpFile& file, const Memory& memory) noexcept {
  std::uint32_t count = 0;
  LoadedModule loaded{};
  for (std::size_t position = 0; count < mostModules && nextModule(memory, position, loaded);) {
    if (loaded.path[0] != '/') {
      continue;
    }
    Dump::Module& module = modules[count++];
    module = {};
    module.base = loaded.begin;
    module.size = static_cast<std::uint32_t>(loaded.end - loaded.begin);
    module.name = file.appendName(loaded.path, loaded.pathLength);
    module.identity = appendIdentity(file, memory, loaded.begin);
  }
  file.addStream(Dump::ModuleListStream, file.appendList(modules.data(), count));
}

// ---- threads ----------------------------------------------------------------------------------

Dump::MemoryRange appendStack(DumpFile& file, const Memory& memory, const ucontext_t& context,
                              std::uint64_t most) noexcept {
  const std::uint64_t top = stackPointer(context) - redZone;
  Mapping mapping{};
  if (!memory.find(top, mapping)) {
    return {};
  }
  // After an overflow the stack pointer lies below the stack.
  const std::uint64_t begin = std::max(top & ~std::uint64_t{7}, mapping.begin);
  return file.appendMemory(begin, std::min(begin + most, mapping.end));
}

Dump::Location appendContext(DumpFile& file, const ucontext_t& context) noexcept {
  DumpContext registers;
  const std::size_t size = fillDumpContext(context, registers);
  return file.append(registers.data(), size);
}

/// Appends the code around the fault, by which a reader without the binaries finds the instruction.
std::uint32_t appendCode(DumpFile& file, const Memory& memory, const ucontext_t& context,
                         Dump::MemoryRange& range) noexcept {
  const std::uint64_t address = instructionPointer(context);
  Mapping mapping{};
  if (!memory.find(address, mapping) || mapping.begin > address) {
    return 0;
  }
  const std::uint64_t begin = address - std::min(address - mapping.begin, codeAround);
  range = file.appendMemory(begin, std::min(mapping.end, address + codeAround));
  return 1;
}

/// \return where the registers of the crashing thread lie
Dump::Location appendThreads(DumpFile& file, const Threads& threads,
                             const Memory& memory) noexcept {
  std::uint32_t count = 0;
  for (const FoundThread& thread : threads) {
    const ucontext_t* context = thread.context;
    if (!context) {
      continue;
    }
    const bool crashing = &thread == threads.begin();
    Dump::Thread& entry = threadEntries[count];
    entry = {};
    entry.id = static_cast<std::uint32_t>(thread.id);
    entry.priority = static_cast<std::uint32_t>(thread.priority);
    entry.stack =
        appendStack(file, memory, *context, crashing ? mostStackOfCrash : mostStackOfOthers);
    entry.context = appendContext(file, *context);
    ranges[count++] = entry.stack;
  }
  file.addStream(Dump::ThreadListStream, file.appendList(threadEntries.data(), count));
  count += appendCode(file, memory, *threads.crashing().context, ranges[count]);
  file.addStream(Dump::MemoryListStream, file.appendList(ranges.data(), count));
  return threadEntries[0].context;
}

// ---- the rest ---------------------------------------------------------------------------------

/// Appends the fault; on this system readers take the signal for the exception's code.
void appendException(DumpFile& file, const siginfo_t& signal, int thread,
                     Dump::Location context) noexcept {
  Dump::Exception exception{};
  exception.thread = static_cast<std::uint32_t>(thread);
  exception.code = static_cast<std::uint32_t>(signal.si_signo);
  exception.flags = static_cast<std::uint32_t>(signal.si_code);
  exception.address = reinterpret_cast<std::uintptr_t>(signal.si_addr);
  exception.context = context;
  file.addStream(Dump::ExceptionStream, file.append(&exception, sizeof exception));
}

void appendSystem(DumpFile& file) noexcept {
  utsname system{};
  ::uname(&system);
  Text description;
  description << system.sysname << " " << system.release << " " << system.version << " "
              << system.machine;
  const Processor found = processor();
  Dump::SystemInfo info{};
  info.architecture = found.architecture;
  info.level = found.level;
  info.revision = found.revision;
  info.processors = static_cast<std::uint8_t>(std::min(::sysconf(_SC_NPROCESSORS_ONLN), 255L));
  info.platform = Dump::platformLinux;
  info.description = file.appendName(description.data(), description.length());
  info.processor = found.identity;
  file.addStream(Dump::SystemInfoStream, file.append(&info, sizeof info));
  Dump::MiscInfo process{};
  process.size = sizeof process;
  process.flags = Dump::processIdIsValid;
  process.processId = static_cast<std::uint32_t>(::getpid());
  file.addStream(Dump::MiscInfoStream, file.append(&process, sizeof process));
}

void appendSystemFiles(DumpFile& file, const Memory& memory) noexcept {
  constexpr struct {
    Dump::StreamType_t type;
    const char* name;
  } files[] = {
      {Dump::LinuxCpuInfoStream, "/proc/cpuinfo"},
      {Dump::LinuxStatusStream, "/proc/self/status"},
      {Dump::LinuxReleaseStream, "/etc/os-release"},
      {Dump::LinuxCommandLineStream, "/proc/self/cmdline"},
      {Dump::LinuxAuxiliaryStream, "/proc/self/auxv"},
  };
  for (const auto& source : files) {
    const std::size_t length = readSystemFile(source.name, systemText.data(), systemText.size());
    file.addStream(source.type, file.append(systemText.data(), length));
  }
  file.addStream(Dump::LinuxMapsStream, file.append(memory.list(), memory.listLength()));
}

}  // namespace

bool Crash::nameOwnFile(const char* given, const char* ending, Path& path) noexcept {
  const char* const folderEnd = std::strrchr(given, '/');
  Text name;
  name << "ORV-";
  name.count(static_cast<std::uint32_t>(::getpid())) << ending;
  const std::size_t length = folderEnd ? std::size_t(folderEnd - given) + 1 : path.size();
  if (length + name.length() >= path.size()) {
    return false;
  }
  std::copy_n(given, length, path.begin());
  std::copy_n(name.data(), name.length() + 1, path.begin() + std::ptrdiff_t(length));
  return true;
}

int Crash::createOwnFile(const char* path) noexcept {
  struct stat present = {};
  if (::lstat(path, &present) == 0 && S_ISREG(present.st_mode) && present.st_uid == ::geteuid()) {
    ::unlink(path);
  }
  return ::open(path, O_RDWR | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, S_IRUSR | S_IWUSR);
}

void Crash::printSystemError(const char* message, int error) noexcept {
  const char* reason = error != 0 ? ::strerrordesc_np(error) : nullptr;
  Text text;
  text << message << ": " << (reason ? reason : "<unknown reason>") << "\n";
  text.print();
}

void Crash::setDumpFile(const char* name) noexcept {
  const std::size_t length = std::strlen(name);
  const bool fits = length < dumpFile.size();
  std::copy_n(name, fits ? length : 0, dumpFile.begin());
  dumpFile[fits ? length : 0] = '\0';
}

const char* Crash::writeDump(const siginfo_t& signal, const Threads& threads,
                             const Memory& memory) noexcept {
  static Path path;
  if (!nameOwnFile(dumpFile.data(), ".dmp", path)) {
    printSystemError("error getting crashdump filename", 0);
    return "";
  }
  const int descriptor = createOwnFile(path.data());
  if (descriptor < 0) {
    printSystemError("error creating crashdump file", errno);
    return "";
  }
  ::flock(descriptor, LOCK_EX | LOCK_NB);  // keeps removeOldDumps() of others away
  DumpFile file(descriptor);
  const Dump::Location context = appendThreads(file, threads, memory);
  appendException(file, signal, threads.crashing().id, context);
  appendModules(file, memory);
  appendSystem(file);
  appendSystemFiles(file, memory);
  file.writeHead();
  const int error = ::close(descriptor) != 0 ? errno : 0;
  if (file.error() != 0 || error != 0) {
    ::unlink(path.data());  // a dump without its head is of no use
    printSystemError("error writing crashdump", file.error() != 0 ? file.error() : error);
    return "";
  }
  removeOldDumps(path.data());
  return path.data();
}

}  // namespace Kyr

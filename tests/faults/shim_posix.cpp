// Stands in front of the C library of a process and lets one of its calls fail.
//
// KYR_FAULT="KIND PLACE NUMBER ERROR MODE" names the call: the NUMBER-th, counted from 1, of its
// KIND at its PLACE, which fails with ERROR, a number of errno, or, as 0, moves fewer bytes than it
// was asked to. MODE is "once", or "stays" when all later calls of the kind fail as well. A place
// is the chain of functions that leads to the call, as a number: it does not depend on which thread
// comes first, as the number among all calls does. Counting starts with main(), or in programs that
// say so with kyrFaultsBegin(). KYR_FAULT_LOG names a file that gets where the first call that
// failed in each thread came from, or, without KYR_FAULT, all places with their numbers of calls.
// Programs that this one starts are left alone.
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <dirent.h>
#include <dlfcn.h>
#include <execinfo.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/mman.h>
#include <sys/uio.h>
#include <unistd.h>
#include <unwind.h>

#define SHIM __attribute__((visibility("default")))

/// A call that does what the C library does, or gives the value of a failure.
#define SHIM_CALL(Type, name, parameters, kind, failure, ...)           \
  SHIM Type name parameters {                                           \
    return fails(kind) ? (failure) : real(&(name), #name)(__VA_ARGS__); \
  }
#define SHIM_OPEN(name, parameters, ...)                                      \
  SHIM int name parameters {                                                  \
    std::va_list list;                                                        \
    va_start(list, flags);                                                    \
    const mode_t mode = modeOf(flags, list);                                  \
    va_end(list);                                                             \
    return fails(Open) ? -1 : real(&(name), #name)(__VA_ARGS__, flags, mode); \
  }
/// One that fails has closed the file all the same.
#define SHIM_CLOSE(name, Type)                     \
  SHIM int name(Type file) {                       \
    const bool failed = fails(Close);              \
    const int error = errno;                       \
    const int result = real(&(name), #name)(file); \
    errno = failed ? error : errno;                \
    return failed ? EOF : result;                  \
  }

extern "C" {
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
}

namespace {

enum Kind { Alloc, Open, Read, Write, Sync, Rename, Close, Cut, Map, Start, Kinds };

constexpr std::array<const char*, Kinds> names = {"alloc",  "open",  "read", "write", "sync",
                                                  "rename", "close", "cut",  "map",   "start"};
constexpr int moveFewer = 0;
constexpr int none = -1;

std::atomic<bool> counting{false};
std::atomic<bool> fired{false};
std::atomic<long> met{0};  // calls at the place that is to fail
thread_local bool inside = false;
thread_local bool hasTold = false;
pid_t process = 0;
int logFile = -1;

struct Fault {
  int kind = Kinds;
  unsigned long place = 0;
  long number = 0;
  int error = 0;
  bool stays = false;
} fault;

/// The calls at a place, while nothing is to fail.
struct Count {
  std::atomic<unsigned long> place;  // 0 for nobody
  std::atomic<int> kind;
  std::atomic<long> calls;
};

std::array<Count, std::size_t{1} << 16U> counts;  // zeros

/// Where the file that holds an address was loaded; 0 for none.
unsigned long beginOfFile(unsigned long address) {
  dl_find_object file{};
  return _dl_find_object(reinterpret_cast<void*>(address), &file) == 0
             ? reinterpret_cast<unsigned long>(file.dlfo_map_start)
             : 0;
}

/// The chain of functions that leads to the call of the kind at hand. Each counts with its distance
/// from where its file was loaded, which is the same in every run.
unsigned long placeOfCall(Kind kind) {
  struct Chain {
    unsigned long place;
    unsigned long own;
    int left;
  } chain{kind + 1UL, beginOfFile(reinterpret_cast<unsigned long>(&placeOfCall)), 16};
  _Unwind_Backtrace(
      [](_Unwind_Context* frame, void* given) {
        Chain& known = *static_cast<Chain*>(given);
        const auto address = _Unwind_GetIP(frame);
        const unsigned long begin = beginOfFile(address);
        if (begin == known.own) {
          return _URC_NO_REASON;
        }
        known.place = (known.place ^ (address - begin)) * 0x9E3779B97F4A7C15UL;
        known.place ^= known.place >> 29U;
        return begin != 0 && --known.left > 0 ? _URC_NO_REASON : _URC_END_OF_STACK;
      },
      &chain);
  return chain.place | 1U;
}

void countAt(Kind kind, unsigned long place) {
  for (std::size_t i = 0; i < counts.size(); ++i) {
    Count& count = counts[(place / 2 + i) % counts.size()];
    unsigned long present = 0;
    if (count.place.compare_exchange_strong(present, place) || present == place) {
      count.kind = kind;
      ++count.calls;
      return;
    }
  }
}

/// Where the first call of each thread that fails comes from.
void tellWhere() {
  fired = true;
  if (hasTold) {
    return;
  }
  hasTold = true;
  std::array<void*, 100> frames{};
  const int depth = backtrace(frames.data(), static_cast<int>(frames.size()));
  dprintf(logFile, "thread %d\n", gettid());
  for (int i = 2; i < depth; ++i) {
    const char* const call = static_cast<char*>(frames[static_cast<std::size_t>(i)]) - 1;
    Dl_info info{};
    dladdr(call, &info);
    const long offset = call - static_cast<char*>(info.dli_fbase);
    dprintf(logFile, "at %s %#lx %s\n", info.dli_fname, offset,
            info.dli_sname ? info.dli_sname : "?");
  }
}

/// Whether the call at a place is to fail. Without anything that is to fail it is counted.
bool isChosen(Kind kind, unsigned long place) {
  if (fault.kind == Kinds) {
    countAt(kind, place);
    return false;
  }
  return fired ? fault.stays : place == fault.place && ++met == fault.number;
}

/// What the call at hand is to fail with; none when it is not its turn.
int turn(Kind kind) {
  const bool isOfKind = fault.kind == Kinds || fault.kind == kind;
  if (!counting.load(std::memory_order_relaxed) || inside || !isOfKind || getpid() != process) {
    return none;
  }
  inside = true;
  const int before = errno;
  const bool failsNow = isChosen(kind, fired ? 0 : placeOfCall(kind));
  if (failsNow) {
    tellWhere();
  }
  errno = failsNow ? fault.error : before;
  inside = false;
  return failsNow ? fault.error : none;
}

bool fails(Kind kind) {
  return turn(kind) != none;
}

template <class Function>
Function* real(Function* /*own*/, const char* name) {
  return reinterpret_cast<Function*>(dlsym(RTLD_NEXT, name));
}

/// How many bytes a transfer may move: fewer of more than one. -1 when it fails.
ssize_t allowed(Kind kind, std::size_t wanted) {
  const int error = turn(kind);
  const auto all = static_cast<ssize_t>(wanted);
  return error == none ? all : error != moveFewer ? -1 : all > 1 ? all / 2 : all;
}

/// Whether an operation of a C stream fails; one cannot make it move less.
bool streamFails(Kind kind, std::FILE* stream) {
  const int error = turn(kind);
  if (error == none || error == moveFewer || error == EINTR) {
    return false;
  }
  stream->_flags |= 0x20;  // what ferror() looks at
  return true;
}

void begin() {
  counting = true;
}

void readOrder() {
  std::array<char, 16> kind{};
  std::array<char, 16> mode{};
  const char* const order = std::getenv("KYR_FAULT");
  if (order && std::sscanf(order, "%15s %lx %ld %d %15s", kind.data(), &fault.place, &fault.number,
                           &fault.error, mode.data()) == 5) {
    fault.stays = std::strcmp(mode.data(), "stays") == 0;
    fault.kind = 0;
    while (fault.kind < Kinds &&
           std::strcmp(names[static_cast<std::size_t>(fault.kind)], kind.data()) != 0) {
      ++fault.kind;
    }
  }
}

__attribute__((constructor)) void prepare() {
  const char* const log = std::getenv("KYR_FAULT_LOG");
  if (!log) {
    return;
  }
  readOrder();
  const int low = open(log, O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  logFile = fcntl(low, F_DUPFD_CLOEXEC, 900);  // the numbers of files are as without this
  close(low);
  std::array<void*, 4> frames{};
  backtrace(frames.data(), 4);  // loads what it needs
  placeOfCall(Alloc);           // so does this
  process = getpid();
  unsetenv("LD_PRELOAD");
}

__attribute__((destructor)) void tellCounts() {
  counting = false;
  if (logFile >= 0 && getpid() == process) {
    for (const Count& count : counts) {
      if (count.place != 0) {
        dprintf(logFile, "%s %lx %ld\n", names[static_cast<std::size_t>(count.kind)],
                count.place.load(), count.calls.load());
      }
    }
  }
}

int (*realMain)(int, char**, char**) = nullptr;

int mainCounted(int count, char** words, char** environment) {
  if (!std::getenv("KYR_FAULT_WAITS")) {
    begin();
  }
  return realMain(count, words, environment);
}

mode_t modeOf(int flags, std::va_list list) {
  return (flags & O_CREAT) != 0 || (flags & O_TMPFILE) == O_TMPFILE ? va_arg(list, mode_t) : 0;
}

}  // namespace

extern "C" {

SHIM void kyrFaultsBegin() {
  begin();
}

SHIM int __libc_start_main(int (*main)(int, char**, char**), int count, char** words,
                           void (*init)(), void (*fini)(), void (*loader)(), void* stack) {
  realMain = main;
  return real(&__libc_start_main, "__libc_start_main")(&mainCounted, count, words, init, fini,
                                                       loader, stack);
}

SHIM void* malloc(std::size_t size) {
  return fails(Alloc) ? nullptr : __libc_malloc(size);
}

SHIM void* calloc(std::size_t count, std::size_t size) {
  return fails(Alloc) ? nullptr : __libc_calloc(count, size);
}

SHIM void* realloc(void* block, std::size_t size) {
  return size != 0 && fails(Alloc) ? nullptr : __libc_realloc(block, size);
}

SHIM void* aligned_alloc(std::size_t alignment, std::size_t size) {
  return fails(Alloc) ? nullptr : __libc_memalign(alignment, size);
}

SHIM int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
  void* const made = fails(Alloc) ? nullptr : __libc_memalign(alignment, size);
  *block = made ? made : *block;
  return made ? 0 : ENOMEM;
}

SHIM_OPEN(open, (const char* name, int flags, ...), name)
SHIM_OPEN(open64, (const char* name, int flags, ...), name)
SHIM_OPEN(openat, (int folder, const char* name, int flags, ...), folder, name)
SHIM_CALL(std::FILE*, fopen, (const char* name, const char* mode), Open, nullptr, name, mode)
SHIM_CALL(std::FILE*, fopen64, (const char* name, const char* mode), Open, nullptr, name, mode)
SHIM_CALL(DIR*, opendir, (const char* name), Open, nullptr, name)
SHIM_CALL(DIR*, fdopendir, (int folder), Open, nullptr, folder)

SHIM ssize_t read(int file, void* room, std::size_t size) {
  const ssize_t most = allowed(Read, size);
  return most < 0 ? -1 : real(&read, "read")(file, room, static_cast<std::size_t>(most));
}

SHIM ssize_t pread(int file, void* room, std::size_t size, off_t offset) {
  const ssize_t most = allowed(Read, size);
  return most < 0 ? -1 : real(&pread, "pread")(file, room, static_cast<std::size_t>(most), offset);
}

SHIM std::size_t fread(void* room, std::size_t size, std::size_t count, std::FILE* stream) {
  return streamFails(Read, stream) ? 0 : real(&fread, "fread")(room, size, count, stream);
}

SHIM char* fgets(char* room, int size, std::FILE* stream) {
  return streamFails(Read, stream) ? nullptr : real(&fgets, "fgets")(room, size, stream);
}

SHIM char* fgets_unlocked(char* room, int size, std::FILE* stream) {
  return streamFails(Read, stream) ? nullptr
                                   : real(&fgets_unlocked, "fgets_unlocked")(room, size, stream);
}

SHIM int fgetc(std::FILE* stream) {
  return streamFails(Read, stream) ? EOF : real(&fgetc, "fgetc")(stream);
}

SHIM ssize_t write(int file, const void* bytes, std::size_t size) {
  const ssize_t most = allowed(Write, size);
  return most < 0 ? -1 : real(&write, "write")(file, bytes, static_cast<std::size_t>(most));
}

SHIM ssize_t pwrite(int file, const void* bytes, std::size_t size, off_t offset) {
  const ssize_t most = allowed(Write, size);
  return most < 0 ? -1
                  : real(&pwrite, "pwrite")(file, bytes, static_cast<std::size_t>(most), offset);
}

// Moves of fewer bytes end with the first part.
SHIM ssize_t writev(int file, const iovec* parts, int count) {
  const int error = turn(Write);
  return error == none        ? real(&writev, "writev")(file, parts, count)
         : error == moveFewer ? real(&write, "write")(file, parts[0].iov_base, parts[0].iov_len)
                              : -1;
}

SHIM std::size_t fwrite(const void* bytes, std::size_t size, std::size_t count, std::FILE* stream) {
  return streamFails(Write, stream) ? 0 : real(&fwrite, "fwrite")(bytes, size, count, stream);
}

SHIM int fputc(int byte, std::FILE* stream) {
  return streamFails(Write, stream) ? EOF : real(&fputc, "fputc")(byte, stream);
}

SHIM int fflush(std::FILE* stream) {
  const bool failed = stream ? streamFails(Write, stream) : fails(Write);
  return failed ? EOF : real(&fflush, "fflush")(stream);
}

SHIM_CALL(int, fsync, (int file), Sync, -1, file)
SHIM_CALL(int, fdatasync, (int file), Sync, -1, file)
SHIM_CALL(int, rename, (const char* from, const char* to), Rename, -1, from, to)
SHIM_CALL(int, renameat2, (int folder, const char* from, int other, const char* to, unsigned flags),
          Rename, -1, folder, from, other, to, flags)
SHIM_CALL(int, link, (const char* from, const char* to), Rename, -1, from, to)
SHIM_CLOSE(close, int)
SHIM_CLOSE(fclose, std::FILE*)
SHIM_CALL(int, truncate, (const char* name, off_t size), Cut, -1, name, size)
SHIM_CALL(int, ftruncate, (int file, off_t size), Cut, -1, file, size)
SHIM_CALL(int, ftruncate64, (int file, off64_t size), Cut, -1, file, size)
SHIM_CALL(int, posix_fallocate, (int file, off_t offset, off_t size), Cut, fault.error, file,
          offset, size)
SHIM_CALL(void*, mmap, (void* at, std::size_t size, int access, int flags, int file, off_t offset),
          Map, MAP_FAILED, at, size, access, flags, file, offset)
SHIM_CALL(void*, mmap64,
          (void* at, std::size_t size, int access, int flags, int file, off64_t offset), Map,
          MAP_FAILED, at, size, access, flags, file, offset)
SHIM_CALL(int, pthread_create,
          (pthread_t * thread, const pthread_attr_t* attributes, void* (*function)(void*),
           void* argument),
          Start, fault.error, thread, attributes, function, argument)

}  // extern "C"

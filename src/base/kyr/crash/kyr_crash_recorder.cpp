#include <kyr/crash/crash_recorder_p.h>

#include <kyr/recorder/recorder_p.h>
#include <kyr/sync/KyrLockDoctor.h>

#include <new>

namespace Kyr {

namespace {

/// Static memory, as the handler's stack is small; there is one report in the life of a process.
template <class Type>
Type& makeOnce() noexcept {
  alignas(Type) static unsigned char room[sizeof(Type)];
  return *new (room) Type;
}

using Write = void (*)(const char* bytes, std::size_t length);

/// The doctor's books are read without its lock.
void printLockHolders(Write write) noexcept {
  struct Context {
    Write write;
    bool isFirst;
  } context{write, true};
  const auto print = [](void* given, const char* line, std::size_t length) {
    constexpr std::string_view heading = "\nwho holds which lock:\n";
    Context& known = *static_cast<Context*>(given);
    if (known.isFirst) {
      known.write(heading.data(), heading.size());
      known.isFirst = false;
    }
    known.write(line, length);
  };
  LockDoctor::describeHolders(print, &context);
}

}  // namespace

void Crash::printRecorder(Write write) noexcept {
  printLockHolders(write);
  auto& reader = makeOnce<Recorder::Reader>();
  auto& maker = makeOnce<Recorder::LineMaker>();
  auto& entry = makeOnce<Recorder::Entry>();
  constexpr std::string_view heading = "\nlast entries of the flight recorder, the newest first:\n";
  for (bool isFirst = true; reader.next(entry); isFirst = false) {
    if (isFirst) {
      write(heading.data(), heading.size());
    }
    const std::string_view line = maker.lineWithFeed(entry);
    write(line.data(), line.size());
  }
}

}  // namespace Kyr

#include <kyr/crash/crash_recorder_p.h>

#include <kyr/recorder/recorder_p.h>

#include <new>

namespace Kyr {

namespace {

/// Static memory, as the handler's stack is small; there is one report in the life of a process.
template <class Type>
Type& makeOnce() noexcept {
  alignas(Type) static unsigned char room[sizeof(Type)];
  return *new (room) Type;
}

}  // namespace

void Crash::printRecorder(void (*write)(const char* bytes, std::size_t length)) noexcept {
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

#include <kyr/sync/own_thread_p.h>
#include <kyr/sync/thread_sites_p.h>

#include <array>
#include <atomic>
#include <cstddef>

namespace Kyr {

namespace {

/// A thread that runs, and the site of its object. The number is written last and cleared first.
struct Note {
  std::atomic<const void*> object{nullptr};  ///< null for a free place
  std::atomic<std::uint64_t> thread{0};
  std::atomic<const char*> function{nullptr};
  std::atomic<const char*> file{nullptr};
  std::atomic<unsigned> line{0};
};

// Static memory that needs no construction and is never destroyed.
std::array<Note, 1024> notes;

/// The place of an object, or a free one for null that is the object's from now on.
Note* findNote(const void* present, const void* object) noexcept {
  const std::size_t first = reinterpret_cast<std::uintptr_t>(object) / alignof(std::max_align_t);
  for (std::size_t i = 0; i < notes.size(); ++i) {
    Note& note = notes[(first + i) % notes.size()];
    const void* found = present;
    if (note.object.compare_exchange_strong(found, object)) {
      return &note;
    }
  }
  return nullptr;
}

}  // namespace

void noteThreadSite(const void* object, const ThreadSite& site) noexcept {
  Note* const note = findNote(nullptr, object);
  if (note) {
    note->function = site.function;
    note->file = site.file;
    note->line = site.line;
    note->thread = Platform::threadNumber();
  }
}

void forgetThreadSite(const void* object) noexcept {
  Note* const note = findNote(object, object);
  if (note) {
    note->thread = 0;
    note->object = nullptr;
  }
}

bool findThreadSite(std::uint64_t number, ThreadSite& site) noexcept {
  for (const Note& note : notes) {
    if (number != 0 && note.thread == number) {
      site = {note.function, note.file, note.line};
      return note.thread == number;
    }
  }
  return false;
}

}  // namespace Kyr

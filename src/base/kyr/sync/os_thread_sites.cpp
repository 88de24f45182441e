#include <kyr/sync/own_thread_p.h>
#include <kyr/sync/thread_sites_p.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstring>

namespace Kyr {

namespace {

/// A copy of a site, which stays for ever: who asks for it may do so when its texts are gone.
struct Kept {
  bool is(const ThreadSite& site) const noexcept {
    return line == site.line && std::strncmp(function.data(), site.function, longestText) == 0 &&
           std::strncmp(file.data(), site.file, longestText) == 0;
  }

  static constexpr std::size_t longestText = 199;  // bytes
  std::atomic<bool> isWhole{false};
  std::array<char, longestText + 1> function{};
  std::array<char, longestText + 1> file{};
  unsigned line = 0;
};

/// A thread that runs, and the site of its object. The number is written last and cleared first.
struct Note {
  std::atomic<const void*> object{nullptr};  ///< null for a free place
  std::atomic<std::uint64_t> thread{0};
  std::atomic<const Kept*> site{nullptr};
};

// Static memory that needs no construction and is never destroyed.
std::array<Kept, 256> sites;
std::atomic<std::size_t> siteCount{0};
std::array<Note, 1024> notes;

void copy(std::array<char, Kept::longestText + 1>& room, const char* text) noexcept {
  const void* const end = std::memchr(text, '\0', Kept::longestText);
  const std::size_t length =
      end ? static_cast<std::size_t>(static_cast<const char*>(end) - text) : Kept::longestText;
  std::memcpy(room.data(), text, length);
}

/// The copy of a site; null where there is no room for another one. Two threads at once may make
/// two of one site.
const Kept* keep(const ThreadSite& site) noexcept {
  const std::size_t count = std::min(siteCount.load(), sites.size());
  for (std::size_t i = 0; i < count; ++i) {
    if (sites[i].isWhole && sites[i].is(site)) {
      return &sites[i];
    }
  }
  const std::size_t place = count < sites.size() ? siteCount++ : sites.size();
  if (place >= sites.size()) {
    return nullptr;
  }
  Kept& kept = sites[place];
  copy(kept.function, site.function);
  copy(kept.file, site.file);
  kept.line = site.line;
  kept.isWhole = true;
  return &kept;
}

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
  const Kept* const kept = keep(site);
  Note* const note = kept ? findNote(nullptr, object) : nullptr;
  if (note) {
    note->site = kept;
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
      const Kept& kept = *note.site.load();
      site = {kept.function.data(), kept.file.data(), kept.line};
      return note.thread == number;
    }
  }
  return false;
}

}  // namespace Kyr

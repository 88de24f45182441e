#include <kyr/sync/lock_order_p.h>

#include <kyr/core/forever_p.h>
#include <kyr/sync/thread_sites_p.h>
#include <kyr/sync/watched_thread_p.h>

#include <atomic>
#include <cstring>

namespace Kyr {

namespace {

using namespace LockBooks;

constexpr std::uint32_t siteCapacity = 1024, nodeCapacity = 2 * siteCapacity;
constexpr std::uint32_t entryCapacity = 4 * siteCapacity;  // one text may stand in several places
constexpr std::uint32_t pairCapacity = 4096;

/// Leads from the place of a site's texts to its number.
struct Entry {
  bool names(const Origin& origin) const {
    return function == origin.function && file == origin.file && line == origin.line;
  }

  const char* function;
  const char* file;
  unsigned line;
  std::atomic<std::uint32_t> number;  // one more than that of the site; 0 until all is written
};

/// An edge of the graph.
struct Pair {
  Use held, wanted;
  std::uint32_t next;  // of the same held node: one more than its index; 0 ends the list
  Chain first;
};

/// Of a search. Steps are numbered from 1 on; 0 is none.
struct Step {
  std::uint32_t pair = 0;       // by which it goes
  std::uint32_t neighbour = 0;  // the number of the one before, or in the end of the next one
};

Forever<std::mutex> guardRoom;

// Zeros until somebody watches, and so no part of any memory; all but the numbers of entries and
// the words of known pairs belong to guard().
Site sites[siteCapacity]{};
std::uint32_t siteCount = 1;  // the first stands for all without a name
Entry entries[entryCapacity]{};
std::uint32_t entryCount = 0;
std::atomic<std::uint64_t> known[nodeCapacity][nodeCapacity / 64]{};
Pair pairs[pairCapacity]{};
std::uint32_t pairCount = 0;
std::uint32_t firstPair[nodeCapacity];  // one more than its index
Step steps[pairCapacity + 1]{};         // of the search that runs
bool reached[nodeCapacity];

std::uint32_t hashOf(const Origin& origin) noexcept {
  const auto function = reinterpret_cast<std::uintptr_t>(origin.function);
  const auto file = reinterpret_cast<std::uintptr_t>(origin.file);
  const std::uint64_t mixed = (function + 31 * file + origin.line) * 0x9e3779b97f4a7c15U;
  return static_cast<std::uint32_t>(mixed >> 40) % entryCapacity;
}

template <std::size_t Size>
bool isSame(const std::array<char, Size>& kept, const char* text) noexcept {
  return std::strncmp(kept.data(), text, Size - 1) == 0;
}

template <std::size_t Size>
void keep(std::array<char, Size>& room, const char* text) noexcept {
  const std::size_t length = ::strnlen(text, Size - 1);
  std::memcpy(room.data(), text, length);
  room[length] = '\0';
}

std::uint32_t findTexts(const Origin& origin) noexcept {
  for (std::uint32_t i = 1; i < siteCount; ++i) {
    if (sites[i].line == origin.line && isSame(sites[i].file, origin.file) &&
        isSame(sites[i].function, origin.function)) {
      return i;
    }
  }
  return 0;
}

bool hasNoName(const Origin& origin) noexcept {
  return origin.line == 0 && std::strcmp(origin.function, "global") == 0;
}

std::uint32_t addTexts(const Origin& origin) noexcept {
  if (hasNoName(origin) || siteCount == siteCapacity) {
    return 0;
  }
  Site& site = sites[siteCount];
  keep(site.function, origin.function);
  keep(site.file, origin.file);
  site.line = origin.line;
  return siteCount++;
}

std::uint32_t fill(Entry& entry, const Origin& origin) noexcept {
  const std::uint32_t found = findTexts(origin);
  const std::uint32_t number = found != 0 ? found : addTexts(origin);
  entry.function = origin.function;
  entry.file = origin.file;
  entry.line = origin.line;
  entry.number.store(number + 1, std::memory_order_release);
  ++entryCount;
  return number;
}

/// \return one more than its number; 0 when it is not there, with \a place where it belongs
std::uint32_t find(const Origin& origin, std::uint32_t& place) noexcept {
  for (place = hashOf(origin);; place = (place + 1) % entryCapacity) {
    const std::uint32_t number = entries[place].number.load(std::memory_order_acquire);
    if (number == 0 || entries[place].names(origin)) {
      return number;
    }
  }
}

std::uint32_t addSite(const Origin& origin) noexcept {
  const std::lock_guard<std::mutex> lock(guard());
  std::uint32_t place = 0;
  const std::uint32_t number = find(origin, place);
  if (number != 0) {
    return number - 1;  // another thread has been faster
  }
  // Some entries stay free, so that every search ends.
  return entryCount < entryCapacity / 2 ? fill(entries[place], origin) : 0;
}

std::uint64_t bitOf(Use wanted) noexcept {
  return std::uint64_t{1} << wanted.node() % 64;
}

std::atomic<std::uint64_t>& wordOf(Use held, Use wanted) noexcept {
  return known[held.node()][wanted.node() / 64];
}

void addPair(Use held, const Chain& chain) noexcept {
  if (pairCount == pairCapacity) {
    return;
  }
  Pair& pair = pairs[pairCount];
  pair.held = held;
  pair.wanted = chain.wanted;
  pair.first = chain;
  pair.next = firstPair[held.node()];
  firstPair[held.node()] = ++pairCount;
}

/// Whether who wants the one waits for who holds the other.
bool waits(Use wanted, Use held) noexcept {
  return wanted.site() == held.site() && !(wanted.isShared() && held.isShared());
}

/// The shortest way from a thread that wants \a from to one that waits for \a to.
class Search {
 public:
  /// \return the number of the first step, from which each names the next one; 0 when there is no
  /// way
  std::uint32_t find(Use from, Use to) noexcept {
    std::memset(reached, 0, sizeof reached);
    follow(from, 0);
    for (std::uint32_t i = 0; i < _count; ++i) {
      const Use wanted = pairs[steps[i].pair].wanted;
      if (waits(wanted, to)) {
        return turned(i + 1);
      }
      follow(wanted, i + 1);
    }
    return 0;
  }

 private:
  /// Adds what is wanted by those who hold what \a wanted waits for.
  void follow(Use wanted, std::uint32_t previous) noexcept {
    leave(Use(wanted.site(), Write), previous);
    if (!wanted.isShared()) {
      leave(Use(wanted.site(), Read), previous);
    }
  }
  void leave(Use held, std::uint32_t previous) noexcept {
    if (reached[held.node()]) {
      return;
    }
    reached[held.node()] = true;
    for (std::uint32_t next = firstPair[held.node()]; next != 0; next = pairs[next - 1].next) {
      steps[_count++] = {next - 1, previous};
    }
  }
  /// Turns the way around that ends with \a step.
  static std::uint32_t turned(std::uint32_t step) noexcept {
    std::uint32_t next = 0;
    while (step != 0) {
      const std::uint32_t previous = steps[step - 1].neighbour;
      steps[step - 1].neighbour = next;
      next = step;
      step = previous;
    }
    return next;
  }

  std::uint32_t _count = 0;
};

const char* ending(Mode_t mode) noexcept {
  return mode == Read ? " to read" : mode == Write ? " to write" : "";
}

void addChain(Text& text, const Chain& chain, const char* holds, const char* takes) noexcept {
  text << "\n  " << chain.who << holds;
  for (std::uint32_t i = 0; i < chain.count; ++i) {
    text << (i == 0 ? "" : ", ") << chain.held[i];
  }
  text << takes << chain.wanted;
}

void describeCircle(std::uint32_t firstStep, const Chain& chain, Text& text) noexcept {
  text << "lock doctor: locks are taken in a circle; threads that meet in it wait for each other "
          "for "
          "ever";
  addChain(text, chain, " holds ", " and takes ");
  for (std::uint32_t step = firstStep; step != 0; step = steps[step - 1].neighbour) {
    addChain(text, pairs[steps[step - 1].pair].first, " held ", " and took ");
  }
}

void describeShared(const Chain& chain, Text& text) noexcept {
  text << "lock doctor: " << chain.who
       << " holds two locks of one site, whose order is not watched: " << chain.wanted;
}

News_t learnOther(Use held, const Chain& chain, Text& text) noexcept {
  const std::uint32_t firstStep = Search().find(chain.wanted, held);
  addPair(held, chain);
  if (firstStep != 0) {
    describeCircle(firstStep, chain, text);
    return ClosesCircle;
  }
  return Nothing;
}

}  // namespace

std::mutex& LockBooks::guard() noexcept {
  return guardRoom.object;
}

std::uint32_t LockBooks::siteOf(const Origin& origin) noexcept {
  std::uint32_t place = 0;
  const std::uint32_t number = find(origin, place);
  return number != 0 ? number - 1 : addSite(origin);
}

const Site& LockBooks::siteAt(std::uint32_t number) noexcept {
  static constexpr Site nameless{{"a lock"}, {"without a site"}, 0};
  return number == 0 ? nameless : sites[number];
}

LockBooks::Text& LockBooks::operator<<(Text& text, const Site& site) noexcept {
  text << site.function.data() << " (" << site.file.data() << ":";
  return text.count(site.line) << ")";
}

LockBooks::Text& LockBooks::operator<<(Text& text, Use use) noexcept {
  return text << siteAt(use.site()) << ending(use.mode());
}

Who LockBooks::whoIs(std::uint64_t number) noexcept {
  Who who;
  who.number = number;
  Platform::threadName(number, who.name.data(), who.name.size());
  ThreadSite made{};
  if (findThreadSite(number, made)) {
    Text text;
    text << made.function << " (" << made.file << ":";
    text.count(made.line) << ")";
    keep(who.made, text.data());
  }
  return who;
}

LockBooks::Text& LockBooks::operator<<(Text& text, const Who& who) noexcept {
  (text << "thread ").hexadecimal(who.number);
  if (who.name[0] != '\0') {
    text << " \"" << who.name.data() << "\"";
  }
  if (who.made[0] != '\0') {
    text << " of " << who.made.data();
  }
  return text;
}

bool LockBooks::isKnown(Use held, Use wanted) noexcept {
  return held.site() == 0 || wanted.site() == 0 ||
         (wordOf(held, wanted).load(std::memory_order_relaxed) & bitOf(wanted)) != 0;
}

News_t LockBooks::learn(Use held, const Chain& chain, Text& text) noexcept {
  const std::lock_guard<std::mutex> lock(guard());
  if (isKnown(held, chain.wanted)) {
    return Nothing;
  }
  wordOf(held, chain.wanted).fetch_or(bitOf(chain.wanted), std::memory_order_relaxed);
  if (held.site() != chain.wanted.site()) {
    return learnOther(held, chain, text);
  }
  if (waits(chain.wanted, held)) {
    describeShared(chain, text);
    return SharesSite;
  }
  return Nothing;
}

void LockBooks::forgetOrders() noexcept {
  for (std::uint32_t node = 0; node < 2 * siteCount; ++node) {
    for (std::atomic<std::uint64_t>& word : known[node]) {
      word.store(0, std::memory_order_relaxed);
    }
  }
  std::memset(firstPair, 0, sizeof firstPair);
  pairCount = 0;
}

}  // namespace Kyr

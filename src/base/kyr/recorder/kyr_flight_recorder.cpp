#include <kyr/recorder/KyrFlightRecorder.h>

#include <kyr/recorder/recorder_p.h>
#include <kyr/sync/own_thread_p.h>
#include <kyr/text/utf8_p.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace Kyr {

namespace {

using namespace Recorder;

static_assert(FlightRecorder::longestEntry == textWords * 8);
static_assert(FlightRecorder::longestEntry <= 0xFF, "lengths are bytes");
static_assert(FlightRecorder::shownEntries <= ringEntries, "one thread may write all of them");

/// An entry in a ring; never on two pages of memory, of which a copied process might have different
/// moments. Its words are atomic because a reader may meet them while they change. Each
/// is stored with release and loaded with acquire: whoever reads a word of a new entry then also
/// sees that the slot was claimed for it.
struct alignas(256) Slot {
  /// 0 for no entry yet, 2n + 1 while entry n is written, 2n + 2 when it is whole.
  std::atomic<std::uint64_t> state{0};
  std::atomic<std::uint64_t> time{0};
  std::atomic<std::uint64_t> head{0};  ///< thread, lengths, whether it is cut
  std::array<std::atomic<std::uint64_t>, textWords> words{};
};

struct Ring {
  std::atomic<std::uint64_t> next{0};  ///< number of the next entry
  std::array<Slot, ringEntries> slots;
};

static_assert(sizeof(Slot) == 256);

std::array<Ring, ringCount> rings;

/// The number of an entry in a ring, whose slot the caller alone writes from now on.
struct Claim {
  Slot* slot;  ///< null for none
  std::uint64_t number;
};

/// A slot stays with whoever claimed it until the entry is whole: a thread that was held up in it
/// while the others have filled the ring loses no slot to them, and they take the next.
Claim claim(Ring& ring) noexcept {
  constexpr int attempts = 4;
  for (int attempt = 0; attempt < attempts; ++attempt) {
    const std::uint64_t number = ring.next.fetch_add(1, std::memory_order_relaxed);
    Slot& slot = ring.slots[number % ringEntries];
    std::uint64_t state = slot.state.load(std::memory_order_relaxed);
    const bool isFree = state % 2 == 0 && state <= 2 * number;
    if (isFree &&
        slot.state.compare_exchange_strong(state, 2 * number + 1, std::memory_order_acq_rel)) {
      return {&slot, number};
    }
  }
  return {nullptr, 0};
}

std::uint64_t headOf(const Entry& entry) noexcept {
  const auto bits = [](auto number) { return static_cast<std::uint64_t>(number); };
  return bits(entry.thread) << 32U | bits(entry.length) << 16U | bits(entry.sourceLength) << 8U |
         bits(entry.isCut);
}

void takeHead(std::uint64_t head, Entry& entry) noexcept {
  entry.thread = static_cast<std::uint32_t>(head >> 32U);
  entry.length = static_cast<std::uint8_t>(head >> 16U);
  entry.sourceLength = static_cast<std::uint8_t>(head >> 8U);
  entry.isCut = (head & 1U) != 0;
}

std::size_t wordsOf(std::size_t length) noexcept {
  return (length + 7) / 8;
}

void keep(Entry& entry) noexcept {
  entry.thread = static_cast<std::uint32_t>(Platform::threadNumber());
  // Threads' numbers often follow each other, and have gaps of four on some systems.
  const Claim claimed = claim(rings[(entry.thread ^ entry.thread >> 2U) % ringCount]);
  if (!claimed.slot) {
    return;
  }
  const std::size_t words = wordsOf(entry.length);
  std::memset(entry.bytes.data() + entry.length, 0, words * 8 - entry.length);
  Slot& slot = *claimed.slot;
  slot.time.store(static_cast<std::uint64_t>(now()), std::memory_order_release);
  slot.head.store(headOf(entry), std::memory_order_release);
  for (std::size_t i = 0; i < words; ++i) {
    std::uint64_t word = 0;
    std::memcpy(&word, entry.bytes.data() + i * sizeof word, sizeof word);
    slot.words[i].store(word, std::memory_order_release);
  }
  slot.state.store(2 * claimed.number + 2, std::memory_order_release);
}

/// \return false for an entry that is not whole, or not there any more
bool copy(const Ring& ring, std::uint64_t number, Entry& entry) noexcept {
  const Slot& slot = ring.slots[number % ringEntries];
  const std::uint64_t whole = 2 * number + 2;
  if (slot.state.load(std::memory_order_acquire) != whole) {
    return false;
  }
  entry.time = static_cast<std::int64_t>(slot.time.load(std::memory_order_acquire));
  takeHead(slot.head.load(std::memory_order_acquire), entry);
  const std::size_t words = std::min(wordsOf(entry.length), textWords);
  for (std::size_t i = 0; i < words; ++i) {
    const std::uint64_t word = slot.words[i].load(std::memory_order_acquire);
    std::memcpy(entry.bytes.data() + i * sizeof word, &word, sizeof word);
  }
  return slot.state.load(std::memory_order_relaxed) == whole;
}

/// Adds the beginning of a text, up to a length in all.
/// \param known bytes of the text that were looked at
void addText(Entry& entry, const char* text, std::size_t known, std::size_t most) noexcept {
  const std::size_t taken = Utf8::lengthOfStart(text, known, most - entry.length);
  std::memcpy(entry.bytes.data() + entry.length, text, taken);
  entry.length += taken;
  entry.isCut = taken < known;
}

/// Not strnlen(), which not every system has.
std::size_t lengthUpTo(const char* text, std::size_t most) noexcept {
  const void* const end = std::memchr(text, '\0', most);
  return end ? static_cast<std::size_t>(static_cast<const char*>(end) - text) : most;
}

void addSource(Entry& entry, const char* source) noexcept {
  if (source) {
    addText(entry, source, lengthUpTo(source, FlightRecorder::longestSource + 1),
            FlightRecorder::longestSource);
  }
  entry.sourceLength = entry.length;
  entry.isCut = false;
}

/// Adds a character if it has room.
/// \return false when it has none
bool addCharacter(Entry& entry, char32_t character) noexcept {
  const auto byte = [](char32_t bits) { return static_cast<char>(bits); };
  const std::size_t count = character < 0x80      ? 1
                            : character < 0x800   ? 2
                            : character < 0x10000 ? 3
                                                  : 4;
  if (entry.bytes.size() - entry.length < count) {
    return false;
  }
  char* const bytes = entry.bytes.data() + entry.length;
  constexpr std::array<char32_t, 5> marks = {0, 0, 0xC0, 0xE0, 0xF0};
  for (std::size_t i = count; i-- > 1;) {
    bytes[i] = byte(0x80U | (character & 0x3FU));
    character >>= 6U;
  }
  bytes[0] = byte(marks[count] | character);
  entry.length += count;
  return true;
}

/// Adds as many characters of ASCII as come first, four at a time, on systems that store the low
/// byte of a number first. \return behind them
const QChar* addAscii(Entry& entry, const QChar* next, const QChar* end) noexcept {
  constexpr std::uint64_t notAscii = 0xFF80FF80FF80FF80;
  while (end - next >= 4 && entry.bytes.size() - entry.length >= 4) {
    std::uint64_t units = 0;
    std::memcpy(&units, next, sizeof units);
    if ((units & notAscii) != 0) {
      break;
    }
    units = (units | units >> 8U) & 0x0000FFFF0000FFFF;
    const auto bytes = static_cast<std::uint32_t>(units | units >> 16U);
    std::memcpy(entry.bytes.data() + entry.length, &bytes, sizeof bytes);
    next += 4;
    entry.length += 4;
  }
  return next;
}

/// Halves of characters become question marks.
void addText(Entry& entry, const QString& text) noexcept {
  const QChar* const end = text.constData() + text.size();
  const QChar* next = addAscii(entry, text.constData(), end);
  while (next != end && !entry.isCut) {
    const QChar unit = *next++;
    char32_t character = unit.unicode();
    if (unit.isHighSurrogate() && next != end && next->isLowSurrogate()) {
      character = QChar::surrogateToUcs4(unit, *next++);
    } else if (unit.isSurrogate()) {
      character = '?';
    }
    entry.isCut = !addCharacter(entry, character);
  }
}

}  // namespace

std::atomic<FlightRecorder::State_t> FlightRecorder::_state{FlightRecorder::Unknown};

bool FlightRecorder::startAsAsked() noexcept {
  const char* const asked = std::getenv("KYR_FLIGHT_RECORDER");
  const bool off = asked && (std::strcmp(asked, "off") == 0 || std::strcmp(asked, "0") == 0);
  State_t state = Unknown;
  _state.compare_exchange_strong(state, off ? Off : On);
  return _state == On;
}

void FlightRecorder::add(const char* source, const char* text) noexcept {
  Entry entry;
  addSource(entry, source);
  if (text) {
    addText(entry, text, lengthUpTo(text, longestEntry + 1), longestEntry);
  }
  keep(entry);
}

void FlightRecorder::add(const char* source, const QString& text) noexcept {
  Entry entry;
  addSource(entry, source);
  addText(entry, text);
  keep(entry);
}

QStringList FlightRecorder::lines() {
  QStringList shown;
  Reader reader;
  LineMaker maker;
  Entry entry;
  while (reader.next(entry)) {
    const std::string_view line = maker.line(entry);
    shown += QString::fromUtf8(line.data(), static_cast<int>(line.size()));
  }
  return shown;
}

Reader::Reader() noexcept {
  for (std::size_t ring = 0; ring < ringCount; ++ring) {
    Place& place = _places[ring];
    place.next = rings[ring].next.load(std::memory_order_acquire);
    place.first = place.next - std::min<std::uint64_t>(place.next, ringEntries);
    hold(ring);
  }
}

void Reader::hold(std::size_t ring) noexcept {
  Place& place = _places[ring];
  place.isHeld = false;
  while (!place.isHeld && place.next > place.first) {
    --place.next;
    place.isHeld = copy(rings[ring], place.next, place.held);
  }
}

bool Reader::next(Entry& entry) noexcept {
  std::size_t newest = 0;
  for (std::size_t ring = 1; ring < ringCount; ++ring) {
    const Place& best = _places[newest];
    const Place& place = _places[ring];
    if (place.isHeld && (!best.isHeld || place.held.time > best.held.time)) {
      newest = ring;
    }
  }
  if (!_places[newest].isHeld || _given == FlightRecorder::shownEntries) {
    return false;
  }
  entry = _places[newest].held;
  hold(newest);
  ++_given;
  return true;
}

}  // namespace Kyr

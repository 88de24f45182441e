/// \file
/// How what was recorded is read: without memory and without a lock, also in a process that has
/// broken.
#pragma once

#include <kyr/text/secrets_p.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Kyr::Recorder {

/// The threads share so many rings, so that two of them seldom write into the same memory; a reader
/// merges them by time.
constexpr std::size_t ringCount = 4;
constexpr std::size_t ringEntries = 256;
constexpr std::size_t textWords = 28;

/// A copy of an entry that was whole.
struct Entry {
  std::int64_t time = 0;  ///< nanoseconds, by now()
  std::uint32_t thread = 0;
  std::size_t sourceLength = 0;
  std::size_t length = 0;  ///< of source and text, which follow each other
  bool isCut = false;      ///< whether the end of the text is missing
  std::array<char, textWords * 8>
      bytes;  ///< left as they are behind the length, as that takes time

  std::string_view source() const noexcept { return {bytes.data(), sourceLength}; }
  std::string_view text() const noexcept {
    return {bytes.data() + sourceLength, length - sourceLength};
  }
};

/// Goes through what was recorded when it was made, from the last entry to the first. Entries that
/// are not whole, or are replaced meanwhile, are left out.
class Reader {
 public:
  Reader() noexcept;
  /// \return false behind the last of FlightRecorder::shownEntries
  bool next(Entry& entry) noexcept;

 private:
  /// How far a ring was read.
  struct Place {
    std::uint64_t next = 0;  ///< behind the number of the entry that comes next
    std::uint64_t first = 0;
    bool isHeld = false;  ///< whether held is still to be given
    Entry held;
  };
  void hold(std::size_t ring) noexcept;

  unsigned _given = 0;
  std::array<Place, ringCount> _places;
};

/// Nanoseconds of a clock that only rises, and goes on while the machine sleeps.
std::int64_t now() noexcept;
/// What is to be added to now() for nanoseconds since 1970 in UTC.
std::int64_t sinceEpoch() noexcept;

/// Makes lines for people of entries: secrets are blanked, control characters and bytes that are no
/// UTF-8 replaced.
/// \threadsafety one thread at a time, also in a process that has broken
class LineMaker {
 public:
  /// \return without a line feed; valid until the next call
  std::string_view line(const Entry& entry) noexcept;
  /// As above, with a line feed.
  std::string_view lineWithFeed(const Entry& entry) noexcept;

 private:
  void add(std::string_view text) noexcept;
  void addPlain(std::string_view text) noexcept;
  void addNumber(std::uint64_t number, unsigned base, int digits) noexcept;
  void addTime(std::int64_t microseconds) noexcept;

  const std::int64_t _sinceEpoch = sinceEpoch();
  Secrets::Blanker _blanker;
  std::array<char, 1280> _line{};
  std::size_t _length = 0;
};

}  // namespace Kyr::Recorder

/// \file
/// How an entry of a journal looks.
#pragma once

#include <kyr/log/KyrJournal.h>

#include <cstdint>
#include <string>
#include <string_view>

namespace Kyr {

/// Makes the lines of entries; keeps the last second's text, which most entries share.
class JournalLine {
 public:
  struct Entry {
    std::int64_t time;  ///< milliseconds since 1970-01-01 00:00 UTC
    Journal::Level_t level;
    std::uint64_t process;
    std::uint64_t thread;
    std::string_view source;
    std::string_view text;  ///< UTF-8
  };

  /// Appends the entry with its line feed; takes memory.
  void append(std::string& line, const Entry& entry);

 private:
  void appendTime(std::string& line, std::int64_t time);

  std::int64_t _second = -1;
  std::string _secondText;
};

}  // namespace Kyr

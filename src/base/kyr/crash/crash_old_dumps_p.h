/// \file
/// How the dumps of earlier crashes give way, so that they do not fill the disk.
#pragma once

#include <kyr/crash/crash_text_p.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>

namespace Kyr::Crash {

/// How many dumps of a user stay, the new one included.
constexpr std::size_t mostDumps = 20;

/// Appends the name of a process's dump, without folder.
inline void appendDumpName(Text& text, std::uint32_t process) noexcept {
  text << "ORV-";
  text.count(process) << ".dmp";
}

/// The process whose dump has this name, without folder.
/// \return 0 for another name
template <class Character>
std::uint32_t processOfDump(const Character* name) noexcept {
  const auto skip = [&name](const char* piece) {
    for (; *piece && *name == static_cast<Character>(*piece); ++piece) {
      ++name;
    }
    return *piece == '\0';
  };
  std::uint64_t process = 0;
  if (!skip("ORV-") || *name == '0') {
    return 0;
  }
  for (; *name >= '0' && *name <= '9' && process <= std::numeric_limits<std::uint32_t>::max();
       ++name) {
    process = process * 10 + static_cast<std::uint64_t>(*name - '0');
  }
  const bool isDump = skip(".dmp") && *name == 0;
  return isDump && process <= std::numeric_limits<std::uint32_t>::max()
             ? static_cast<std::uint32_t>(process)
             : 0;
}

/// The newest dumps of a folder beside that of this process.
class NewestDumps {
 public:
  /// \param time in any unit that grows
  /// \return the process whose dump has to go; 0 for none
  std::uint32_t add(std::uint32_t process, std::int64_t time) noexcept {
    if (_count < _dumps.size()) {
      _dumps[_count++] = {time, process};
      return 0;
    }
    Dump& oldest = *std::min_element(
        _dumps.begin(), _dumps.end(),
        [](const Dump& left, const Dump& right) { return left.time < right.time; });
    if (time <= oldest.time) {
      return process;
    }
    const std::uint32_t gone = oldest.process;
    oldest = {time, process};
    return gone;
  }

 private:
  struct Dump {
    std::int64_t time;
    std::uint32_t process;
  };
  std::array<Dump, mostDumps - 1> _dumps{};
  std::size_t _count = 0;
};

}  // namespace Kyr::Crash

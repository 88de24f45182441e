/// \file
/// What a report says of the process behind the backtraces. It is prepared while the process is
/// well, as far as it can be.
#pragma once

#include <kyr/crash/crash_text_p.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace Kyr::Crash {

/// Appends a text with "?" in the place of each control character.
void appendVisible(Text& text, const char* bytes, std::size_t length) noexcept;
/// Appends a path in which the user's home directory is "~".
void appendPath(Text& text, const char* path, std::size_t length) noexcept;
/// Appends a moment as "2026-11-22T17:14:17Z".
/// \param seconds since 1970-01-01 00:00 UTC
void appendMoment(Text& text, std::int64_t seconds) noexcept;
/// Appends bytes as hexadecimal digits, two for each.
void appendBytes(Text& text, const unsigned char* bytes, std::size_t count) noexcept;

/// The lines that were prepared; empty without any.
const char* preparedLines() noexcept;

/// Takes the notice to be shown: the first call alone gets it.
/// \param dump the path of the dump; empty for none
/// \param place where to write
/// \return empty when nothing is to be shown
Text takeNotice(const char* dump, std::intptr_t& place) noexcept;

/// The line that names a thread.
/// \param number the system's
/// \param name as the system has it; may be empty
/// \param function, file of the creation site; empty when it is not known
/// \return empty when nothing is known
Text threadLine(std::uint64_t number, const char* name, const char* function, const char* file,
                unsigned line) noexcept;

/// Where the modules begin that frames lie in, in the order in which they were met.
class MetModules {
 public:
  /// \param begin 0 for no module
  void add(std::uint64_t begin) noexcept {
    const bool isNew = begin != 0 && std::find(this->begin(), end(), begin) == end();
    if (isNew && _count < _begins.size()) {
      _begins[_count++] = begin;
    }
  }
  const std::uint64_t* begin() const noexcept { return _begins.data(); }
  const std::uint64_t* end() const noexcept { return _begins.data() + _count; }

 private:
  std::size_t _count = 0;
  std::array<std::uint64_t, 256> _begins{};
};

}  // namespace Kyr::Crash

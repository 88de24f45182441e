/// \file
/// What nobody else may know, taken out of texts without the heap and without the locale.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace Kyr::Secrets {

/// Takes secrets out of short texts, by the same rule as SystemReport::blankSecrets() for a value
/// without a name; what an open quotation mark begins is blanked to the end besides.
/// \threadsafety one thread at a time, also in a process that has broken
class Blanker {
 public:
  /// \param text of UTF-8; one that is so long that it might not fit is blanked whole
  /// \param isCut whether the text has lost its end: what the lost part might make a secret is then
  ///        blanked, too
  /// \return valid until the next call
  std::string_view blank(std::string_view text, bool isCut) noexcept;

 private:
  /// A text that grows; what does not fit is not added, and noted.
  class Room {
   public:
    void clear() noexcept { _length = 0, _isFull = false; }
    void add(std::string_view piece) noexcept;
    void shorten() noexcept { --_length; }
    std::string_view view() const noexcept { return {_bytes.data(), _length}; }
    bool isFull() const noexcept { return _isFull; }

   private:
    std::array<char, 1024> _bytes{};
    std::size_t _length = 0;
    bool _isFull = false;
  };
  /// A part of a text that is replaced.
  struct Found {
    std::size_t begin;
    std::size_t end;  ///< the same as begin for nothing
    std::string_view by;
  };
  using Rule = Found (*)(std::string_view text, std::size_t from);

  static Found findAccount(std::string_view text, std::size_t from) noexcept;
  static Found findBareAccount(std::string_view text, std::size_t from) noexcept;
  static Found findAssignment(std::string_view text, std::size_t from) noexcept;
  static Found findOption(std::string_view text, std::size_t from) noexcept;
  static Found findKey(std::string_view text, std::size_t from) noexcept;
  void apply(Rule rule) noexcept;

  std::array<Room, 2> _rooms;  ///< the text as it is, and as it becomes
  std::size_t _present = 0;
};

}  // namespace Kyr::Secrets

/// \file
/// What nobody else may know, taken out of texts without the heap and without the locale.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace Kyr::Secrets {

/// A part of a text that is to be replaced.
struct Found {
  std::size_t begin;
  std::size_t end;  ///< the same as begin for nothing
  std::string_view by;
};
/// Finds the first of a kind of secrets from a place on.
/// \param text of ASCII, in which any other byte stands for a character that means nothing
using Rule = Found (*)(std::string_view text, std::size_t from) noexcept;
/// All kinds, in the order in which they are to be replaced: each looks at what the one before it
/// has left.
extern const std::array<Rule, 5> rules;

/// Whether a name tells of a secret.
bool tellsOfSecret(std::string_view name) noexcept;

/// Takes secrets out of short texts.
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
  void apply(Rule rule) noexcept;

  std::array<Room, 2> _rooms;  ///< the text as it is, and as it becomes
  std::size_t _present = 0;
};

}  // namespace Kyr::Secrets

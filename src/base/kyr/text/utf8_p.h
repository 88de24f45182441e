/// \file
/// UTF-8 without the heap and without the locale, for bytes that Qt must not see or not change.
#pragma once

#include <cstddef>

namespace Kyr::Utf8 {

/// What take() gives for bytes that are no character.
constexpr char32_t none = 0xFFFFFFFF;

/// Takes one character off the front of a text; of bytes that are none, one or more.
/// \param text before \a end; moved on
/// \return the code point, or #none for too long forms, surrogates and whatever is above U+10FFFF
/// \threadsafety any thread, also in a process that has broken
char32_t take(const char*& text, const char* end) noexcept;

/// The longest start of a text that has at most so many bytes and no half character at its end.
/// \return its length in bytes
/// \threadsafety as that of take()
std::size_t lengthOfStart(const char* text, std::size_t length, std::size_t most) noexcept;

}  // namespace Kyr::Utf8

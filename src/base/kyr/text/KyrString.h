/// \file
/// The library's 8-bit string.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <cstddef>
#include <functional>
#include <initializer_list>
#include <iterator>
#include <string>
#include <string_view>
#include <type_traits>
#include <utility>

namespace Kyr {

/// A standard string with the formatting and the conversions of Qt's string.
///
/// A sequence of bytes in no particular encoding, for code that has nothing to do with QString:
/// file formats, parsers, reports. It adds no data and no virtual functions, so it may be
/// deleted, copied and swapped as the std::string that it is. Numbers read and write the same
/// under every locale. Integers of type long have overloads of their own, because std::int64_t
/// and std::size_t are of that type on some platforms.
/// \code
/// const KString line = KString("%1 of %2 points").arg(12).arg(points.size());
/// const int count = line.left(2).toInt();
/// \endcode
/// \threadsafety as std::string
class KYR_EXPORT KString : public std::string {
  template <class Iterator>
  using Category = typename std::iterator_traits<Iterator>::iterator_category;

  template <class T>
  static constexpr bool isText = std::is_convertible_v<const T&, std::string_view>;
  // Types that convert to a view but not to std::string. A literal converts to both, and would be
  // ambiguous if overloads for views took it as well.
  template <class T>
  static constexpr bool isView = isText<T> && !std::is_convertible_v<const T&, std::string>;
  template <class T>
  using IfView = std::enable_if_t<isView<T>>;

 public:
  /// The empty string.
  KString() = default;
  KString(const KString&) = default;
  KString(KString&&) = default;
  /// The constructors of std::string: a string or a part of it, a text up to its zero byte or of so
  /// many bytes, or so many times a character.
  /// \throws std::out_of_range for a part that begins behind the end
  KString(const std::string& text) : std::string(text) {}
  KString(std::string&& text) noexcept : std::string(std::move(text)) {}
  KString(const std::string& text, size_type pos, size_type n = npos) : std::string(text, pos, n) {}
  KString(const char* text) : std::string(text) {}
  KString(const char* text, size_type n) : std::string(text, n) {}
  KString(size_type n, char c) : std::string(n, c) {}
  /// In braces two characters are two characters, as with std::string: a count and a character
  /// stand in parentheses.
  KString(std::initializer_list<char> bytes) : std::string(bytes) {}
  /// The bytes of a view.
  template <class View, class = IfView<View>>
  explicit KString(const View& text) : std::string(std::string_view(text)) {}
  ~KString() = default;

  KString& operator=(const KString&) = default;
  KString& operator=(KString&&) = default;
  KString& operator=(const std::string& text) { return self(std::string::operator=(text)); }
  KString& operator=(std::string&& text) noexcept {
    return self(std::string::operator=(std::move(text)));
  }
  KString& operator=(const char* text) { return self(std::string::operator=(text)); }
  KString& operator=(char c) { return self(std::string::operator=(c)); }
  KString& operator=(std::initializer_list<char> bytes) {
    return self(std::string::operator=(bytes));
  }
  template <class View, class = IfView<View>>
  KString& operator=(const View& text) {
    return self(std::string::assign(text));
  }

  /// As append(), for one argument.
  KString& operator+=(const std::string& text) { return self(std::string::append(text)); }
  KString& operator+=(const char* text) { return self(std::string::append(text)); }
  KString& operator+=(char c) { return self(std::string::append(1, c)); }
  KString& operator+=(std::initializer_list<char> bytes) { return append(bytes); }
  template <class View, class = IfView<View>>
  KString& operator+=(const View& text) {
    return append(text);
  }

  // The changing operations of std::string in all their shapes, with the derived type as result so
  // that calls chain. Those that give an iterator there give it here.

  /// As std::string::append() in all its forms.
  /// \return this string
  /// \throws std::out_of_range for a part that begins behind the end of \a text
  KString& append(const std::string& text) { return self(std::string::append(text)); }
  KString& append(const std::string& text, size_type pos, size_type n = npos) {
    return self(std::string::append(text, pos, n));
  }
  KString& append(const char* text) { return self(std::string::append(text)); }
  KString& append(const char* text, size_type n) { return self(std::string::append(text, n)); }
  KString& append(size_type n, char c) { return self(std::string::append(n, c)); }
  KString& append(std::initializer_list<char> bytes) { return self(std::string::append(bytes)); }
  template <class View, class = IfView<View>>
  KString& append(const View& text) {
    return self(std::string::append(text));
  }
  template <class View, class = IfView<View>>
  KString& append(const View& text, size_type pos, size_type n = npos) {
    return self(std::string::append(text, pos, n));
  }
  template <class Iterator, class = Category<Iterator>>
  KString& append(Iterator first, Iterator last) {
    return self(std::string::append(first, last));
  }

  /// As std::string::assign() in all its forms.
  /// \return this string
  /// \throws std::out_of_range for a part that begins behind the end of \a text
  KString& assign(const std::string& text) { return self(std::string::assign(text)); }
  KString& assign(std::string&& text) noexcept {
    return self(std::string::assign(std::move(text)));
  }
  KString& assign(const std::string& text, size_type pos, size_type n = npos) {
    return self(std::string::assign(text, pos, n));
  }
  KString& assign(const char* text) { return self(std::string::assign(text)); }
  KString& assign(const char* text, size_type n) { return self(std::string::assign(text, n)); }
  KString& assign(size_type n, char c) { return self(std::string::assign(n, c)); }
  KString& assign(std::initializer_list<char> bytes) { return self(std::string::assign(bytes)); }
  template <class View, class = IfView<View>>
  KString& assign(const View& text) {
    return self(std::string::assign(text));
  }
  template <class View, class = IfView<View>>
  KString& assign(const View& text, size_type pos, size_type n = npos) {
    return self(std::string::assign(text, pos, n));
  }
  template <class Iterator, class = Category<Iterator>>
  KString& assign(Iterator first, Iterator last) {
    return self(std::string::assign(first, last));
  }

  /// As std::string::insert() in its forms with a place in bytes.
  /// \return this string
  /// \throws std::out_of_range for a place or a part behind the end
  KString& insert(size_type at, const std::string& text) {
    return self(std::string::insert(at, text));
  }
  KString& insert(size_type at, const std::string& text, size_type pos, size_type n = npos) {
    return self(std::string::insert(at, text, pos, n));
  }
  KString& insert(size_type at, const char* text) { return self(std::string::insert(at, text)); }
  KString& insert(size_type at, const char* text, size_type n) {
    return self(std::string::insert(at, text, n));
  }
  KString& insert(size_type at, size_type n, char c) { return self(std::string::insert(at, n, c)); }
  KString& insert(size_type at, std::initializer_list<char> bytes) {
    return self(std::string::insert(at, bytes.begin(), bytes.size()));
  }
  template <class View, class = IfView<View>>
  KString& insert(size_type at, const View& text) {
    return self(std::string::insert(at, text));
  }
  template <class View, class = IfView<View>>
  KString& insert(size_type at, const View& text, size_type pos, size_type n = npos) {
    return self(std::string::insert(at, text, pos, n));
  }

  /// As std::string::insert() in its forms with an iterator.
  /// \return the place of the first byte that came in
  iterator insert(const_iterator at, char c) { return std::string::insert(at, c); }
  iterator insert(const_iterator at, size_type n, char c) { return std::string::insert(at, n, c); }
  iterator insert(const_iterator at, std::initializer_list<char> bytes) {
    return std::string::insert(at, bytes);
  }
  template <class Iterator, class = Category<Iterator>>
  iterator insert(const_iterator at, Iterator first, Iterator last) {
    return std::string::insert(at, first, last);
  }

  using std::string::erase;
  /// Removes \a n bytes from \a pos on, or fewer where the string ends. The forms with iterators
  /// are those of std::string.
  /// \return this string
  /// \throws std::out_of_range for a \a pos behind the end
  KString& erase(size_type pos = 0, size_type n = npos) { return self(std::string::erase(pos, n)); }

  /// As std::string::replace() in all its forms.
  /// \return this string
  /// \throws std::out_of_range for a place or a part behind the end
  KString& replace(size_type pos, size_type n, const std::string& text) {
    return self(std::string::replace(pos, n, text));
  }
  KString& replace(size_type pos, size_type n, const std::string& text, size_type textPos,
                   size_type textN = npos) {
    return self(std::string::replace(pos, n, text, textPos, textN));
  }
  KString& replace(size_type pos, size_type n, const char* text) {
    return self(std::string::replace(pos, n, text));
  }
  KString& replace(size_type pos, size_type n, const char* text, size_type textN) {
    return self(std::string::replace(pos, n, text, textN));
  }
  KString& replace(size_type pos, size_type n, size_type count, char c) {
    return self(std::string::replace(pos, n, count, c));
  }
  template <class View, class = IfView<View>>
  KString& replace(size_type pos, size_type n, const View& text) {
    return self(std::string::replace(pos, n, text));
  }
  template <class View, class = IfView<View>>
  KString& replace(size_type pos, size_type n, const View& text, size_type textPos,
                   size_type textN = npos) {
    return self(std::string::replace(pos, n, text, textPos, textN));
  }
  KString& replace(const_iterator first, const_iterator last, const std::string& text) {
    return self(std::string::replace(first, last, text));
  }
  KString& replace(const_iterator first, const_iterator last, const char* text) {
    return self(std::string::replace(first, last, text));
  }
  KString& replace(const_iterator first, const_iterator last, const char* text, size_type n) {
    return self(std::string::replace(first, last, text, n));
  }
  KString& replace(const_iterator first, const_iterator last, size_type n, char c) {
    return self(std::string::replace(first, last, n, c));
  }
  template <class Iterator>
  KString& replace(const_iterator first, const_iterator last, Iterator from, Iterator to) {
    return self(std::string::replace(first, last, from, to));
  }
  KString& replace(const_iterator first, const_iterator last, std::initializer_list<char> bytes) {
    return self(std::string::replace(first, last, bytes));
  }
  template <class View, class = IfView<View>>
  KString& replace(const_iterator first, const_iterator last, const View& text) {
    return self(std::string::replace(first, last, text));
  }

  /// The \a n bytes from \a pos on, or fewer where the string ends.
  /// \throws std::out_of_range for a \a pos beyond the end
  KString substr(size_type pos = 0, size_type n = npos) const;
  /// As substr().
  /// \throws std::out_of_range for a \a pos beyond the end
  KString mid(size_type pos, size_type n = npos) const { return substr(pos, n); }
  /// The first \a n bytes; the whole string when it is not longer.
  KString left(size_type n) const { return substr(0, n); }
  /// The last \a n bytes; the whole string when it is not longer.
  KString right(size_type n) const;
  /// Brings the string to a width in bytes by appending.
  /// \param truncate cuts a longer string after its first \a width bytes
  KString leftJustified(size_type width, char fill = ' ', bool truncate = false) const;
  /// Brings the string to a width in bytes by prepending.
  /// \param truncate cuts a longer string after its first \a width bytes
  KString rightJustified(size_type width, char fill = ' ', bool truncate = false) const;

  /// Replaces the leftmost of the placeholders "%0" to "%9" with the lowest number; later ones
  /// of the same number wait for the next call. Without any the string stays as it is.
  /// \param fieldWidth pads the argument on the left, negative on the right; 0 never pads
  KString arg(const std::string& a, int fieldWidth, char fill) const;
  KString arg(const std::string& a, int fieldWidth = 0) const;
  KString arg(char c, int fieldWidth = 0) const;
  /// As above with a number, which is formatted as number() does.
  KString arg(short a, int fieldWidth = 0, int base = 10) const;
  KString arg(unsigned short a, int fieldWidth = 0, int base = 10) const;
  KString arg(int a, int fieldWidth = 0, int base = 10) const;
  KString arg(unsigned a, int fieldWidth = 0, int base = 10) const;
  KString arg(long a, int fieldWidth = 0, int base = 10) const;
  KString arg(unsigned long a, int fieldWidth = 0, int base = 10) const;
  KString arg(long long a, int fieldWidth = 0, int base = 10) const;
  KString arg(unsigned long long a, int fieldWidth = 0, int base = 10) const;
  KString arg(double a, int fieldWidth = 0, char format = 'g', int precision = 6) const;
  /// Gives the arguments in order to the placeholder numbers in rising order and replaces all
  /// their occurrences. Arguments without a number are ignored, numbers without an argument
  /// stay; a placeholder inside an argument is none.
  KString arg(const std::string& a1, const std::string& a2) const;
  KString arg(const std::string& a1, const std::string& a2, const std::string& a3) const;
  KString arg(const std::string& a1, const std::string& a2, const std::string& a3,
              const std::string& a4) const;
  /// All of the above for views.
  template <class View, class = IfView<View>>
  KString arg(const View& a, int fieldWidth, char fill) const {
    return arg(std::string(std::string_view(a)), fieldWidth, fill);
  }
  template <class View, class = IfView<View>>
  KString arg(const View& a, int fieldWidth = 0) const {
    return arg(std::string(std::string_view(a)), fieldWidth);
  }
  template <class First, class Second, class... Rest,
            class = std::enable_if_t<(isView<First> || isView<Second> || (isView<Rest> || ...)) &&
                                     isText<First> && isText<Second> && (isText<Rest> && ...) &&
                                     sizeof...(Rest) <= 2>>
  KString arg(const First& a1, const Second& a2, const Rest&... rest) const {
    return arg(std::string(std::string_view(a1)), std::string(std::string_view(a2)),
               std::string(std::string_view(rest))...);
  }

  /// Replaces the content by a number as number() formats it.
  KString& setNum(short value, int base = 10);
  KString& setNum(unsigned short value, int base = 10);
  KString& setNum(int value, int base = 10);
  KString& setNum(unsigned value, int base = 10);
  KString& setNum(long value, int base = 10);
  KString& setNum(unsigned long value, int base = 10);
  KString& setNum(long long value, int base = 10);
  KString& setNum(unsigned long long value, int base = 10);
  KString& setNum(float value, char format = 'g', int precision = 6);
  KString& setNum(double value, char format = 'g', int precision = 6);

  /// Formats an integer with lower-case digits.
  /// \param base 2 to 36; any other counts as 10
  /// \threadsafety any thread
  static KString number(int value, int base = 10);
  static KString number(unsigned value, int base = 10);
  static KString number(long value, int base = 10);
  static KString number(unsigned long value, int base = 10);
  static KString number(long long value, int base = 10);
  static KString number(unsigned long long value, int base = 10);
  /// Formats as printf does in the "C" locale, the exponent with at least two digits.
  /// \param format one of "fFeEgG"; any other counts as 'f'
  /// \param precision at most 99 counts; negative means 6
  /// \threadsafety any thread
  static KString number(double value, char format = 'g', int precision = 6);

  /// Parses an integer: white space, a sign, digits of the base (lower-case letters only).
  ///
  /// For a base up to 10 the byte behind its last possible digit passes as a digit as well,
  /// ":" in base 10, with the value of the base. The unsigned forms take "-" before zero only.
  /// \param ok receives whether it succeeded; may be null
  /// \param base 2 to 36; any other counts as 10
  /// \param end null to allow only blanks and tabs behind the number; otherwise receives the
  ///        offset of the first byte that is no part of it, unless there is no number of
  ///        64 bits
  /// \return 0 on failure, also when the result type is too narrow
  short toShort(bool* ok = nullptr, int base = 10, unsigned* end = nullptr) const;
  unsigned short toUShort(bool* ok = nullptr, int base = 10, unsigned* end = nullptr) const;
  int toInt(bool* ok = nullptr, int base = 10, unsigned* end = nullptr) const;
  unsigned toUInt(bool* ok = nullptr, int base = 10, unsigned* end = nullptr) const;
  long long toInt64(bool* ok = nullptr, int base = 10, unsigned* end = nullptr) const;
  unsigned long long toUInt64(bool* ok = nullptr, int base = 10, unsigned* end = nullptr) const;

  /// Parses what strtod accepts in the "C" locale, to the same bits.
  /// \param ok receives whether it succeeded; may be null
  /// \param end null to allow only blanks and tabs behind the number; a string of nothing else
  ///        then is 0.0. Otherwise receives, on success, the offset behind the number
  /// \return 0.0 on failure
  double toDouble(bool* ok = nullptr, unsigned* end = nullptr) const;
  /// As toDouble(), narrowed; too large a value becomes infinite.
  float toFloat(bool* ok = nullptr, unsigned* end = nullptr) const;

 private:
  static KString& self(std::string& base) { return static_cast<KString&>(base); }
};

namespace KStringSum {

/// Whether a type is a KString, or derives from it.
template <class T>
constexpr bool isKString = std::is_base_of_v<KString, std::decay_t<T>>;
/// Whether operator+ takes it beside a KString: of the numbers only a char itself, as all the
/// others convert to one.
template <class T>
constexpr bool isPart =
    std::is_same_v<std::decay_t<T>, char> || std::is_convertible_v<const T&, std::string_view>;

/// What operator+ appends, as a view.
inline std::string_view view(const char& c) {
  return {&c, 1};
}
/// As above.
inline std::string_view view(std::string_view text) {
  return text;
}

}  // namespace KStringSum

/// Joins a KString and any string, view or character. The operator of std::string would give a
/// std::string, which has no arg() and its like.
/// \threadsafety as std::string
template <class Left, class Right,
          class = std::enable_if_t<(KStringSum::isKString<Left> && KStringSum::isPart<Right>) ||
                                   (KStringSum::isPart<Left> && KStringSum::isKString<Right>)>>
KString operator+(Left&& left, Right&& right) {
  if constexpr (std::is_same_v<Left, KString>) {  // a temporary, whose memory is used on
    return std::move(left.append(KStringSum::view(right)));
  } else {
    const std::string_view first = KStringSum::view(left);
    const std::string_view second = KStringSum::view(right);
    KString both;
    both.reserve(first.size() + second.size());
    both.append(first).append(second);
    return both;
  }
}

/// Makes any bytes one token of printable characters without white space, for fields of text
/// files.
/// \param markEmpty makes the empty string a single backslash, so that its field stays visible;
///        without it the empty string does not come back from a line of fields
/// \threadsafety any thread
KYR_EXPORT KString tokenize(const KString& s, bool markEmpty = true);
/// Reverses tokenize(). Unknown escapes are dropped, a "\x" with bad digits is a zero byte.
/// \threadsafety any thread
KYR_EXPORT KString untokenize(const KString& s, bool markEmpty = true);

}  // namespace Kyr

/// Equal strings of both classes have the same hash.
template <>
struct std::hash<Kyr::KString> : std::hash<std::string> {};

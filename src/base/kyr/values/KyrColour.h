/// \file
/// Colours as settings keep them.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/files/KyrFileParse.h>

#include <QString>

#include <cstdint>

namespace Kyr {

/// A colour of a setting: shares of red, green and blue, and how much it covers. A plain value;
/// every combination is a colour. As text: docs/formats/values.md.
/// \code
/// const Colour orange = Colour::fromText("#ff8000");
/// std::cout << orange.toLine("BACKGROUND").toStdString() << '\n';  // "BACKGROUND 255 128 0 255"
/// \endcode
/// \threadsafety as an int
struct KYR_EXPORT Colour {
  std::uint8_t red = 0;      ///< 255 is all of it, as of the two below
  std::uint8_t green = 0;    ///< 0 to 255
  std::uint8_t blue = 0;     ///< 0 to 255
  std::uint8_t alpha = 255;  ///< 0 is invisible, 255 covers what is behind

  /// The values of a line, as "255 128 0 255".
  QString toText() const;
  /// The colour as "#ff8000", with two more digits for an alpha below 255.
  QString toHex() const;
  /// A line of a keyed text file, without line end.
  /// \param key Latin-1, without white space
  QString toLine(const char* key) const;

  /// Reads what toText() and toHex() write; without alpha the colour covers.
  /// \throws Exception for any other text
  static Colour fromText(const QString& text);
  /// Reads the next line of a keyed text file.
  /// \throws FileParse::EndOfFile as FileParse::File::getLine()
  /// \throws FileParse::Error with line and reason, for people, when the line holds no colour
  static Colour read(FileParse::File& file, const char* key);
};

inline bool operator==(const Colour& left, const Colour& right) {
  return left.red == right.red && left.green == right.green && left.blue == right.blue &&
         left.alpha == right.alpha;
}
inline bool operator!=(const Colour& left, const Colour& right) {
  return !(left == right);
}

}  // namespace Kyr

/// \file
/// Fonts as settings keep them.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/files/KyrFileParse.h>

#include <QString>

namespace Kyr {

/// A font of a setting. A plain value that knows no screen: whether there is such a font shows
/// when somebody draws with it. As text: docs/formats/values.md.
/// \code
/// const Font title("DejaVu Sans", 10.5, Font::bold, Font::StyleItalic);
/// std::cout << title.toText().toStdString() << '\n';  // DejaVu\_Sans 10.5 700 italic
/// \endcode
/// \threadsafety as QString
class KYR_EXPORT Font {
 public:
  /// What may be added to one another.
  enum Style_t : unsigned {
    StylePlain = 0,      ///< none of these
    StyleItalic = 1,     ///< slanted letters
    StyleUnderline = 2,  ///< a line below
    StyleStrikeOut = 4,  ///< a line through the middle
    StyleFixed = 8,      ///< all characters are of one width; chooses the font where the family is
                         ///< unknown
  };

  static constexpr double smallestSize = 0.1;   ///< points
  static constexpr double largestSize = 10000;  ///< points
  static constexpr int lightest = 1;            ///< the least weight
  static constexpr int normal = 400;            ///< the weight of plain text
  static constexpr int bold = 700;              ///< the weight of what stands out
  static constexpr int heaviest = 1000;         ///< the greatest weight

  /// The system's own font in 10 points.
  Font() = default;
  /// \param family empty for the system's own
  /// \param size in points (1/72 inch), smallestSize to largestSize
  /// \param weight lightest to heaviest
  /// \param styles a sum of Style_t
  /// \throws Exception for values outside these
  Font(const QString& family, double size, int weight = normal, unsigned styles = StylePlain);

  /// The name of the family; empty for the system's own.
  const QString& family() const { return _family; }
  /// In points (1/72 inch), smallestSize to largestSize.
  double size() const { return _size; }
  /// How thick the strokes are, lightest to heaviest.
  int weight() const { return _weight; }
  /// A sum of Style_t.
  unsigned styles() const { return _styles; }
  /// Whether a style is part of the sum; true for StylePlain.
  bool has(Style_t style) const { return (_styles & style) == style; }

  /// The values of a line, as "DejaVu\_Sans 10.5 700 italic".
  QString toText() const;
  /// A line of a keyed text file, without line end; a very long one is continued.
  /// \param key Latin-1, without white space
  QString toLine(const char* key) const;

  /// Reads what toText() writes; the weight and what follows may be missing.
  /// \throws Exception for any other text
  static Font fromText(const QString& text);
  /// Reads the next line of a keyed text file.
  /// \throws FileParse::EndOfFile as FileParse::File::getLine()
  /// \throws FileParse::Error with line and reason, for people, when the line holds no font
  static Font read(FileParse::File& file, const char* key);

 private:
  QString _family;
  double _size = 10;
  int _weight = normal;
  unsigned _styles = StylePlain;
};

inline bool operator==(const Font& left, const Font& right) {
  return left.family() == right.family() && left.size() == right.size() &&
         left.weight() == right.weight() && left.styles() == right.styles();
}
inline bool operator!=(const Font& left, const Font& right) {
  return !(left == right);
}

}  // namespace Kyr

/// \file
/// A string with numbers in it.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>
#include <QStringView>
#include <QVector>

#include <array>

namespace Kyr {

/// A text that knows where its runs of digits are, for the natural order of names.
///
/// Parts of digits and parts of other characters take turns: "scan12b" has the parts "scan",
/// "12" and "b". In the natural order numbers count by value, so that item9 comes before item10.
/// A plain value; up to four parts need no heap block beside the text.
/// \code
/// std::vector<NumString> names{NumString("scan10"), NumString("scan9")};
/// std::sort(names.begin(), names.end());  // scan9, scan10
/// names.back().increment();               // scan11
/// \endcode
/// \threadsafety one thread per object
class KYR_EXPORT NumString {
 public:
  /// An empty text, without parts.
  NumString() = default;
  /// As setString().
  NumString(const QString& text) { setString(text); }

  /// Stores a text and finds its parts, at a cost linear in its length.
  void setString(const QString& text);
  /// The text as it was set or counted up.
  QString getString() const { return _text; }

  /// How many parts the text has, of digits and of other characters; 0 for an empty one.
  unsigned int partsCount() const { return static_cast<unsigned>(count()); }
  /// The value of a part of digits.
  /// \param index below partsCount(); not checked
  /// \param value receives 2147483647 for more than that, and for digits other than 0 to 9
  /// \return false, with nothing stored, for a part of other characters
  bool getNumberPart(unsigned int index, int* value) const;
  /// The text of a part, leading zeros included.
  /// \param index below partsCount(); not checked
  QString getStringPart(unsigned int index) const;

  /// Compares part by part in the natural order.
  ///
  /// The empty text comes first, a number before any other character, and a text before a longer
  /// one that begins with the same parts. Of equal numbers the one with
  /// more leading zeros is smaller: 007, 07, 7. Other characters compare by their codes.
  ///
  /// All numbers of 2147483647 and more count as equal: of those the one with more digits is
  /// smaller, and time stamps like 20260228123059 have no order among themselves. Who has such
  /// names compares those numbers by themselves, as `kyr sort` does.
  /// \return -1, 0 or 1
  int compare(const NumString& other) const;

  bool operator<(const NumString& other) const { return compare(other) == -1; }
  bool operator<=(const NumString& other) const { return compare(other) != 1; }
  bool operator>(const NumString& other) const { return compare(other) == 1; }
  bool operator>=(const NumString& other) const { return compare(other) != -1; }
  bool operator==(const NumString& other) const { return compare(other) == 0; }
  bool operator!=(const NumString& other) const { return compare(other) != 0; }

  /// Counts the last number up by one, in its width of leading zeros (up to 100 characters).
  ///
  /// A text without number stays as it is, and so does a number of 2147483647 or more. Parts
  /// keep their places in the text: who lets a number grow by a digit, as from 9 to 10, calls
  /// setString() before counting on.
  void increment();

 private:
  KYR_HIDDEN void parseString();
  KYR_HIDDEN void addPart(int end, const int* value);
  KYR_HIDDEN void keepStart();
  bool isPartNumber(unsigned int index) const { return (index % 2 == 0) == _firstIsNumber; }
  bool isInPlace() const { return _inPlaceCount <= static_cast<int>(_endsInPlace.size()); }
  int count() const { return isInPlace() ? _inPlaceCount : static_cast<int>(_ends.size()); }
  const qint32* ends() const { return isInPlace() ? _endsInPlace.data() : _ends.constData(); }
  const qint32* values() const { return isInPlace() ? _valuesInPlace.data() : _values.constData(); }
  int partBegin(int index) const { return index == 0 ? 0 : ends()[index - 1]; }
  QStringView textBetween(int begin, int end) const;

  QString _text;
  // The index behind each part, and the values of the parts of digits. Both are empty as long as
  // the arrays below have room for all.
  QVector<qint32> _ends;
  QVector<qint32> _values;
  std::array<qint32, 4> _endsInPlace = {};
  std::array<qint32, 2> _valuesInPlace = {};
  // A copy of the first characters of _text: texts lie far apart in memory, and most comparisons
  // are decided without going there.
  std::array<QChar, 16> _start;
  qint16 _inPlaceCount = 0;  // of parts; more than _endsInPlace holds when they stand in _ends
  // How many characters of _start the parts still fit: none after increment().
  qint16 _parsedStart = 0;
  bool _firstIsNumber = false;
};

}  // namespace Kyr

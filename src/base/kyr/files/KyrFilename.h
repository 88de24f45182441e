/// \file
/// File names in parts, numbered file names, and the series that such files form.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/time/KyrTime.h>

#include <QString>

#include <vector>

namespace Kyr::Filename {

/// A file name in three parts: directory, base name and extension.
///
/// "C:\data\scan.tif" has the directory "C:/data", the base name "scan" and the extension ".tif".
/// A name without directory has that of its drive, as "D:", or ".". A dot at the end begins no
/// extension. The parts need not be those of an existing file. Separators of both kinds count on
/// every platform; the parts have "/".
/// \code
/// Filename::Name scan("C:\\data\\scan.tif");
/// scan.setExtension(".zip");
/// const QString packed = scan.getFullName();  // "C:/data/scan.zip"
/// \endcode
/// \threadsafety one thread per object
class KYR_EXPORT Name {
 public:
  /// All parts empty.
  Name() = default;
  /// As setFullName().
  Name(const QString& fullName);
  Name(const Name&) = default;
  Name& operator=(const Name&) = default;
  virtual ~Name();

  /// Drops one "/" at the end; one that is written "\" stays, as "/".
  virtual void setDirectory(const QString& directory);
  /// \param baseName without directory and extension; taken as it is, also with dots in it
  virtual void setBaseName(const QString& baseName);
  /// \param extension with its dot
  virtual void setExtension(const QString& extension);
  /// The directory without a separator at its end; so the root of a file system is empty. Override
  /// this and the two below with const: without it a class has a function of its own, which nobody
  /// calls.
  virtual QString getDirectory() const;
  /// What stands between the directory and the extension.
  virtual QString getBaseName() const;
  /// The extension with its dot.
  virtual QString getExtension() const;

  /// Takes a whole name apart.
  void setFullName(const QString& fullName);
  /// Directory, "/", base name and extension. Not always the name that was set: one without
  /// directory has got one ("a" is "./a", "D:a" is "D:/a"), and of several separators before the
  /// file name one is lost each time that the name is taken apart ("////" is "///").
  QString getFullName() const;
  /// Keeps the directory; one that \a fileName brings along is taken from there.
  void setFileName(const QString& fileName);
  /// Base name and extension.
  QString getFileName() const;

  /// The directory from the root on, without the segments "." and "..", at a cost linear in its
  /// length. Links are not followed.
  /// \return empty for an empty directory
  QString getAbsoluteDirectory() const;

  /// Whether there is something of this name, be it a file or not; follows links.
  /// \return false without a file name, when the directory alone is left
  bool exists() const;
  /// When the file was made; where the file system does not record it, when it was last changed.
  /// \param time not null; stays as it is on failure
  /// \return false when there is nothing of this name, or for a moment that Time cannot hold
  bool getCreationTime(Time* time) const;

  /// Whether all three parts are the same, letter by letter, as the virtual functions give them: a
  /// name with number counts with its number.
  friend bool operator==(const Name& left, const Name& right) {
    return left.getDirectory() == right.getDirectory() &&
           left.getBaseName() == right.getBaseName() && left.getExtension() == right.getExtension();
  }
  /// Whether one of the parts differs.
  friend bool operator!=(const Name& left, const Name& right) { return !(left == right); }

  /// What is left of a name without its last element: the directory, by the rules of this class.
  /// \threadsafety any thread
  static QString stripElementName(const QString& fullName);
  /// What is left of a name without the path to its last element: base name and extension.
  /// \threadsafety any thread
  static QString stripElementPath(const QString& fullName);

 protected:
  /// Takes a whole name apart and hands the parts to setDirectory(), setBaseName() and
  /// setExtension().
  virtual void parseFilename(const QString& fullName);

 private:
  QString _directory;
  QString _baseName;
  QString _extension;
};

/// The name of one of a series of files, with a number at the end of its base name.
///
/// "img0007.tif" has the number 7 in four digits. The number can be counted up and down; the name
/// then is that of another file of the series.
/// \code
/// Filename::NameWithNumber image("img0007.tif", -1);
/// image.incrementNumber();
/// const QString next = image.getFileName();  // "img0008.tif"
/// \endcode
/// \threadsafety one thread per object
class KYR_EXPORT NameWithNumber : public Name {
 public:
  /// \param digits the least width of the number, filled with zeros. Negative takes over the
  ///     width of the next number that is set
  NameWithNumber(const QString& fullName, int digits);

  /// Sets the text before the number, the number, the first number and perhaps the width. A text
  /// without digits at its end is dropped, leaving an empty base name and the number 0; more than
  /// 4294967295 is read as 0.
  void setBaseName(const QString& baseName) override;
  /// The base name with the number.
  QString getBaseName() const override;
  /// The base name without the number.
  QString getBaseNameNoNumber() const;
  /// \param baseName the text before the number, which stays; its digits belong to the text
  void setBaseNameNoNumber(const QString& baseName);

  /// Whether the base name that was set last ended in digits.
  bool isFilenameCorrect() const { return _correct; }
  /// The number, as it was set or counted.
  unsigned int getNumber() const { return _number; }
  /// Sets the number; the first one stays.
  void setNumber(unsigned int number) { _number = number; }
  /// The number that the name had when it was set.
  unsigned int getFirstNumber() const { return _firstNumber; }
  /// Sets where resetNumber() goes; the number stays.
  void setFirstNumber(unsigned int number) { _firstNumber = number; }
  /// The least width of the number; negative until a name has settled it.
  int getDigits() const { return _digits; }
  /// \param digits as the constructor's
  void setDigits(int digits) { _digits = digits; }

  /// Back to the first number.
  void resetNumber() { _number = _firstNumber; }
  /// Counts up; behind 4294967295 comes 0.
  void incrementNumber(unsigned int step = 1) { _number += step; }
  /// Counts down, as far as 0.
  void decrementNumber(unsigned int step = 1) { _number -= step < _number ? step : _number; }

 private:
  bool _correct = false;
  unsigned int _number = 0;
  unsigned int _firstNumber = 0;
  int _digits;
};

/// What a directory holds of a numbered series: the entries whose names differ in nothing but
/// the number. A snapshot; it stays as it is when the directory changes.
/// \code
/// const Filename::Series images(Filename::NameWithNumber(name, -1));
/// for (const Filename::Series::Gap& gap : images.getGaps()) {
///   std::cerr << "missing: " << gap.first << " to " << gap.last << '\n';
/// }
/// \endcode
/// \threadsafety one thread per object
class KYR_EXPORT Series {
 public:
  /// A file of the series.
  struct Member {
    QString fileName;     ///< without the directory
    unsigned int number;  ///< at the end of its base name
    int digits;           ///< the width in which the number is written
  };
  /// Numbers without a member between two that have one.
  struct Gap {
    unsigned int first;  ///< the lowest number without a member
    unsigned int last;   ///< the highest; the next one has a member
  };

  /// Lists the directory once. Numbers above 4294967295 are none of the series.
  /// \param example the name of a member, there or not; its number does not matter
  /// \param sensitivity whether case counts in names
  /// \throws Exception when the directory cannot be read, and for an example without number
  explicit Series(const NameWithNumber& example,
                  Qt::CaseSensitivity sensitivity = Qt::CaseSensitive);

  /// The members by rising number; of the same number, by falling width and then by name.
  const std::vector<Member>& getMembers() const { return _members; }
  /// The gaps by rising number.
  std::vector<Gap> getGaps() const;
  /// The members that share their number with another one, as img7.tif and img007.tif.
  std::vector<Member> getDuplicates() const;
  /// Whether no single width makes all the names. 9 and 10 have one width, 9 and 010 have not.
  bool hasMixedWidths() const;
  /// The number behind the highest.
  /// \param number stays as it is without members
  /// \return false when the highest number is the last that there is
  bool getNextNumber(unsigned int* number) const;

 private:
  std::vector<Member> _members;
};

}  // namespace Kyr::Filename

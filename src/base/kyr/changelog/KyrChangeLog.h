/// \file
/// Which elements of an interface a version brought, renamed, removed or gave another meaning.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

#include <cstddef>
#include <vector>

namespace Kyr::ChangeLog {

/// The version of a package: major, minor, patch and build. A plain value.
/// \threadsafety one thread per object
class KYR_EXPORT VersionNumber {
 public:
  /// The releases that have a name; the numbers never change.
  enum Version_t : int {
    Version610 = 0,  ///< 6.1.0
    Version611 = 1,  ///< 6.1.1
    Version620 = 2,  ///< 6.2.0
    Version700 = 3,  ///< 7.0.0
  };

  /// The version of what has none: four zeros, smaller than all others.
  static VersionNumber invalidVersion();
  /// The version of a package of a named release.
  /// \param build counts the release's packages
  /// \return the invalid version for a release outside the enumeration
  static VersionNumber version(const Version_t& release, unsigned build);
  /// As version() with Version610.
  static VersionNumber version610(unsigned build);
  /// As version() with Version620.
  static VersionNumber version620(unsigned build);
  /// The version of these four parts. Not called after a constructor, because four numbers in a
  /// row are easily taken for something else.
  static VersionNumber fromParts(unsigned itsMajor, unsigned itsMinor, unsigned itsPatch,
                                 unsigned itsBuild);
  /// Reads what toString() writes, as scanf does with "v%u.%u.%u-%u": blanks and a sign may stand
  /// before each number, minus counts down from 2^32, and what follows the fourth is ignored.
  /// \return the invalid version for any other text, for null, and for numbers that 32 bits do
  ///         not hold
  static VersionNumber fromString(const char* text);

  /// As "v6.2.0-6", the same under every locale.
  QString toString() const;

  unsigned getMajor() const { return _major; }  ///< the 6 of "v6.2.0-5"
  unsigned getMinor() const { return _minor; }  ///< the 2 of "v6.2.0-5"
  unsigned getPatch() const { return _patch; }  ///< the 0 of "v6.2.0-5"
  unsigned getBuild() const { return _build; }  ///< the 5 of "v6.2.0-5"

  /// Compares major, then minor, then patch, then build.
  bool operator<(const VersionNumber& other) const;
  bool operator==(const VersionNumber& other) const;
  bool operator!=(const VersionNumber& other) const { return !(*this == other); }
  bool operator>(const VersionNumber& other) const { return other < *this; }
  bool operator<=(const VersionNumber& other) const { return !(other < *this); }
  bool operator>=(const VersionNumber& other) const { return !(*this < other); }

 private:
  VersionNumber(unsigned itsMajor, unsigned itsMinor, unsigned itsPatch, unsigned itsBuild);

  unsigned _major;
  unsigned _minor;
  unsigned _patch;
  unsigned _build;
};

/// One change of one element. A plain value; a class derived from it makes entries with the
/// protected functions and puts them into a Log, which keeps them without what the class adds.
///
/// All texts are plain: markup characters in them appear on the page as they are here.
/// \code
/// struct Command : ChangeLog::LogEntry {
///   static LogEntry added(const char* name) {
///     return elementCreated("commands", ChangeLog::VersionNumber::version620(6), name, "");
///   }
/// };
/// ChangeLog::Log log;
/// log.addEntry(Command::added("align"));
/// const QString page = log.transformToPage("Commands", ChangeLog::Log::ByVersion);
/// \endcode
/// \threadsafety one thread per object
class KYR_EXPORT LogEntry {
 public:
  /// What happened to the element; any other number makes an entry without a sentence.
  enum Type_t : int {
    Created = 0,           ///< the element is new
    Renamed = 1,           ///< from here on the related element is its name
    Removed = 2,           ///< the element is gone
    SemanticsChanged = 3,  ///< the same name means something else
  };

  /// The area that the element belongs to; may be empty.
  const QString& getContext() const { return _context; }
  /// When the change happened.
  const VersionNumber& getVersion() const { return _version; }
  /// What happened to the element.
  Type_t getType() const { return _type; }
  /// The name that changed: of a renamed element the old one.
  const QString& getElement() const { return _element; }
  /// The new name of a renamed element, empty for others.
  const QString& getRelatedElement() const { return _relatedElement; }
  /// What else is to say; may be empty.
  const QString& getDescription() const { return _description; }

  /// The entry as a sentence in the user's language and, one blank behind it, the description.
  ///
  /// In the texts "<", ">", "&" and quotes become entities, line breaks become "<br/>", and
  /// characters that no HTML may hold become U+FFFD: the result is well-formed for every entry.
  /// \return without a sentence for a type outside the enumeration
  QString getHtmlText() const;

 protected:
  /// An entry of any type; the four functions below say more at the place of the call.
  /// \param context the area, which heads the lists that are grouped; may be empty
  /// \param version when the change happened
  /// \param element its name, of a renamed one the old name
  /// \param relatedElement the new name of a renamed element
  /// \param description what else is to say; may be empty
  LogEntry(const QString& context, const VersionNumber& version, Type_t type,
           const QString& element, const QString& relatedElement, const QString& description);

  /// An element that is new in \a version.
  static LogEntry elementCreated(const QString& context, const VersionNumber& version,
                                 const QString& element, const QString& description = QString());
  /// An element that is called \a newName from \a version on.
  static LogEntry elementRenamed(const QString& context, const VersionNumber& version,
                                 const QString& element, const QString& newName,
                                 const QString& description = QString());
  /// An element that \a version has no more.
  static LogEntry elementRemoved(const QString& context, const VersionNumber& version,
                                 const QString& element, const QString& description = QString());
  /// An element that means something else from \a version on, under the same name.
  static LogEntry elementSemantics(const QString& context, const VersionNumber& version,
                                   const QString& element, const QString& description = QString());

 private:
  QString _context;
  VersionNumber _version;
  QString _element;
  QString _relatedElement;
  QString _description;
  Type_t _type;
};

/// Entries in the order in which they were added. A plain value.
/// \threadsafety one thread per object
class KYR_EXPORT Log {
 public:
  /// How the entries are grouped. Entries that are equal in all that is compared keep their order.
  enum Grouping_t : int {
    NoGrouping = 0,  ///< one list in the order added; so does every value outside
    ByContext = 1,   ///< a list for each context by name, the newest version first
    ByVersion = 2,   ///< the newest version first, and in it a list for each context by name
  };
  using iterator = std::vector<LogEntry>::iterator;              ///< as standard containers call it
  using const_iterator = std::vector<LogEntry>::const_iterator;  ///< as standard containers call it

  /// Appends an entry.
  /// \return this log
  Log& addEntry(const LogEntry& entry);
  /// Appends all entries of another log, which may be this one.
  /// \return this log
  Log& addLog(const Log& other);

  /// The first entry, in the order added; adding others makes iterators invalid.
  iterator begin() { return _entries.begin(); }
  /// Behind the last entry.
  iterator end() { return _entries.end(); }
  /// The first entry, in the order added.
  const_iterator begin() const { return _entries.begin(); }
  /// Behind the last entry.
  const_iterator end() const { return _entries.end(); }
  /// The number of entries.
  std::size_t size() const { return _entries.size(); }

  /// The entries as a fragment of HTML: lists, with a heading of the second level before each
  /// context or version, and of the third before each context of a version. Contexts compare by
  /// their character codes; the one without a name comes first and has no heading.
  /// \return a list even without entries when they are not grouped, otherwise nothing
  QString transformToHtml(Grouping_t grouping) const;
  /// The fragment as a page of its own, with a style for screen and paper, in UTF-8.
  /// \param title plain text, for the first heading and the window
  QString transformToPage(const QString& title, Grouping_t grouping) const;

 private:
  std::vector<LogEntry> _entries;
};

/// The history of this library's own interface; its contexts are the folders of the headers.
/// \threadsafety any thread
KYR_EXPORT Log libraryChangeLog();
/// The title of that history's page, with the library's version, in the user's language.
/// \threadsafety any thread
KYR_EXPORT QString libraryChangeLogTitle();

}  // namespace Kyr::ChangeLog

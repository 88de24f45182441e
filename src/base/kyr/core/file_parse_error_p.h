/// \file
/// Errors in texts that know their place.
#pragma once

#include <kyr/core/KyrException.h>

#include <QString>

#include <utility>

namespace Kyr::FileParse {

/// What is wrong, and where.
struct Finding {
  Place place;
  /// A text of the catalogues, in the context findingContext: %1 is the token, %2 the key, %3 the
  /// detail. Null where the reason is said already.
  const char* reason = nullptr;
  QString detail;  ///< as the range of a number
  QString said;
};

constexpr const char* findingContext = "Kyr_FileParse";

/// In UTF-16 units; a token may be as long as its file.
constexpr int longestToken = 200;

/// A piece of a text for a sentence: its first 40 characters, with "?" for what could steer a
/// terminal.
QString shown(QString text);

/// What columns count: code points.
qint64 countCharacters(const QChar* begin, const QChar* end);

/// The text itself.
QString inEnglish(const char* text);

/// The place and the reason.
/// \param translated gives a text of the catalogues in the language of the sentence
QString sentence(const Finding& finding, QString (*translated)(const char* text) = inEnglish);

/// Stands beside an Error in what is thrown. The classes that applications know have the size that
/// they were compiled with, and no room for more.
class Placed {
 public:
  explicit Placed(Finding finding) : _finding(std::move(finding)) {}
  virtual ~Placed() = default;
  const Finding& finding() const { return _finding; }

 private:
  Finding _finding;
};

/// \return null for errors that others have thrown
const Finding* findingOf(const Error& error);

/// Throw the finding.
/// \param text becomes the message where the file has no name; otherwise the sentence does
[[noreturn]] void raise(Finding finding, const QString& text = {});
[[noreturn]] void raiseEnd(Finding finding, const QString& text = {});

}  // namespace Kyr::FileParse

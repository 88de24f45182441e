/// \file
/// The recoverable errors of the library.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

#include <stdexcept>

namespace Kyr {

/// An error that a caller is expected to catch; carries one message for people.
/// Thrown by value, caught by reference. A broken invariant is no Exception but a ProgError.
/// \threadsafety any thread, as long as nobody assigns to the object
class KYR_EXPORT Exception : public std::logic_error {
 public:
  /// An empty message.
  Exception();
  /// \param text the message; kept as UTF-8, which what() gives
  Exception(const QString& text);
  Exception(const Exception&) = default;
  Exception& operator=(const Exception&) = default;
  ~Exception() override;

  /// The message as it was given to the constructor.
  /// \threadsafety any thread, as long as nobody assigns to the object
  QString getText() const;
};

namespace FileParse {

/// Where in a text something stands. What is not known is 0 or empty.
/// \threadsafety a value
struct KYR_EXPORT Place {
  QString fileName;   ///< the name by which the reader opened the file
  qint64 line = 0;    ///< from 1, as an editor counts
  qint64 column = 0;  ///< from 1, in characters of that line; a tab is one
  QString key;        ///< that was asked for; if it was empty, the first word of the line
  QString token;      ///< the word at that place, at most its first 200 characters

  /// \return "points.txt:12:7"; "line 12, column 7" without a name; without what is not known
  QString toText() const;
};

/// A text does not hold what its reader asked for. FileParse::File and the strict parsers tell the
/// place. An Error that is copied, and not thrown on by `throw;`, loses it: catch by reference.
///
/// \code
/// try {
///   FileParse::File("points.txt").getInt("WIDTH", width);
/// } catch (const FileParse::Error& error) {
///   std::cerr << qPrintable(translate(error));  // points.txt:12:7: "wide" is no integer
/// }
/// \endcode
/// \threadsafety as Exception
class KYR_EXPORT Error : public Exception {
 public:
  /// An empty message, and no place.
  Error();
  /// \param text the message; no place
  Error(const QString& text);
  Error(const Error&) = default;
  Error& operator=(const Error&) = default;
  ~Error() override;

  /// \threadsafety any thread, as getText()
  Place getPlace() const;
  /// Place and reason, for people, in English; Kyr::translate() has it in the user's language. Of
  /// token and key it shows at most 40 characters, and "?" for what could steer a terminal.
  /// \return getText() where the thrower told no place
  /// \threadsafety any thread, as getText()
  QString getSentence() const;
};

/// The file has ended, or its next line has another key; catch it before Error.
/// \threadsafety as Exception
class KYR_EXPORT EndOfFile : public Error {
 public:
  /// An empty message, and no place.
  EndOfFile();
  /// \param text the message; no place
  EndOfFile(const QString& text);
  EndOfFile(const EndOfFile&) = default;
  EndOfFile& operator=(const EndOfFile&) = default;
  ~EndOfFile() override;
};

}  // namespace FileParse
}  // namespace Kyr

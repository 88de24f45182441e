/// \file
/// The recoverable errors of the library.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

#include <stdexcept>

namespace Kyr {

/// An error that a caller is expected to catch; carries one message for people.
/// Thrown by value, caught by reference. A broken invariant is no Exception but a ProgError.
class KYR_EXPORT Exception : public std::logic_error {
 public:
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

/// A text file does not hold what its reader asked for. FileParse::File throws it without a
/// message: whoever reports it adds the names of file and line, see there.
class KYR_EXPORT Error : public Exception {
 public:
  Error();
  Error(const QString& text);
  Error(const Error&) = default;
  Error& operator=(const Error&) = default;
  ~Error() override;
};

/// The file has ended, or its next line has another key; catch it before Error.
class KYR_EXPORT EndOfFile : public Error {
 public:
  EndOfFile();
  EndOfFile(const QString& text);
  EndOfFile(const EndOfFile&) = default;
  EndOfFile& operator=(const EndOfFile&) = default;
  ~EndOfFile() override;
};

}  // namespace FileParse
}  // namespace Kyr

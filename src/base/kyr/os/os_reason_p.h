/// \file
/// Why the system refused, in words that are the same on every platform and in every language.
#pragma once

#include <QString>

namespace Kyr::Platform {

/// A failure of the system.
struct SystemError {
  int known = 0;        ///< the C library's number for it, as ENOSPC; 0 where it has none
  unsigned native = 0;  ///< the system's own number
};

// Platform files define these two.

/// The last failure of this thread. To be asked for before anything else asks the system.
SystemError lastError();
/// Sets what lastError() gives.
void setLastError(const SystemError& error);

/// The failure in words, as the end of a sentence.
QString inWords(const SystemError& error);

/// The reason for names that isName() refuses.
extern const char* const badName;

/// Whether the system may be asked for a name: it is not empty, not longer than any system takes,
/// and holds no zero character, at which the system would end it and so mean another file.
bool isName(const QString& name);

/// Throws the Exception for a failure with a name.
/// \param what the sentence before the reason, with "%1" for the name
[[noreturn]] void fail(const char* what, const QString& name, const QString& reason);
/// As above, with lastError() as the reason.
[[noreturn]] void fail(const char* what, const QString& name);

/// \throws Exception unless isName()
void expectName(const char* what, const QString& name);

/// Sets lastError() back, when it ends, to what it was when it was made.
class KeepLastError {
 public:
  KeepLastError() : _error(lastError()) {}
  ~KeepLastError() { setLastError(_error); }
  KeepLastError(const KeepLastError&) = delete;
  KeepLastError& operator=(const KeepLastError&) = delete;

 private:
  SystemError _error;
};

}  // namespace Kyr::Platform

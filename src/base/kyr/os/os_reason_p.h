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
/// Makes lastError() tell this.
void setLastError(const SystemError& error);

/// The failure in words, as the end of a sentence.
QString inWords(const SystemError& error);

/// What is wrong with names that never reach the system.
extern const char* const badName;

/// Not empty, not longer than any system takes, and without a zero character, which would end the
/// name for the system, which then means another file.
bool isName(const QString& name);

/// \param what the sentence so far, with "%1" for the name
[[noreturn]] void fail(const char* what, const QString& name, const QString& reason);
/// The reason is lastError().
[[noreturn]] void fail(const char* what, const QString& name);

/// \throws Exception for what is no name
void expectName(const char* what, const QString& name);

/// Leaves lastError() as it was before.
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

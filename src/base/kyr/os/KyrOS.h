/// \file
/// Services of the operating system, the same on every platform.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

#include <cstdio>
#include <fstream>

namespace Kyr {

/// Services of the operating system. Never instantiated; it has no state.
///
/// Everything here takes Unicode names, because the C and C++ libraries of some platforms open
/// files only by names in the user's 8-bit encoding.
/// \threadsafety any thread
class KYR_EXPORT OS {
 public:
  /// What happens to a file that is opened. The numbers are part of the interface.
  enum OpenMode_t {
    OpenRead = 0,    ///< the file must exist
    OpenWrite = 2,   ///< created when missing, emptied otherwise
    OpenAppend = 4,  ///< created when missing; every write goes to the end that the file then
                     ///< has, so writers in several processes do not overwrite each other
  };

  OS() = delete;

  /// Opens a file for binary output. On failure \a stream is in the failed state: for a name
  /// that is empty, holds a zero character or names a directory, for a mode that does not
  /// write, for a stream that is open already, and when the system refuses.
  /// \param name absolute, or relative to the current directory
  /// \param mode OpenWrite or OpenAppend
  /// \param shared whether other processes may write the file meanwhile; only platforms that
  ///        know such a refusal honour false
  static void openStdStream(std::ofstream& stream, const QString& name, OpenMode_t mode,
                            bool shared);

  /// Opens a file for binary input; fails as for output.
  /// \param mode OpenRead
  static void openStdStream(std::ifstream& stream, const QString& name, OpenMode_t mode,
                            bool shared);

  /// Opens a binary stream of the C library; fails for the names that openStdStream() refuses.
  /// \return the open stream, which the caller closes with fclose(); null on failure
  static FILE* openFile(const QString& name, OpenMode_t mode);
};

}  // namespace Kyr

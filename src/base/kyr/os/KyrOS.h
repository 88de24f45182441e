/// \file
/// Services of the operating system, the same on every platform.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>
#include <QStringList>

#include <cstdint>
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

  /// Folders that the system sets aside for programs.
  enum SpecialFolder_t {
    FolderRoamingData = 0,  ///< settings that follow the user; on Linux $XDG_CONFIG_HOME, by
                            ///< default ~/.config
    FolderLocalData = 1,    ///< data that stay on the machine; on Linux $XDG_DATA_HOME, by
                            ///< default ~/.local/share
    FolderCommonData = 2,   ///< data of all users; on Linux /var/lib
  };

  /// Where the suite's settings of the system's registry stand.
  enum RegistryScope_t {
    RegistryMachine = 0,  ///< set by the installation for all users; on Linux ORV.conf in
                          ///< $XDG_CONFIG_DIRS, by default /etc/xdg
    RegistryUser = 1,     ///< set for the user; on Linux ORV.conf in $XDG_CONFIG_HOME
  };

  /// What stat() tells.
  struct FileStatus {
    bool isDirectory = false;
    std::int64_t size = 0;  ///< in bytes; 0 for all but plain files
  };

  OS() = delete;

  // ---- files and directories ----

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

  /// Whether there is something of this name; follows links.
  /// \param status receives more when there is; may be null
  static bool stat(const QString& name, FileStatus* status = nullptr);
  /// Makes a directory and those above it that are missing.
  /// \param ownerOnly keeps other users out of what is made here, where the folder above does
  ///        not decide that
  /// \return whether the directory is there now
  static bool mkdir(const QString& name, bool ownerOnly = false);
  /// Lists the names in a directory, sorted by code points, without "." and "..".
  /// \param entries emptied first; not null
  /// \return false when it cannot be read; \a entries is empty then
  static bool readDirectory(const QString& name, QStringList* entries);
  /// Copies a plain file; keeps a file that is there already.
  /// \return false when it was not copied; nothing is left of a copy that failed half-way
  static bool copyFile(const QString& from, const QString& to);
  /// Removes a file or a link, not a directory.
  /// \return false when it is still there, and when there was none
  static bool unlink(const QString& name);

  /// Turns every "\\" into "/".
  static QString convertSeparatorsToUnix(const QString& path);

  // ---- places ----

  /// Whatever is written to it is lost: "NUL" or "/dev/null"; static text.
  static const char* nullDevice() noexcept;
  /// The directory for temporary files, as the environment sets it: on Windows with "\\" at the
  /// end, on Linux $TMPDIR without "/" at the end if it is absolute, otherwise /tmp.
  /// \return empty when the system knows none, or none of less than 4096 characters
  static QString getTempDirectory();
  /// The same, without heap and lock, for a crash handler.
  /// \param buffer receives the path with a zero at its end; an empty text on failure
  /// \param size of the buffer, in characters with the zero
  /// \return false when it does not fit or is no valid UTF-8
  static bool getTempDirectory(wchar_t* buffer, unsigned size) noexcept;
  /// \return as the system spells it; empty when it does not tell
  static QString getSpecialFolder(SpecialFolder_t folder);
  /// The full path of the running program.
  /// \return empty when the system does not tell, on Windows also for over 520 characters
  static QString getExecutable();
  /// \return empty when the system does not tell, on Windows also for over 520 characters
  static QString getCurrentDirectory();
  /// A value of the suite's key Software\\ORV; on Linux of the organisation "ORV" of QSettings.
  /// \return empty when there is no such text
  static QString getRegistryValue(RegistryScope_t scope, const QString& name);

  // ---- environment and processes ----

  /// \param name in ASCII
  /// \return null when the variable is not set, otherwise not null, even if empty
  static QString getEnv(const char* name);
  /// Sets a variable for this process and those that it starts.
  /// \return false when the system refuses
  /// \threadsafety not while other threads read the environment past this class and Qt
  static bool setEnv(const char* name, const QString& value);
  /// \return false when the system refuses; removing what is not set succeeds
  /// \threadsafety as setEnv()
  static bool unsetEnv(const char* name);

  static unsigned getPid() noexcept;
  /// Sets how many processors computations are spread over.
  /// \param count 0 for as many as there are
  static void setNumberOfCPUs(unsigned count) noexcept;
  /// \return what was set, otherwise the number that there are; at least 1
  static unsigned getNumberOfCPUs() noexcept;
};

}  // namespace Kyr

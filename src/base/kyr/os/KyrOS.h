/// \file
/// Services of the operating system, the same on every platform.
#pragma once

#include <kyr/core/KyrPlatform.h>
#include <kyr/os/KyrProcess.h>

#include <QMap>
#include <QString>
#include <QStringList>

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <vector>

namespace Kyr {

class ErrorLog;

/// Services of the operating system. Never instantiated; it has no state but the number of
/// processors.
///
/// Everything here takes Unicode names, because the C and C++ libraries of some platforms open
/// files only by names in the user's 8-bit encoding; and names of any length that the system
/// knows. Members that answer with a bool are for places where a failure is an ordinary answer;
/// the others throw a Kyr::Exception with the name and the reason, in English and in the same
/// words on every platform.
///
/// Where a file may not grow any more (on Linux RLIMIT_FSIZE), writing to it fails: before it opens
/// the first file for writing, the library gives the signal SIGXFSZ a handler that does nothing,
/// unless the application has set what happens. Programs that are started do not inherit that.
/// \code
/// std::ofstream stream;
/// OS::openStdStream(stream, name, OS::OpenWrite, true);  // any name that the system knows
/// OS::FileStatus status;
/// const bool isThere = OS::stat(name, &status) && status.isFile;
/// \endcode
/// \threadsafety any thread
class KYR_EXPORT OS {
 public:
  /// What happens to a file that is opened. The name and the numbers are given
  /// (docs/decisions/0006).
  enum OpenMode {
    OpenRead = 0,    ///< the file must exist
    OpenWrite = 2,   ///< created when missing, emptied otherwise
    OpenAppend = 4,  ///< created when missing; every write goes to the end that the file then
                     ///< has, so writers in several processes do not overwrite each other
  };

  /// What happens to a file that has the new name already.
  enum Existing_t {
    KeepExisting = 0,     ///< it stays, and the operation fails
    ReplaceExisting = 1,  ///< it is replaced, in one step, if it is no directory
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

  /// What stat() tells. Times are milliseconds since 1970-01-01 00:00 UTC, negative before.
  struct FileStatus {
    bool isDirectory = false;   ///< a directory, or a link to one
    std::int64_t size = 0;      ///< in bytes; 0 for all but plain files
    bool isFile = false;        ///< a plain file, neither directory nor device nor pipe
    bool isLink = false;        ///< the name is a link; all else is about what it leads to
    std::int64_t modified = 0;  ///< last change of the content
    std::int64_t accessed = 0;  ///< last reading, which many file systems note rarely
    std::int64_t created = 0;   ///< 0 where the file system does not know
  };

  /// A drive that can be taken out, with a medium in it.
  struct RemovableDrive {
    QString path;             ///< its root, as "E:/" or "/media/user/STICK"
    QString label;            ///< the medium's name; may be empty
    QString fileSystem;       ///< as "vfat"; may be empty
    std::int64_t size = 0;    ///< in bytes
    std::int64_t free = 0;    ///< what the user may still write, in bytes
    bool isReadOnly = false;  ///< nobody can write to it, as to a disc
  };

  /// How programs reach the network. Each proxy is "host:port", with "user:password@" in front
  /// where it has been set so: it may hold a secret.
  struct ProxySettings {
    QString http;            ///< for "http" addresses; empty for none
    QString https;           ///< for "https" addresses; empty for none
    QString script;          ///< address of a script that chooses; nothing here runs it
    QStringList exceptions;  ///< hosts reached directly: "host", ".domain", "10.*", "*",
                             ///< "host:port", and "<local>" for all names without a dot
  };

  OS() = delete;

  // ---- streams ----

  /// Opens a file for binary output. On failure \a stream is in the failed state: for a name
  /// that is empty, holds a zero character or names a directory, for a mode that does not
  /// write, for a stream that is open already, and when the system refuses.
  /// \param name absolute, or relative to the current directory
  /// \param mode OpenWrite or OpenAppend
  /// \param shared whether other processes may write the file meanwhile; only platforms that
  ///        know such a refusal honour false
  static void openStdStream(std::ofstream& stream, const QString& name, OpenMode mode, bool shared);

  /// Opens a file for binary input; fails as for output.
  /// \param mode OpenRead
  static void openStdStream(std::ifstream& stream, const QString& name, OpenMode mode, bool shared);

  /// Opens a binary stream of the C library; fails for the names that openStdStream() refuses.
  /// \return the open stream, which the caller closes with fclose(); null on failure. Then errno
  ///         tells why, on every platform, until something else is called: EINVAL for a mode or a
  ///         name that is none, EISDIR for a directory, otherwise the system's reason, as ENOENT;
  ///         EIO where the C library has no number for that
  static FILE* openFile(const QString& name, OpenMode mode);

  // ---- files and directories ----

  /// Whether there is something of this name; follows links.
  /// \param status receives more when there is; may be null
  static bool stat(const QString& name, FileStatus* status = nullptr);
  /// As stat(), for a name that must exist.
  /// \throws Exception
  static FileStatus getStatus(const QString& name);

  /// Makes a directory and those above it that are missing.
  /// \param ownerOnly keeps other users out of what is made here, where the folder above does
  ///        not decide that
  /// \return whether the directory is there now
  static bool mkdir(const QString& name, bool ownerOnly = false);
  /// As mkdir().
  /// \throws Exception when the directory is not there afterwards
  static void makeDirectory(const QString& name, bool ownerOnly = false);

  /// Lists the names in a directory without "." and "..", sorted by the numbers of their UTF-16
  /// units.
  /// \param entries emptied first; not null
  /// \return false when it cannot be read; \a entries is empty then
  static bool readDirectory(const QString& name, QStringList* entries);
  /// As readDirectory(), with the names as result.
  /// \throws Exception when it cannot be read
  static QStringList listDirectory(const QString& name);

  /// Copies a plain file; keeps a file that is there already.
  /// \return false when it was not copied; nothing is left of a copy that failed half-way
  static bool copyFile(const QString& from, const QString& to);
  /// Copies a plain file with its permissions; a copy that fails leaves \a to as it was.
  /// \throws Exception
  static void copy(const QString& from, const QString& to, Existing_t existing = KeepExisting);

  /// Renames a file or a directory within one file system; a link itself, not where it leads.
  /// A directory never replaces anything. See SafeFile for new content under an old name.
  /// \throws Exception
  static void rename(const QString& from, const QString& to, Existing_t existing = KeepExisting);

  /// Removes a file or a link, not a directory.
  /// \return false when it is still there, and when there was none
  static bool unlink(const QString& name);
  /// Removes a file, a link or an empty directory.
  /// \throws Exception also when there was none
  static void remove(const QString& name);

  /// The same as deleteDirectoryTree() in files/KyrDirectoryTree.h, which says what happens.
  static bool deleteDirectoryRecursion(const QString& dir, ErrorLog* log);

  /// Turns every "\\" into "/".
  static QString convertSeparatorsToUnix(const QString& path);

  // ---- places ----

  /// Whatever is written to it is lost: "NUL" or "/dev/null"; static text.
  static const char* nullDevice() noexcept;
  /// The directory for temporary files, as the environment sets it: on Windows with "\\" at the
  /// end, on Linux $TMPDIR without "/" at the end if it is absolute, otherwise /tmp.
  /// \return empty when the system knows none, or none of less than 4096 characters
  static QString getTempDirectory();
  /// As getTempDirectory(), without heap and lock, for a crash handler.
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
  /// The mounted drives whose medium can be taken out: sticks, cards, discs, disks on USB.
  /// \return sorted by path; without drives that are empty or do not answer
  static std::vector<RemovableDrive> getRemovableDrives();

  // ---- environment ----

  /// \param name in ASCII
  /// \return null when the variable is not set, otherwise not null, even if empty
  static QString getEnv(const char* name);
  /// Sets a variable for this process and those that it starts.
  /// \param value without a zero character
  /// \return false for a name that is empty or holds "=", and when the system refuses
  /// \threadsafety not while other threads read the environment past this class and Qt
  static bool setEnv(const char* name, const QString& value);
  /// \return false when the system refuses; removing what is not set succeeds
  /// \threadsafety as setEnv()
  static bool unsetEnv(const char* name);
  /// All variables that are set, by name. They may hold secrets.
  /// \threadsafety not while other threads change the environment past this class
  static QMap<QString, QString> getEnvironment();

  // ---- processes ----

  /// The system's number of this process.
  static unsigned getPID() noexcept;
  /// Whether a process of this number runs, whoever owns it. One that has ended is none, also
  /// while its parent has not asked for it.
  static bool pidExists(std::int64_t pid);

  /// Searches a program in the directories of $PATH, on Windows with the endings of %PATHEXT%;
  /// never in the current directory. A name with a directory in it is only completed.
  /// \return its full path; empty when there is none that may be started
  static QString findExecutable(const QString& name);

  /// Runs a program and waits for its end; see Process for more.
  /// \param program found as by findExecutable()
  /// \param milliseconds after these the program is killed; negative: no limit
  /// \throws Exception when it cannot be started, or was killed
  static ProcessResult run(const QString& program, const QStringList& arguments = {},
                           int milliseconds = -1);

  /// Shows a document or an address in the program that the user's desktop has for it; does not
  /// wait for that.
  /// \param documentOrAddress a file or directory, which must exist, or an address with
  ///        "http:", "https:", "ftp:", "mailto:" or "file:"
  /// \throws Exception also where there is no desktop; other failures the desktop tells the user
  static void openOnDesktop(const QString& documentOrAddress);

  // ---- system ----

  /// The name of the system in words, as "Debian GNU/Linux 12 (bookworm)" or "Windows 7 Service
  /// Pack 1".
  static QString getSystemName();
  /// The version in numbers: on Windows as "6.1.7601", on Linux that of the kernel.
  static QString getSystemVersion();
  /// What Windows of a version is sold as, for versions that are read out of files.
  /// \return "Windows 11" for 10.0 from build 22000 on; "Windows 12.3" for an unknown one
  static QString getWindowsName(unsigned major, unsigned minor, unsigned build, bool isServer);

  /// The processor's name as its maker writes it; empty when the system does not tell.
  static QString getProcessorName();
  /// Sets how many processors computations are spread over.
  /// \param count 0 for as many as there are; more than 1024 count as 1024
  static void setNumberOfCPUs(unsigned count) noexcept;
  /// \return what was set, otherwise the number that there are; at least 1
  static unsigned getNumberOfCPUs() noexcept;

  /// How the system is set to reach the network: on Windows by its Internet settings, elsewhere,
  /// and where these set nothing, by $http_proxy, $https_proxy, $all_proxy and $no_proxy, in
  /// small letters before large ones.
  static ProxySettings getProxySettings();
  /// The proxy that these settings choose for an address.
  /// \param address as "https://host:port/path"
  /// \return "host:port"; empty for none, and for what is no http or https address
  static QString getProxyFor(const QString& address, const ProxySettings& settings);
};

}  // namespace Kyr

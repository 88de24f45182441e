/// \file
/// The start and the end of the library, and who runs and where.
#pragma once

#include <kyr/core/KyrApplication.h>
#include <kyr/core/KyrPlatform.h>

#include <QString>
#include <QStringList>

namespace Kyr {

/// Starts and ends the library; afterwards everybody asks it for the application and its
/// directories. Never instantiated.
///
/// InitLibrary() is called on the main thread at the start of main(), before any other thread
/// exists, with or without a Qt application object; CloseLibrary() on the same thread at its end.
/// What is set between the two does not change, except by updateConfigDirectory(): every getter
/// may be called from any thread without a lock. Before the start all texts are empty.
///
/// Directories have "/" between their parts.
class KYR_EXPORT KyrInit {
 public:
  /// Directories of the user's settings.
  enum ConfigDirectory : int {
    ConfigRoaming = 0,         ///< follows the user to other machines
    ConfigRoamingVersion = 1,  ///< below it, for this version of the library alone
    ConfigNonRoaming = 2,      ///< stays on this machine
  };

  /// Directories of measurement profiles. All are empty for an application without profiles.
  enum ProfileDirectory_t : int {
    ProfileInUse = 0,       ///< empty when there is none
    ProfileOfVersion = 1,   ///< below it, for this version of the library alone
    ProfileConfigured = 2,  ///< the registered or the default one, whether it exists or not
  };

  KyrInit() = delete;

  /// Starts the library: standard streams, crash and memory handlers, number of processors,
  /// directories, and the number that the launcher gave.
  ///
  /// Standard output and error are unbuffered from here on, and the first line of output names the
  /// application and the version. With an application object, Qt looks for its plugins in lib of
  /// the software directory, and nowhere else.
  ///
  /// The environment variable KYR_CONSOLE says where standard output and error go: unset or
  /// "file:" to a file of the process in the temporary directory, emptied; "file:" and a name to
  /// the end of that file; any other text to a console window, which on Linux is the terminal
  /// as it is. KYR_NUMBER_OF_CPUS, KYR_CONFIG_DIR, KYR_PROFILE_DIR and KYR take the place of
  /// what the system says; the last three count as unset when they are empty, and KYR also when
  /// it holds nothing but quotes.
  ///
  /// A write that exceeds the largest size of files fails from here on, and does not end the
  /// process; see OS.
  ///
  /// A second call reads everything anew, for instance after CloseLibrary(). The process's own
  /// file of output is then kept, and handlers are not installed twice.
  /// \param arguments of the program, its name first; loses "-start-app-socket" and the number
  ///        behind it
  /// \throws ProgError "unknown application", and "Unable to determine KYR root dir" where
  ///         neither KYR, the program's path nor the current directory tells it
  static void InitLibrary(Application_t app, QStringList& arguments);
  /// Ends the library: ends and deletes the pool's threads, deletes the creators of progress
  /// events, resets the progress and deletes the difference units.
  static void CloseLibrary();

  /// Creates the process-wide translator for a fixed language and installs its texts "Kyr"; those
  /// of the application follow with installTranslator().
  /// \param language shortcut of two letters, as "de"
  /// \throws ProgError "trying to install second translator"
  static void InitTranslator(const QString& language);
  /// Creates the process-wide translator for the language of the user and installs "Kyr".
  /// \param mask the languages that the application offers, a bit for each
  /// \param applicationName whose language file is read; empty for the running application
  /// \throws ProgError "trying to install second translator"
  static void InitTranslator(unsigned mask, const QString& applicationName);
  /// Deletes the process-wide translator, if there is one.
  static void CloseTranslator();

  /// \return what InitLibrary() was given; ApplicationSheetForming before
  static Application_t getApplication();
  /// \return the plain English name, static text
  static const char* getApplicationName();
  /// The name in the user's language; needs the translator, see translate().
  static QString getTranslatedApplicationName();

  /// \throws ProgError "unknown directory" for a value outside the enumeration
  static const QString& getConfigDirectory(ConfigDirectory which);
  /// \throws ProgError "unknown directory" for a value outside the enumeration
  static const QString& getProfileDirectory(ProfileDirectory_t which);
  /// Where the software is installed: bin, lib, messages and config are folders of it. The
  /// variable KYR names it; otherwise it is the folder with the "bin" in which the program lies,
  /// and for a program that lies in none the current directory.
  static const QString& getSoftwareDirectory();
  /// The version that names directories, as "v6.2.0".
  static QString getConfigVersionString();

  /// The file that takes a process's output, in the temporary directory; on Linux only its user
  /// can read it, and a link of that name is replaced, never followed.
  /// \param pid the process; 0 for none
  /// \return the null device for pid 0, and for a temporary directory that is unknown or has over
  ///         260 characters
  static QString getProgramLogfile(unsigned pid);
  /// The file that takes a process's memory when it crashes, in the temporary directory.
  /// Uses no heap and no lock, so that a crash handler can call it.
  /// \param buffer receives the path with a zero at its end; an empty text on failure
  /// \param size of the buffer, in characters with the zero
  /// \return false when the path does not fit, or the directory's name is no text
  static bool getProgramCrashdumpfile(unsigned pid, wchar_t* buffer, unsigned size);

  /// Where to write a file of settings of this version; creates the directory if it is missing.
  /// \param name of the file, as "viewer_language.dat"
  static QString createVersionConfigName(const QString& name);
  /// Where to read a file of settings of this version.
  /// \return empty when there is no such file
  static QString getVersionConfigName(const QString& name);
  /// Where to read a file of the profile directory.
  /// \return empty when there is no such file
  static QString getProfileConfigName(const QString& name);
  /// Brings the directory of this version's settings into being and fills it with the files of
  /// an earlier one, folders aside. Copies nothing when the directory was there before
  /// InitLibrary(), and never replaces a file.
  /// \param earlier the directory of an earlier version
  /// \param directory taken for ConfigRoamingVersion from now on; empty for the present one
  /// \return false when the directory or one of the files could not be made
  /// \threadsafety while no other thread asks for directories
  static bool updateConfigDirectory(const QString& earlier, const QString& directory);

  /// Tells the launcher that the main window is up, once.
  /// \return whether the launcher was told by this call; false without a launcher
  /// \threadsafety the main thread
  static bool signalMainWindowStarted();

 private:
  static void initConfigDirectories();
  static void createConfigDirectories();
  static void initProfileDirectory();
  static void settleProfileDirectory();
  static void initSoftwareDirectory();
  static void parseStartAppSocket(QStringList& arguments);

  static Application_t _app;
  static unsigned _process_id;
  static int _start_app_socket;  // negative without a launcher
  static bool _main_window_started;
  static bool _version_cfg_dir_is_new;  // made by this process and not filled yet

  // References to what is never destroyed: a crash while the process ends still asks for them.
  static QString& _config_version;
  static QString& _roaming_cfg_dir;
  static QString& _roaming_version_cfg_dir;
  static QString& _nonroaming_cfg_dir;
  static QString& _software_dir;
  static QString& _profile_dir;
  static QString& _version_profile_dir;
  static QString& _configured_profile_dir;
};

}  // namespace Kyr

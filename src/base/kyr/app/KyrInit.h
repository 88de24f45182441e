/// \file
/// The start and the end of the library, and who runs and where.
#pragma once

#include <kyr/core/KyrApplication.h>
#include <kyr/core/KyrPlatform.h>
#include <kyr/core/KyrQtVersion.h>  // which compares the Qt of the application
#include <kyr/diagnostics/KyrCrashReports.h>

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>

namespace Kyr {

/// How a program starts that is no application of the suite, or that people start in a terminal.
///
/// As it comes, nothing that the program or its user can see changes with the start: printf() goes
/// where it went before, nothing is printed, no directory is made, Qt finds its plugins. Where the
/// library is installed, its texts are found, too, wherever the program lies.
/// \code
/// QStringList arguments = QCoreApplication::arguments();
/// KyrInit::InitLibrary({"gauge", "1.2"}, arguments);
/// const QString version = KyrInit::getApplicationVersion();
/// std::printf("%s %s\n", KyrInit::getApplicationName(), qPrintable(version));
/// \endcode
/// \threadsafety a value
struct StartOptions {
  /// Names the program to people and to Qt, and its language file; without "/" and its like. Empty
  /// for the application's name in the suite.
  QString name = {};
  QString version = {};  ///< of the program, in its own words; empty for the library's
  /// Whose place in the suite it takes, which says whether it has profiles and a user interface:
  /// one with a user interface needs InitTranslator() before it translates anything.
  Application_t application = ApplicationServer;
  /// Leaves standard output and error as they are, with their buffers, whatever KYR_CONSOLE says.
  bool keepStreams = true;
  /// Leaves the places where Qt looks for plugins as they are.
  bool keepPluginPaths = true;
  /// Prints the line about memory management that names the application and the version.
  bool announce = false;
  /// Makes the directories of the settings at once; createVersionConfigName() makes its own anyway.
  bool makeDirectories = false;
  /// Takes the current directory for that of the software when the program lies in no "bin", as
  /// applications of the suite do; otherwise it is the one in which the library is installed.
  bool trustCurrentDirectory = false;
  /// With keepStreams: writes the report of a crash to KyrInit::getProgramLogfile(), too, where
  /// KyrInit::lastCrash() finds it. On Linux standard error gets it when it is whole.
  bool keepReport = false;
  /// For later versions.
  std::uintptr_t spare[4] = {};
};

/// Starts and ends the library; afterwards everybody asks it for the application and its
/// directories. Never instantiated.
///
/// InitLibrary() is called on the main thread at the start of main(), before any other thread
/// exists, with or without a Qt application object; CloseLibrary() on the same thread at its end.
/// What is set between the two does not change, except by updateConfigDirectory(): every getter
/// may be called from any thread without a lock. Before the start all texts are empty.
///
/// Directories have "/" between their parts.
/// \code
/// QStringList arguments = QCoreApplication::arguments();
/// KyrInit::InitLibrary(ApplicationInspection, arguments);
/// KyrInit::InitTranslator(Translator::allLanguages, QString());
/// const QString settings = KyrInit::createVersionConfigName("inspection.dat");
/// KyrInit::CloseTranslator();
/// KyrInit::CloseLibrary();
/// \endcode
/// \threadsafety start and end on the main thread; getters on any thread between the two
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
  /// Starts the library for a program of one's own; as above but for what the options say.
  ///
  /// Qt's names of the program and its version, which `--version` of a command line parser shows,
  /// are set to those of the options, as far as they have some.
  /// \param arguments as above
  /// \throws ProgError "unknown application"; and as above
  static void InitLibrary(const StartOptions& options, QStringList& arguments);
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
  /// \return the plain English name, static text; or that of StartOptions, until the next start
  static const char* getApplicationName();
  /// \return that of StartOptions; the library's without one
  static QString getApplicationVersion();
  /// The name in the user's language; needs the translator, see translate().
  static QString getTranslatedApplicationName();

  /// \throws ProgError "unknown directory" for a value outside the enumeration
  static const QString& getConfigDirectory(ConfigDirectory which);
  /// \throws ProgError "unknown directory" for a value outside the enumeration
  static const QString& getProfileDirectory(ProfileDirectory_t which);
  /// Where the software is installed: bin, lib, messages and config are folders of it; catalogues
  /// may lie below its share instead, see Translator::installTranslator(). The variable KYR names
  /// it; otherwise it is the folder with the "bin" in which the program lies. For a program that
  /// lies in none it is the current directory, or the folder in which the library is installed:
  /// see StartOptions::trustCurrentDirectory.
  static const QString& getSoftwareDirectory();
  /// The version that names directories, as "v6.2.0".
  static QString getConfigVersionString();

  /// The file that takes a process's output, in the temporary directory; on Linux only its user
  /// can read it, and a link of that name is replaced, never followed.
  /// \param pid the process; 0 for none
  /// \return the null device for pid 0, and for a temporary directory that is unknown or has over
  ///         260 characters
  static QString getProgramLogfile(unsigned pid);
  /// The file that takes a process's memory when it crashes, in the temporary directory. Uses no
  /// heap and no lock, so that a crash handler of one's own can call it; the library's has asked
  /// when InitLibrary() installed it.
  /// \param buffer receives the path with a zero at its end; an empty text on failure
  /// \param size of the buffer, in characters with the zero
  /// \return false when the path does not fit, or the directory's name is no text
  static bool getProgramCrashdumpfile(unsigned pid, wchar_t* buffer, unsigned size);

  /// The newest report that a crash of this application has left, of the same user: at the next
  /// start the user can be asked whether it may be sent. See CrashReports. \return nothing when
  /// there is none \threadsafety any thread
  static std::optional<CrashReport> lastCrash();

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
};

}  // namespace Kyr

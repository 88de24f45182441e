/// \file
/// Who runs and where: what the start of the library settles once, and all rooms ask for.
#pragma once

#include <kyr/core/KyrApplication.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace Kyr::Settings {

// Directories have "/" between their parts.

/// Directories of the user's settings.
struct ConfigDirectories {
  QString version;  ///< names directories, as "v6.2.0"
  QString roaming;
  QString roamingVersion;
  QString nonRoaming;
};

/// Directories of measurement profiles; all empty for an application without profiles.
struct ProfileDirectories {
  QString inUse;
  QString ofVersion;
  QString configured;
};

/// All of it. Before the start all texts are empty.
struct Settled {
  Application_t application = ApplicationSheetForming;
  QByteArray name;  ///< of a program that has one of its own, in UTF-8; empty for that of the suite
  QString version;  ///< of such a program
  ConfigDirectories config;
  ProfileDirectories profile;
  QString software;
};

/// \threadsafety any thread; does not change between start and end, except by
///               updateVersionDirectory()
const Settled& settled();
/// Whether settle() has run in this process.
/// \threadsafety any thread
bool isSettled();
/// The program's own name, or the plain English one of the running application. Stays valid until
/// the next start.
/// \throws ProgError "unknown application"
/// \threadsafety any thread
const char* applicationName();

// The start, for KyrInit::InitLibrary() on the main thread before others exist.

/// Says who runs, known or not.
/// \param name, version of a program that is none of the suite's, both empty for those
void setApplication(Application_t application, const QString& name, const QString& version);
/// What becomes of directories at a start.
struct Directories {
  bool areMade = true;  ///< those of the settings, at once
  bool currentMayBeSoftware =
      true;  ///< for a program that lies in no "bin"; or the library's place
};
/// Settles the directories anew.
/// \throws ProgError for an unknown application, and "Unable to determine KYR root dir"
void settle(Directories directories);

// What settle() would settle, for those who ask without starting the library.

/// The settings' directories of this version.
/// \threadsafety any thread
ConfigDirectories configDirectories();
/// The root that the environment names, or softwareRoot().
/// \return null when neither tells it
/// \threadsafety any thread
QString softwareDirectory();
/// The folder that the software is installed in, without double quotes.
/// \param executable the program's full path: the root is what stands before its last "/bin/",
///        in whatever case; may be empty
/// \param elsewhere the root of a program elsewhere; may be empty
/// \return null when neither tells it
/// \threadsafety any thread
QString softwareRoot(const QString& executable, const QString& elsewhere);

/// Where software has its catalogues: "messages" of a folder that is its own, or a folder below
/// "share" of one that many programs share, as /usr.
/// \param root the folder that the software is installed in
/// \threadsafety any thread
QStringList catalogueDirectories(const QString& root);
/// The folders in which the library may be installed, the nearest first: it lies in such a folder,
/// in "lib" of it, or in a folder below "lib".
/// \return empty when the system does not tell where the library is
/// \threadsafety any thread
QStringList libraryRoots();

// Files of settings, as KyrInit describes them.

/// Where to write one of this version; creates the directory if it is missing.
QString createVersionFileName(const QString& name);
/// Where to read one of this version.
/// \return empty when there is no such file
QString versionFileName(const QString& name);
/// Where to read one of the profile directory.
/// \return empty when there is no such file
QString profileFileName(const QString& name);
/// Fills the directory of this version with the files of an earlier one.
/// \param directory taken instead from now on; empty for the present one
/// \return false when the directory or one of the files could not be made
/// \threadsafety while no other thread asks for directories
bool updateVersionDirectory(const QString& earlier, const QString& directory);

}  // namespace Kyr::Settings

/// \file
/// The rules of the directories, also for those who do not start the library.
#pragma once

#include <QString>

namespace Kyr::Settings {

/// The folder that the software is installed in, without double quotes and with "/".
/// \param executable the program's full path: the root is what stands before its last "/bin/",
///        in whatever case; may be empty
/// \param currentDirectory the root of a program elsewhere; may be empty
/// \return null when neither tells it
/// \threadsafety any thread
QString softwareRoot(const QString& executable, const QString& currentDirectory);

/// What KyrInit::InitLibrary() settles, for those who ask without starting the library.
struct ConfigDirectories {
  QString version;  ///< names directories, as "v6.2.0"
  QString roaming;
  QString roamingVersion;
  QString nonRoaming;
};
/// \threadsafety any thread
ConfigDirectories configDirectories();
/// \return null when nobody tells it
/// \threadsafety any thread
QString softwareDirectory();

}  // namespace Kyr::Settings

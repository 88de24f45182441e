/// \file
/// The rules of the directories that tests try without the system.
#pragma once

#include <kyr/core/KyrPlatform.h>

#include <QString>

namespace Kyr::Settings {

/// The folder that the software is installed in, without double quotes and with "/".
/// \param executable the program's full path: the root is what stands before its last "/bin/",
///        in whatever case; may be empty
/// \param currentDirectory the root of a program elsewhere; may be empty
/// \return null when neither tells it
/// \threadsafety any thread
KYR_EXPORT QString softwareRoot(const QString& executable, const QString& currentDirectory);

}  // namespace Kyr::Settings
